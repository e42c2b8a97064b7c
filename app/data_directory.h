#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace qv {

class Database;

// Adds the required option --data.
CLI::Option* AddDataOption(CLI::App& command, std::string& directory);

// The configuration directory of a server, as its registry names it. Raises Refusal when the value is missing or no
// path of this platform.
std::filesystem::path ConfigurationDirectory(Database& database);

// Raises Refusal when a name can't be the name of a folder: empty, too long, with separators, wildcards or control
// characters, or with a dot or a blank at an end. `what` says what it is the name of.
void CheckName(const std::string& what, const std::string& name);

// The one of some names that equals a name without regard to case; empty when there is none.
std::string FindName(const std::vector<std::string>& names, const std::string& name);

// The entry of a folder with a name, without regard to case; the name as given where there is none.
std::filesystem::path EntryOf(const std::filesystem::path& folder, const std::string& name);

// Makes a folder and those above it; one that is there already is fine. Raises Refusal.
void MakeFolder(const std::filesystem::path& folder);
// Removes a folder with all that is in it. One that isn't there is fine. Raises Refusal.
void RemoveFolder(const std::filesystem::path& folder);
// The number of files in a folder and those below it.
std::size_t FilesBelow(const std::filesystem::path& folder);

}  // namespace qv
