#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "services/run.h"

namespace qv {

// Registry keys of the server. Two of them differ in case only from another and stand as they are.
namespace keys {
inline constexpr std::string_view kConfiguration = R"(SOFTWARE\Quillvane\Quillvane)";
inline constexpr std::string_view kReload = R"(SOFTWARE\quillvane\quillvane\Agents\MTA\Filters\MTAFILTER)";
inline constexpr std::string_view kFilters = R"(SOFTWARE\quillvane\quillvane\agents\mta\filters)";
inline constexpr std::string_view kFilterComponent = R"(SOFTWARE\quillvane\quillvane\agents\mta\filters\mtafilter)";
inline constexpr std::string_view kScripting = R"(SOFTWARE\quillvane\quillvane\agents\mta\filters\MTAFILTER)";
inline constexpr std::string_view kPostofficeConnector = R"(SOFTWARE\quillvane\quillvane\connectors\sf)";
inline constexpr std::string_view kProduct = R"(SOFTWARE\quillvane\quillvane)";
}  // namespace keys

// The value of keys::kConfiguration that holds the root of all files of the system.
inline constexpr const char* kConfigurationDirectory = "Configuration Directory";

// Whether the host is another machine: neither empty nor any case of "LOCALHOST".
bool IsRemoteHost(const std::string& host);

// A 32-bit value of the host's registry. On the local machine the default stands in for a value that is missing, of
// another kind or unreadable; a remote one is read through the settings component, where a failure gives 0.
std::int32_t ReadServerWord(Run& run, std::string_view key, std::string_view value_name, std::int32_t default_value,
                            const std::string& host);

// Writes a 32-bit value, given as text, to the host's registry. A local failure passes in silence.
void WriteServerWord(Run& run, std::string_view key, std::string_view value_name, const std::string& value,
                     const std::string& host);

// Writes to the registry of the local machine: a number as its 4 bytes, any other kind as text. True when all worked.
bool SetRegistryValue(Run& run, std::string_view key, std::string_view value_name, const std::string& data,
                      RegistryKind kind);

// SetRegistryValue for callers that always mean the local machine and do not ask.
void SetMachineValue(Run& run, std::string_view key, std::string_view value_name, const std::string& data,
                     RegistryKind kind);

// The text of a value of the local machine, a word as its decimal text; empty when it is missing.
std::string GetRegistryString(Run& run, std::string_view key, std::string_view value_name);

// The root of all files of the system. The host takes no part: it is always the local machine's.
std::string GetConfigurationDirectory(Run& run, const std::string& host);

// Tells the filter component of the local machine to reload, also when a remote server is administered. A failure
// passes in silence.
void SignalFilterReload(Run& run);

// Non-zero when both the filter agent and its filter component are on.
std::int32_t IsFilteringEnabled(Run& run, const std::string& host);

void SetProcessMailboxSpamFilters(Run& run, int value, const std::string& host);

}  // namespace qv
