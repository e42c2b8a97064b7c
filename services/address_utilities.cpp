#include "services/address_utilities.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/text.h"
#include "services/server_context.h"
#include "services/text_utilities.h"

namespace qv {

namespace {

constexpr std::string_view kAddressCharacters =
    ".@!#$&'*+-/0123456789=?ABCDEFGHIJKLMNOPQRSTUVWXYZ^_`abcdefghijklmnopqrstuvwxyz{|}~";

struct Connector {
  std::string_view code, key;
};

constexpr std::array<Connector, 9> kConnectors = {{{"LS", R"(Connectors\LS)"},
                                                   {"POPC", R"(Connectors\POP)"},
                                                   {"SF", R"(Connectors\SF)"},
                                                   {"SMS", R"(Connectors\SMS)"},
                                                   {"SMTP", R"(Connectors\SMTP)"},
                                                   {"HTTPMAIL", R"(Services\HTTPMAIL)"},
                                                   {"IMAPS", R"(Services\IMAP)"},
                                                   {"LDAP", R"(Services\LDAP)"},
                                                   {"POPS", R"(Services\POP)"}}};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsHexDigit(char c) { return IsDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); }

// The number that stands at the front of a numeric text, with blanks anywhere: what a separator, a parenthesis or a
// currency sign leads to doesn't count, and a text that begins with one reads as 0.
double LeadingNumber(std::string text) {
  text.erase(std::remove_if(text.begin(), text.end(), [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }),
             text.end());
  if (StartsWith(text, "&")) return NumericValue(text).value_or(0);
  std::size_t end = 0;
  const auto take_sign = [&] { end += end < text.size() && (text[end] == '+' || text[end] == '-') ? 1 : 0; };
  const auto take_digits = [&] {
    while (end < text.size() && IsDigit(text[end])) ++end;
  };
  take_sign();
  take_digits();
  if (end < text.size() && std::string_view("eEdD").find(text[end]) != std::string_view::npos) {
    ++end;
    take_sign();
    take_digits();
  }
  return NumericValue(text.substr(0, end)).value_or(0);
}

bool IsIPv4Address(const std::string& address, bool allow_wildcard, bool allow_partial) {
  const std::vector<std::string> parts = Split(address, ".");
  if (parts.size() > 4 || (parts.size() < 4 && !allow_partial)) return false;
  return std::all_of(parts.begin(), parts.end(), [allow_wildcard](const std::string& part) {
    if (!IsNumeric(part)) return part == "*" && allow_wildcard;
    const double value = LeadingNumber(part);
    return value >= 0 && value < 256;
  });
}

// Four decimal numbers from 0 to 255 without leading zeros, as they end an IPv6 address.
bool IsIPv4Tail(const std::string& text) {
  const std::vector<std::string> parts = Split(text, ".");
  return parts.size() == 4 && std::all_of(parts.begin(), parts.end(), [](const std::string& part) {
           if (part.empty() || part.size() > 3 || !std::all_of(part.begin(), part.end(), IsDigit)) return false;
           return (part.size() == 1 || part.front() != '0') && std::stoi(part) <= 255;
         });
}

// How many of the eight groups a text without "::" holds, an IPv4 tail counting as two; nothing when it is malformed.
std::optional<std::size_t> CountGroups(std::string_view text, bool allow_wildcard, bool allow_tail) {
  if (text.empty()) return 0;
  const std::vector<std::string> groups = Split(text, ":");
  std::size_t count = 0;
  for (std::size_t n = 0; n < groups.size(); ++n) {
    const std::string& group = groups[n];
    if (allow_tail && n + 1 == groups.size() && IsIPv4Tail(group)) return count + 2;
    const bool wildcard = allow_wildcard && group == "*";
    const bool number = !group.empty() && group.size() <= 4 && std::all_of(group.begin(), group.end(), IsHexDigit);
    if (!wildcard && !number) return std::nullopt;
    ++count;
  }
  return count;
}

}  // namespace

bool IsValidEmailAddress(std::string_view address) {
  const std::size_t at = address.find('@');
  return at != std::string_view::npos && at > 0 &&
         address.find_first_not_of(kAddressCharacters) == std::string_view::npos;
}

bool IsValidIPAddressEx(Run& run, const std::string& address, bool allow_wildcard, bool allow_partial,
                        const std::string& connector) {
  if (IsIPv4Address(address, allow_wildcard, allow_partial)) return true;
  return IsIPv6Enabled(run, connector) && ValidIPv6Address(address, allow_wildcard, allow_partial);
}

bool IsValidIPAddress(Run& run, const std::string& address, const std::string& connector) {
  return IsValidIPAddressEx(run, address, true, false, connector);
}

bool IsIPv6Enabled(Run& run, const std::string& connector) {
  static constexpr const char* kStatus = "IPv6 Status";
  const std::int32_t status = ReadServerWord(run, keys::kProduct, kStatus, 0, "");
  if (status != 2) return status == 1;
  const std::string key = GetConnectorRegistryKey(connector);
  return !key.empty() && ReadServerWord(run, key, kStatus, 0, "") == 1;
}

std::string GetConnectorRegistryKey(std::string_view connector) {
  for (const Connector& row : kConnectors) {
    if (row.code == connector) return std::string(keys::kProduct) + "\\" + std::string(row.key);
  }
  return "";
}

bool ValidIPv6Address(std::string_view address, bool allow_wildcard, bool allow_partial) {
  const std::size_t gap = address.find("::");
  if (gap == std::string_view::npos) {
    const auto count = CountGroups(address, allow_wildcard, true);
    if (!count) return false;
    const bool has_tail = address.find('.') != std::string_view::npos;
    return *count == 8 || (allow_partial && !has_tail && *count > 0 && *count < 8);
  }
  // The gap stands for one group at least.
  const auto before = CountGroups(address.substr(0, gap), allow_wildcard, false);
  const auto behind = CountGroups(address.substr(gap + 2), allow_wildcard, true);
  return before && behind && *before + *behind <= 7;
}

}  // namespace qv
