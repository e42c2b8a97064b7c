#include "hosts/web/assets.h"

#include <boost/beast/zlib/inflate_stream.hpp>

#include "platform/runtime_error.h"

namespace qv {
namespace {

constexpr std::size_t kHeader = 10;  // of a gzip file without a name
constexpr std::size_t kTrailer = 8;  // the checksum and the length
constexpr std::size_t kMostShrinking = 1032;

}  // namespace

const Asset* FindAsset(std::span<const Asset> assets, std::string_view path) {
  if (path == "/") path = "/index.html";
  if (path == "/help/") path = "/help/index.html";
  // What the script editor's help opens.
  if (path == "/quillvane/help/filtering_scripting.asp") path = "/help/filtering_scripting.html";
  for (const Asset& asset : assets) {
    if (asset.path == path) return &asset;
  }
  return nullptr;
}

std::string Inflate(std::string_view gzip) {
  namespace zlib = boost::beast::zlib;
  // A fourth byte that is not 0 announces a name or a comment, which the build leaves out.
  if (gzip.size() < kHeader + kTrailer || gzip.substr(0, 3) != "\x1f\x8b\x08" || gzip[3] != 0)
    throw RuntimeError("An embedded file is damaged.");
  std::size_t length = 0;
  for (std::size_t i = 1; i <= 4; ++i) length = length << 8 | static_cast<unsigned char>(gzip[gzip.size() - i]);
  if (length / kMostShrinking > gzip.size()) throw RuntimeError("An embedded file is damaged.");
  std::string content(length, '\0');
  zlib::inflate_stream stream;
  zlib::z_params place{};
  place.next_in = gzip.data() + kHeader;
  // With the trailer: the library looks further than the end of the content before it sees the end.
  place.avail_in = gzip.size() - kHeader;
  place.next_out = content.data();
  place.avail_out = content.size();
  boost::beast::error_code error;
  stream.write(place, zlib::Flush::finish, error);
  if (error != zlib::error::end_of_stream || place.avail_out != 0) throw RuntimeError("An embedded file is damaged.");
  return content;
}

}  // namespace qv
