#pragma once

#include <boost/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

namespace qv {

// An event that can't be taken as things stand. Nothing has changed when it is thrown.
class EventError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// One event as it came, with its fields by type. Each getter throws EventError when the field is missing or of another
// type.
class Event {
 public:
  explicit Event(const boost::json::object& fields) : fields_(fields) {}

  std::string Text(const char* field) const;
  long Number(const char* field) const;
  long NumberOr(const char* field, long otherwise) const;
  bool Flag(const char* field) const;
  bool FlagOr(const char* field, bool otherwise) const;
  std::vector<std::string> Texts(const char* field) const;
  bool Has(const char* field) const { return fields_.contains(field); }

 private:
  const boost::json::value& At(const char* field) const;
  const boost::json::object& fields_;
};

}  // namespace qv
