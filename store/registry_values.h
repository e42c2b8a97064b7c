#pragma once

#include <optional>
#include <string>

#include "platform/registry.h"

namespace qv {

class Database;

// The registry of a server. Keys and value names count without regard to case and keep the spelling in which they were
// first written.
std::optional<RegistryValue> ReadRegistryValue(Database& database, const std::string& key,
                                               const std::string& value_name);
void WriteRegistryValue(Database& database, const std::string& key, const std::string& value_name,
                        const RegistryValue& value);

}  // namespace qv
