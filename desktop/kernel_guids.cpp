#include "desktop/kernel_guids.h"

#include <sys/random.h>

namespace qv {

static_assert(sizeof(Guid) == 16, "a GUID has no padding");

bool KernelGuids::NewGuid(Guid& guid) {
  if (getrandom(&guid, sizeof guid, 0) != static_cast<ssize_t>(sizeof guid)) return false;
  guid.Data3 = static_cast<std::uint16_t>((guid.Data3 & 0x0FFF) | 0x4000);   // version 4
  guid.Data4[0] = static_cast<std::uint8_t>((guid.Data4[0] & 0x3F) | 0x80);  // the common variant
  return true;
}

}  // namespace qv
