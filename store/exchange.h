#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "store/rows.h"

namespace qv {

class Database;

// A text that is no export. The message says where and what is wrong with it.
class MalformedData : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Reads an export. Raises MalformedData.
DataSet ReadDataSet(std::string_view json);

// The export's text: one JSON object with a line for each row.
std::string WriteDataSet(const DataSet& data);

// Every section of a database, as it stands at one moment.
DataSet LoadDataSet(Database& database);

// Replaces the sections that the set has, as one change.
void StoreDataSet(Database& database, const DataSet& data);

}  // namespace qv
