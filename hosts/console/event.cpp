#include "hosts/console/event.h"

namespace qv {

namespace {

[[noreturn]] void Wanted(const char* field, const char* what) {
  throw EventError(std::string("The field \"") + field + "\" must be " + what + ".");
}

}  // namespace

const boost::json::value& Event::At(const char* field) const {
  const boost::json::value* value = fields_.if_contains(field);
  if (!value) throw EventError(std::string("The field \"") + field + "\" is missing.");
  return *value;
}

std::string Event::Text(const char* field) const {
  const boost::json::value& value = At(field);
  if (!value.is_string()) Wanted(field, "a text");
  return std::string(value.get_string());
}

long Event::Number(const char* field) const {
  const boost::json::value& value = At(field);
  constexpr std::int64_t kMost = 1'000'000'000;
  if (!value.is_int64() || value.get_int64() > kMost || value.get_int64() < -kMost) Wanted(field, "a whole number");
  return static_cast<long>(value.get_int64());
}

long Event::NumberOr(const char* field, long otherwise) const { return Has(field) ? Number(field) : otherwise; }

bool Event::Flag(const char* field) const {
  const boost::json::value& value = At(field);
  if (!value.is_bool()) Wanted(field, "true or false");
  return value.get_bool();
}

bool Event::FlagOr(const char* field, bool otherwise) const { return Has(field) ? Flag(field) : otherwise; }

std::vector<std::string> Event::Texts(const char* field) const {
  const boost::json::value& value = At(field);
  if (!value.is_array()) Wanted(field, "a list of texts");
  std::vector<std::string> texts;
  for (const boost::json::value& item : value.get_array()) {
    if (!item.is_string()) Wanted(field, "a list of texts");
    texts.emplace_back(item.get_string());
  }
  return texts;
}

}  // namespace qv
