#pragma once

#include <array>
#include <cstdint>

namespace qv {

struct Guid {
  std::uint32_t Data1 = 0;
  std::uint16_t Data2 = 0;
  std::uint16_t Data3 = 0;
  std::array<std::uint8_t, 8> Data4{};
};

class GuidSource {
 public:
  virtual ~GuidSource() = default;

  // Fills `guid` with a new one. False when the platform refuses.
  virtual bool NewGuid(Guid& guid) = 0;
};

}  // namespace qv
