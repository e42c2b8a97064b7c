#pragma once

#include <filesystem>

namespace qv {

class Connection;

// The mark in the database's header that tells it from another program's.
inline constexpr long long kApplicationID = 0x51564144;

// Makes the tables of an empty database, in one transaction.
void CreateSchema(Connection& connection);

// Brings the tables to the present version, in one transaction. Raises RuntimeError that names the file when the
// database is another program's or of a later version.
void CheckSchema(Connection& connection, const std::filesystem::path& file);

}  // namespace qv
