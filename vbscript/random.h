#pragma once

#include <cstdint>

namespace qv::vbscript {

// The numbers of Rnd: 24 bits of state, each in [0, 1).
class Random {
 public:
  double Last() const { return state_ / 16777216.0; }
  double Next() {
    state_ = (state_ * 0x43fd43fdU + 0xc39ec3U) & 0xffffffU;
    return Last();
  }
  // Starts anew from a number below 0.
  double Restart(float seed);
  // Randomize: mixes the number into the middle of the state.
  void Mix(double seed);

 private:
  std::uint32_t state_ = 327680;
};

}  // namespace qv::vbscript
