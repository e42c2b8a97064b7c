#include "hosts/web/access.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/runtime_error.h"

namespace qv {
namespace {

constexpr std::size_t kTokens = 16;
constexpr std::size_t kKeys = 1000;

std::string NewSecret() {
  unsigned char bytes[32];
  if (getentropy(bytes, sizeof bytes) != 0)
    throw RuntimeError(std::string("The system gives no random numbers: ") + std::strerror(errno) + ".");
  std::string text;
  for (const unsigned char byte : bytes) {
    text += "0123456789abcdef"[byte >> 4];
    text += "0123456789abcdef"[byte & 15];
  }
  return text;
}

// The place of a secret among others, or their number. Looks at all of them, so that the time tells nothing.
std::size_t Find(const std::vector<std::string>& secrets, std::string_view secret) {
  std::size_t found = secrets.size();
  for (std::size_t i = 0; i < secrets.size(); ++i) {
    if (SameSecret(secrets[i], secret)) found = i;
  }
  return found;
}

void Keep(std::vector<std::string>& secrets, const std::string& secret, std::size_t most) {
  if (secrets.size() == most) secrets.erase(secrets.begin());
  secrets.push_back(secret);
}

}  // namespace

bool SameSecret(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  unsigned difference = 0;
  for (std::size_t i = 0; i < a.size(); ++i)
    difference |= static_cast<unsigned char>(a[i]) ^ static_cast<unsigned char>(b[i]);
  return difference == 0;
}

std::string WebAccess::NewToken() {
  std::string token = NewSecret();
  Keep(tokens_, token, kTokens);
  return token;
}

std::string WebAccess::Redeem(std::string_view token) {
  const std::size_t at = Find(tokens_, token);
  if (at == tokens_.size()) return "";
  tokens_.erase(tokens_.begin() + static_cast<std::ptrdiff_t>(at));
  std::string key = NewSecret();
  Keep(keys_, key, kKeys);
  return key;
}

bool WebAccess::Knows(std::string_view key) const { return Find(keys_, key) != keys_.size(); }

}  // namespace qv
