#pragma once

#include "platform/guid.h"

namespace qv {

// New GUIDs, of version 4, out of the operating system's random source.
class KernelGuids : public GuidSource {
 public:
  bool NewGuid(Guid& guid) override;
};

}  // namespace qv
