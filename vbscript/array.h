#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "vbscript/context.h"

namespace qv::vbscript {

// The storage of an array, shared by copies until one of them is written. The elements lie behind it with the first
// index running fastest, and the size of each dimension behind the elements.
class alignas(16) ArrayRep final : public Managed {
 public:
  // A new array of Empty elements with those upper bounds (-1 or more each); no bounds is an array without storage.
  // Raises 7 when there is no memory for it, 9 for a bad bound.
  static ArrayRep* Create(Context& context, std::span<const std::int64_t> bounds);
  // The array that holds the element.
  static ArrayRep* Owner(Value* element, std::uint32_t index) noexcept {
    return reinterpret_cast<ArrayRep*>(reinterpret_cast<char*>(element - index) - sizeof(ArrayRep));
  }

  ArrayRep(Context& context, std::uint32_t count, std::uint32_t dimensions) noexcept;
  ~ArrayRep() override;
  void DropContents() noexcept override;

  ArrayRep* Clone();
  Value* elements() noexcept { return reinterpret_cast<Value*>(this + 1); }
  std::uint32_t count() const noexcept { return count_; }
  std::uint32_t dimensions() const noexcept { return dimensions_; }
  // The size of a dimension counted from 0.
  std::uint32_t size(std::uint32_t dimension) const noexcept { return sizes()[dimension]; }
  // Another variable holds this storage too, so that it must be cloned before it is written.
  bool shared() const noexcept { return refs - locks > 1; }
  // The element's position; raises 9 with the offending index.
  std::uint32_t Position(std::span<const std::int64_t> indexes) const;

  std::uint32_t locks = 0;  // references to elements: no redimensioning meanwhile

 private:
  std::uint32_t* sizes() noexcept { return reinterpret_cast<std::uint32_t*>(elements() + count_); }
  const std::uint32_t* sizes() const noexcept { return const_cast<ArrayRep*>(this)->sizes(); }

  std::uint32_t count_;
  std::uint32_t dimensions_;
};

// Gives the variable's array storage of its own before it is written.
ArrayRep* OwnArray(Value& variable);

// A copy as assignment makes it: an array whose elements are referred to is copied at once.
Value CopyOf(const Value& value);

// ReDim: gives the variable a new array, with the old elements if they are to be preserved. Raises 9, 10 and 13.
void Redimension(Context& context, Value& variable, std::span<const std::int64_t> bounds, bool preserve);

}  // namespace qv::vbscript
