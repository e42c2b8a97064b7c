#pragma once

#include <string>
#include <string_view>

#include "services/run.h"

namespace qv {

// True when an "@" stands at position 2 or later and every character is one that the server takes in an address.
// Nothing else is tested.
bool IsValidEmailAddress(std::string_view address);

// Four parts separated by ".", each a number from 0 to 255 or, with `allow_wildcard`, "*"; fewer parts with
// `allow_partial`. Where the server's IPv6 status allows it for the connector, also an IPv6 address.
bool IsValidIPAddressEx(Run& run, const std::string& address, bool allow_wildcard, bool allow_partial,
                        const std::string& connector);
// The same with wildcards and without partial addresses.
bool IsValidIPAddress(Run& run, const std::string& address, const std::string& connector);

// Whether the local server has IPv6 on: for all, or for the connector of that code.
bool IsIPv6Enabled(Run& run, const std::string& connector);

// The full registry key of a connector by its code; empty for an unknown code.
std::string GetConnectorRegistryKey(std::string_view connector);

// An IPv6 address check: full and "::" forms, an IPv4 tail, no zone. With `allow_wildcard` a group may be "*"; with
// `allow_partial` the address may end after any group.
bool ValidIPv6Address(std::string_view address, bool allow_wildcard, bool allow_partial);

}  // namespace qv
