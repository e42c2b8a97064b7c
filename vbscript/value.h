#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace qv::vbscript {

class Context;
class Value;

// The subtypes of a value. Those from String on share something that is counted.
enum class Type : std::uint8_t {
  Empty,
  Null,
  Integer,
  Long,
  Single,
  Double,
  Currency,
  Date,
  Boolean,
  Byte,
  Missing,  // an argument that was left out
  Ref,      // stands for another variable that outlives it
  String,
  Object,
  Array,
  ElementRef,  // stands for an element of an array and keeps that array locked; the aux word is the element's index
};

struct Counted {
  std::uint32_t refs = 1;
};

// A copy of a string's characters, one byte each.
struct NarrowRep {
  std::uint32_t used = 0;
  std::uint32_t capacity = 0;
  char* bytes() { return reinterpret_cast<char*>(this + 1); }
};

// A string's characters, shared by all values that start with them: each value holds its own length, and whoever
// ends where the used part ends may append in place.
struct StringRep : Counted {
  std::uint32_t searched = 0;  // characters, as long as there is no narrow copy
  Context* context = nullptr;
  NarrowRep* narrow = nullptr;
  std::uint32_t used = 0;      // bytes
  std::uint32_t capacity = 0;  // bytes
  char* bytes() { return reinterpret_cast<char*>(this + 1); }
};

class Managed;
class Object;
class ArrayRep;

// A variable's content: 16 bytes, of which the head holds the subtype (low byte) and, above bit 32, a string's length
// in bytes, and the rest the content itself.
class Value {
 public:
  Value() noexcept : head_(0) { payload_.n = 0; }
  Value(const Value& other) noexcept : head_(other.head_), payload_(other.payload_) {
    if (IsCounted()) Retain();
  }
  Value(Value&& other) noexcept : head_(other.head_), payload_(other.payload_) { other.head_ = 0; }
  Value& operator=(const Value& other) noexcept {
    if (!IsCounted() && !other.IsCounted()) {
      head_ = other.head_;
      payload_ = other.payload_;
    } else {
      Value copy(other);
      Swap(copy);
    }
    return *this;
  }
  Value& operator=(Value&& other) noexcept {
    if (!IsCounted() && this != &other) {
      head_ = other.head_;
      payload_ = other.payload_;
      other.head_ = 0;
    } else if (this != &other) {
      // What was held goes last, because its going may run on into other values.
      Value old(std::move(*this));
      head_ = other.head_;
      payload_ = other.payload_;
      other.head_ = 0;
    }
    return *this;
  }
  ~Value() {
    if (IsCounted()) Release();
  }

  static Value Of(Type type, std::int64_t n) noexcept { return Value(static_cast<std::uint64_t>(type), n); }
  static Value Of(Type type, double d) noexcept { return Value(static_cast<std::uint64_t>(type), d); }
  static Value Empty() noexcept { return {}; }
  static Value Null() noexcept { return Of(Type::Null, std::int64_t{0}); }
  static Value Missing() noexcept { return Of(Type::Missing, std::int64_t{0}); }
  static Value Integer(int n) noexcept { return Of(Type::Integer, std::int64_t{n}); }
  static Value Long(std::int32_t n) noexcept { return Of(Type::Long, std::int64_t{n}); }
  static Value Boolean(bool b) noexcept { return Of(Type::Boolean, std::int64_t{b ? -1 : 0}); }
  static Value Byte(int n) noexcept { return Of(Type::Byte, std::int64_t{n}); }
  static Value Double(double d) noexcept { return Of(Type::Double, d); }
  static Value Single(double d) noexcept { return Of(Type::Single, static_cast<double>(static_cast<float>(d))); }
  static Value Date(double d) noexcept { return Of(Type::Date, d); }
  static Value Currency(std::int64_t scaled) noexcept { return Of(Type::Currency, scaled); }
  static Value RefTo(Value* target) noexcept {
    Value v(static_cast<std::uint64_t>(Type::Ref), std::int64_t{0});
    v.payload_.ref = target;
    return v;
  }
  // Takes over the one count that the caller holds.
  static Value TakeString(StringRep* rep, std::uint32_t bytes) noexcept {
    Value v(static_cast<std::uint64_t>(Type::String) | std::uint64_t{bytes} << 32, std::int64_t{0});
    v.payload_.string = rep;
    return v;
  }
  static Value TakeArray(ArrayRep* rep) noexcept;
  // Adds a count. A null pointer is Nothing.
  static Value OfObject(Object* object) noexcept;
  static Value TakeObject(Object* object) noexcept;
  // Locks the array until the value goes.
  static Value ElementOf(ArrayRep* array, std::uint32_t index) noexcept;

  Type type() const noexcept { return static_cast<Type>(head_ & 0xff); }
  bool Is(Type type) const noexcept { return (head_ & 0xff) == static_cast<std::uint64_t>(type); }
  bool IsInt() const noexcept { return (head_ & 0xfe) == static_cast<std::uint64_t>(Type::Integer); }
  bool IsCounted() const noexcept { return (head_ & 0xff) >= static_cast<std::uint64_t>(Type::String); }
  // Neither shared nor a reference.
  bool IsSimple() const noexcept { return (head_ & 0xff) < static_cast<std::uint64_t>(Type::Ref); }
  bool IsRef() const noexcept { return Is(Type::Ref) || Is(Type::ElementRef); }
  bool IsNothing() const noexcept { return Is(Type::Object) && payload_.object == nullptr; }

  std::int64_t n() const noexcept { return payload_.n; }
  double d() const noexcept { return payload_.d; }
  StringRep* string() const noexcept { return payload_.string; }
  std::uint32_t bytes() const noexcept { return static_cast<std::uint32_t>(head_ >> 32); }
  std::u16string_view text() const noexcept {
    return payload_.string
               ? std::u16string_view(reinterpret_cast<const char16_t*>(payload_.string->bytes()), bytes() / 2)
               : std::u16string_view();
  }
  std::string_view byte_text() const noexcept {
    return payload_.string ? std::string_view(payload_.string->bytes(), bytes()) : std::string_view();
  }
  Object* object() const noexcept { return payload_.object; }
  ArrayRep* array() const noexcept { return payload_.array; }
  Value* target() const noexcept { return payload_.ref; }

  // Arrays declared with bounds cannot be redimensioned; the mark belongs to the variable and is lost in a copy.
  bool fixed() const noexcept { return (head_ & kFixed) != 0; }
  void MarkFixed() noexcept { head_ |= kFixed; }

  // The variable meant, through references.
  const Value& Deref() const noexcept { return IsRef() ? *payload_.ref : *this; }
  Value& Target() noexcept { return IsRef() ? *payload_.ref : *this; }

  void SetPlain(Type type, std::int64_t n) noexcept {
    if (IsCounted()) Release();
    head_ = static_cast<std::uint64_t>(type);
    payload_.n = n;
  }
  void SetPlain(Type type, double d) noexcept {
    if (IsCounted()) Release();
    head_ = static_cast<std::uint64_t>(type);
    payload_.d = d;
  }
  void SetRef(Value* target) noexcept {
    if (IsCounted()) Release();
    head_ = static_cast<std::uint64_t>(Type::Ref);
    payload_.ref = target;
  }
  void Clear() noexcept {
    if (IsCounted()) Release();
    head_ = 0;
  }
  void Swap(Value& other) noexcept {
    std::swap(head_, other.head_);
    std::swap(payload_, other.payload_);
  }

 private:
  static constexpr std::uint64_t kFixed = 0x100;

  Value(std::uint64_t head, std::int64_t n) noexcept : head_(head) { payload_.n = n; }
  Value(std::uint64_t head, double d) noexcept : head_(head) { payload_.d = d; }
  void Retain() noexcept;
  void Release() noexcept;
  void ReleaseString() noexcept;

  std::uint64_t head_;
  union {
    std::int64_t n;
    double d;
    StringRep* string;
    Object* object;
    ArrayRep* array;
    Value* ref;
  } payload_;
};

static_assert(sizeof(Value) == 16);

inline constexpr std::int64_t kMinLong = -2147483648LL;
inline constexpr std::int64_t kMaxLong = 2147483647LL;

}  // namespace qv::vbscript
