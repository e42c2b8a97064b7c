#include "hosts/console/json_writer.h"

#include <gtest/gtest.h>

#include <boost/json.hpp>

namespace qv {
namespace {

std::string Written(std::string_view text) {
  JsonWriter to(0);
  to.Value(text);
  return to.Take();
}

TEST(JsonWriter, EscapesWhatATextCantHold) {
  EXPECT_EQ(Written("plain"), "\"plain\"");
  EXPECT_EQ(Written(""), "\"\"");
  EXPECT_EQ(Written("a\"b\\c"), "\"a\\\"b\\\\c\"");
  EXPECT_EQ(Written("\r\n\t"), "\"\\r\\n\\t\"");
  EXPECT_EQ(Written(std::string_view("\0\x01\x1f", 3)), "\"\\u0000\\u0001\\u001f\"");
  EXPECT_EQ(Written("caf\u00e9 \u20ac \x7f"), "\"caf\u00e9 \u20ac \x7f\"");
}

TEST(JsonWriter, EveryCharacterComesBack) {
  std::string all;
  for (int c = 0; c < 128; ++c) all += static_cast<char>(c);
  EXPECT_EQ(boost::json::parse(Written(all)).as_string(), all);
}

TEST(JsonWriter, EscapesWhereverInAStretchACharacterStands) {
  for (std::size_t length = 1; length < 20; ++length) {
    for (std::size_t at = 0; at < length; ++at) {
      for (const char c : {'"', '\\', '\x1f', '\0', ' ', '!', '#', '[', ']', '\x7f', '\xa2'}) {
        const std::string before(at, '~'), after(length - at - 1, '\x80');
        const std::string escaped = c == '"'      ? "\\\""
                                    : c == '\\'   ? "\\\\"
                                    : c == '\x1f' ? "\\u001f"
                                    : c == '\0'   ? "\\u0000"
                                                  : std::string(1, c);
        EXPECT_EQ(Written(before + c + after), '"' + before + escaped + after + '"');
      }
    }
  }
}

TEST(JsonWriter, SeparatesWhatStandsBesideEachOther) {
  JsonWriter to(0);
  to.Object([&to] {
    to.Field("a", 1);
    to.Field("b", true);
    to.Array("c", std::string("xy"), [&to](char) { to.Object([] {}); });
    to.Key("d").Null();
    to.Key("e").Open('[');
    to.Close(']');
    to.Field("f", std::size_t{7});
    to.Field("g", -3L);
  });
  EXPECT_EQ(to.Take(), R"({"a":1,"b":true,"c":[{},{}],"d":null,"e":[],"f":7,"g":-3})");
}

}  // namespace
}  // namespace qv
