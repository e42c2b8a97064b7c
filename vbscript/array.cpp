#include "vbscript/array.h"

#include <algorithm>
#include <new>
#include <string>

#include "vbscript/failure.h"

namespace qv::vbscript {

ArrayRep::ArrayRep(Context& context, std::uint32_t count, std::uint32_t dimensions) noexcept
    : Managed(context), count_(count), dimensions_(dimensions) {
  for (std::uint32_t i = 0; i < count; ++i) ::new (static_cast<void*>(elements() + i)) Value();
}

ArrayRep::~ArrayRep() {
  for (std::uint32_t i = 0; i < count_; ++i) elements()[i].~Value();
}

void ArrayRep::DropContents() noexcept {
  for (std::uint32_t i = 0; i < count_; ++i) elements()[i].Clear();
}

ArrayRep* ArrayRep::Create(Context& context, std::span<const std::int64_t> bounds) {
  std::uint64_t count = bounds.empty() ? 0 : 1;
  for (const std::int64_t bound : bounds) {
    if (bound < -1) Raise(kSubscript);
    count *= static_cast<std::uint64_t>(bound + 1);
    if (count > 0x7fffffff / sizeof(Value)) Raise(kOutOfMemory);
  }
  context.Poll(static_cast<int>(count / 256));
  const std::size_t extra = count * sizeof(Value) + bounds.size() * sizeof(std::uint32_t);
  auto* array =
      context.Make<ArrayRep>(extra, static_cast<std::uint32_t>(count), static_cast<std::uint32_t>(bounds.size()));
  std::transform(bounds.begin(), bounds.end(), array->sizes(),
                 [](std::int64_t bound) { return static_cast<std::uint32_t>(bound + 1); });
  return array;
}

ArrayRep* ArrayRep::Clone() {
  context().Poll(static_cast<int>(count_ / 256));
  const std::size_t extra = count_ * sizeof(Value) + dimensions_ * sizeof(std::uint32_t);
  auto* copy = context().Make<ArrayRep>(extra, count_, dimensions_);
  std::copy_n(sizes(), dimensions_, copy->sizes());
  for (std::uint32_t i = 0; i < count_; ++i) copy->elements()[i] = elements()[i];
  return copy;
}

std::uint32_t ArrayRep::Position(std::span<const std::int64_t> indexes) const {
  if (indexes.size() != dimensions_ || indexes.empty()) Raise(kSubscript);
  std::uint64_t position = 0;
  std::uint64_t stride = 1;
  for (std::uint32_t i = 0; i < dimensions_; ++i) {
    if (indexes[i] < 0 || indexes[i] >= size(i)) {
      RaiseNamed(kSubscript, "[number: " + std::to_string(indexes[i]) + "]");
    }
    position += stride * static_cast<std::uint64_t>(indexes[i]);
    stride *= size(i);
  }
  return static_cast<std::uint32_t>(position);
}

ArrayRep* OwnArray(Value& variable) {
  if (variable.array()->shared()) {
    const bool fixed = variable.fixed();
    variable = Value::TakeArray(variable.array()->Clone());
    if (fixed) variable.MarkFixed();
  }
  return variable.array();
}

Value CopyOf(const Value& value) {
  if (value.Is(Type::Array) && value.array()->locks) return Value::TakeArray(value.array()->Clone());
  return value;
}

void Redimension(Context& context, Value& variable, std::span<const std::int64_t> bounds, bool preserve) {
  const bool is_array = variable.Is(Type::Array);
  if (is_array && (variable.fixed() || variable.array()->locks)) Raise(kArrayLocked);
  ArrayRep* old = is_array ? variable.array() : nullptr;
  const bool keep = preserve && old && old->dimensions() != 0;
  if (keep) {
    if (old->dimensions() != bounds.size()) Raise(kSubscript);
    for (std::uint32_t i = 0; i + 1 < old->dimensions(); ++i) {
      if (static_cast<std::int64_t>(old->size(i)) != bounds[i] + 1) Raise(kSubscript);
    }
  }
  Value made = Value::TakeArray(ArrayRep::Create(context, bounds));
  if (keep) {
    // Only the last dimension differs, so that the old elements are the front of the new ones.
    const std::uint32_t count = std::min(old->count(), made.array()->count());
    const bool shared = old->shared();
    for (std::uint32_t i = 0; i < count; ++i) {
      if (shared) {
        made.array()->elements()[i] = old->elements()[i];
      } else {
        made.array()->elements()[i].Swap(old->elements()[i]);
      }
    }
  }
  variable = std::move(made);
}

}  // namespace qv::vbscript
