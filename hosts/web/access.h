#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qv {

// Who may come in. An address with a token lets one browser in, once; the browser then shows a key, which it keeps in a
// cookie. Both are 256 bits from the system's random source, in hexadecimal digits. Belongs to one thread.
class WebAccess {
 public:
  // A new token. The newest few stay good until they are redeemed or the program ends.
  std::string NewToken();
  // The key of a browser that came with the token, which is good no longer; empty when it was not good.
  std::string Redeem(std::string_view token);
  // Whether the key has been given to a browser.
  bool Knows(std::string_view key) const;

 private:
  std::vector<std::string> tokens_, keys_;
};

// Compares in a time that depends on the lengths alone.
bool SameSecret(std::string_view a, std::string_view b);

}  // namespace qv
