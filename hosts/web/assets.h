#pragma once

#include <span>
#include <string>
#include <string_view>

namespace qv {

// A static page or file of the front end or the help, as it stands in the program.
struct Asset {
  std::string_view path;  // as requested, such as "/app.js"; "/index.html" also answers "/"
  std::string_view type;  // the content type
  std::string_view tag;   // changes with the content
  std::string_view gzip;  // the content, compressed
};

// What the program was built with.
std::span<const Asset> EmbeddedAssets();

// The asset of a path, or null.
const Asset* FindAsset(std::span<const Asset> assets, std::string_view path);

// The content of a gzip file as our build makes them. Raises RuntimeError when it is none.
std::string Inflate(std::string_view gzip);

}  // namespace qv
