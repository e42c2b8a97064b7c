#include "vbscript/value.h"

#include "vbscript/array.h"
#include "vbscript/context.h"
#include "vbscript/object.h"

namespace qv::vbscript {
Value Value::TakeArray(ArrayRep* rep) noexcept {
  Value v(static_cast<std::uint64_t>(Type::Array), std::int64_t{0});
  v.payload_.array = rep;
  return v;
}

Value Value::OfObject(Object* object) noexcept {
  Value v(static_cast<std::uint64_t>(Type::Object), std::int64_t{0});
  v.payload_.object = object;
  if (object) ++object->refs;
  return v;
}

Value Value::TakeObject(Object* object) noexcept {
  Value v(static_cast<std::uint64_t>(Type::Object), std::int64_t{0});
  v.payload_.object = object;
  return v;
}

Value Value::ElementOf(ArrayRep* array, std::uint32_t index) noexcept {
  Value v(static_cast<std::uint64_t>(Type::ElementRef) | std::uint64_t{index} << 32, std::int64_t{0});
  v.payload_.ref = array->elements() + index;
  ++array->refs;
  ++array->locks;
  return v;
}

void Value::Retain() noexcept {
  switch (type()) {
    case Type::String:
      if (payload_.string) ++payload_.string->refs;
      break;
    case Type::Object:
      if (payload_.object) ++payload_.object->refs;
      break;
    case Type::Array:
      head_ &= ~kFixed;
      ++payload_.array->refs;
      break;
    default:  // a second look at a locked element needs no lock of its own
      head_ = static_cast<std::uint64_t>(Type::Ref);
      break;
  }
}

void Value::ReleaseString() noexcept {
  StringRep* rep = payload_.string;
  if (rep->narrow) rep->context->Free(rep->narrow, sizeof(NarrowRep) + rep->narrow->capacity);
  rep->context->Free(rep, sizeof(StringRep) + rep->capacity);
}

void Value::Release() noexcept {
  switch (type()) {
    case Type::String:
      if (payload_.string && --payload_.string->refs == 0) ReleaseString();
      break;
    case Type::Object:
      if (payload_.object && --payload_.object->refs == 0) payload_.object->context().Bury(payload_.object);
      break;
    case Type::Array:
      if (--payload_.array->refs == 0) payload_.array->context().Bury(payload_.array);
      break;
    default: {
      ArrayRep* array = ArrayRep::Owner(payload_.ref, static_cast<std::uint32_t>(head_ >> 32));
      --array->locks;
      if (--array->refs == 0) array->context().Bury(array);
      break;
    }
  }
}

}  // namespace qv::vbscript
