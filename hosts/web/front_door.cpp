#include "hosts/web/front_door.h"

#include <algorithm>
#include <cstdlib>

namespace qv {
namespace {

constexpr std::string_view kPolicy =
    "default-src 'none'; script-src 'self'; style-src 'self'; style-src-attr 'unsafe-inline'; connect-src 'self'; "
    "img-src 'self' data:; font-src 'self'; base-uri 'none'; form-action 'self'; frame-ancestors 'none'; "
    "require-trusted-types-for 'script'";
constexpr std::string_view kTokenTarget = "/?token=";
constexpr std::string_view kSocketPath = "/console";
constexpr std::string_view kAskForAddress =
    "Open the address that the program prints where it runs. Each address lets one browser in, once; in a terminal, "
    "press Enter there to get another.";

std::string_view Trimmed(std::string_view text) {
  const auto begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

// Calls `use` for each trimmed piece of a list until it answers true; whether it did.
template <class Use>
bool AnyOf(std::string_view list, char separator, Use&& use) {
  while (true) {
    const auto end = list.find(separator);
    if (use(Trimmed(list.substr(0, end)))) return true;
    if (end == std::string_view::npos) return false;
    list.remove_prefix(end + 1);
  }
}

std::string SmallLetters(std::string_view text) {
  std::string small(text);
  for (char& c : small) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return small;
}

void AddCommonHeaders(WebReply& reply) {
  reply.headers.emplace_back("Content-Security-Policy", kPolicy);
  reply.headers.emplace_back("X-Content-Type-Options", "nosniff");
  reply.headers.emplace_back("Referrer-Policy", "no-referrer");
  reply.headers.emplace_back("Cross-Origin-Opener-Policy", "same-origin");
  reply.headers.emplace_back("Cross-Origin-Resource-Policy", "same-origin");
}

}  // namespace

bool TakesGzip(std::string_view accept_encoding) {
  bool taken = false;
  AnyOf(accept_encoding, ',', [&](std::string_view coding) {
    const auto end = coding.find(';');
    const std::string name = SmallLetters(Trimmed(coding.substr(0, end)));
    bool wanted = true;
    if (end != std::string_view::npos) {
      const std::string quality = SmallLetters(Trimmed(coding.substr(end + 1)));
      wanted = quality.rfind("q=", 0) != 0 || std::strtod(quality.c_str() + 2, nullptr) > 0;
    }
    if (name == "*" || name == "gzip") taken = wanted;
    return name == "gzip";  // what is said of gzip itself counts more than what is said of all
  });
  return taken;
}

WebReply Page(int status, const std::string& heading, const std::string& text) {
  WebReply reply;
  reply.status = status;
  reply.headers.emplace_back("Content-Type", "text/html; charset=utf-8");
  reply.headers.emplace_back("Cache-Control", "no-store");
  AddCommonHeaders(reply);
  reply.text =
      "<!doctype html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><meta name=\"viewport\" "
      "content=\"width=device-width, initial-scale=1\"><meta name=\"color-scheme\" content=\"light dark\">"
      "<link rel=\"icon\" href=\"data:,\"><title>" +
      heading + "</title></head><body><h1>" + heading + "</h1><p>" + text + "</p></body></html>\n";
  return reply;
}

FrontDoor::FrontDoor(std::span<const Asset> assets, const std::vector<std::string>& names, unsigned short port)
    : assets_(assets), cookie_("qv_session_" + std::to_string(port)) {
  std::vector<std::string> all(names);
  all.insert(all.end(), {"127.0.0.1", "localhost", "[::1]"});
  for (const std::string& name : all) {
    hosts_.push_back(SmallLetters(name) + ":" + std::to_string(port));
    if (port == 80) hosts_.push_back(SmallLetters(name));
  }
}

std::string FrontDoor::NewAddress() {
  return "http://" + hosts_.front() + std::string(kTokenTarget) + access_.NewToken();
}

WebReply FrontDoor::Answer(const WebRequest& request, bool& redeemed) {
  if (!request.host) return Page(400, "Bad request", "A request names one host.");
  const std::string host = SmallLetters(*request.host);
  if (std::find(hosts_.begin(), hosts_.end(), host) == hosts_.end())
    return Page(421, "Wrong address", "This server does not answer under that name. " + std::string(kAskForAddress));
  const bool get = request.method == "GET";
  if (!get && request.method != "HEAD") {
    WebReply reply = Page(405, "Not allowed", "Pages of this server can be read only.");
    reply.headers.emplace_back("Allow", "GET, HEAD");
    return reply;
  }
  const bool known = KnownBrowser(request.cookies);
  // A HEAD changes nothing, so it redeems nothing.
  if (get && request.target.substr(0, kTokenTarget.size()) == kTokenTarget)
    return AnswerToken(request.target.substr(kTokenTarget.size()), known, redeemed);

  const std::string_view path = request.target.substr(0, request.target.find('?'));
  const bool socket = path == kSocketPath && request.upgrade && get;
  if (socket && (!request.origin || SmallLetters(*request.origin) != "http://" + host))
    return Page(403, "Not allowed", "A session is opened by this server's own pages only.");
  if (!known) return Page(401, "This browser has not been let in", std::string(kAskForAddress));
  if (socket) {
    WebReply reply;
    reply.session = true;
    return reply;
  }
  if (path == kSocketPath) {
    WebReply reply = Page(426, "No page", "Sessions are opened here, by WebSocket.");
    reply.headers.emplace_back("Upgrade", "websocket");
    return reply;
  }
  if (const Asset* asset = FindAsset(assets_, path)) return AnswerAsset(*asset, request);
  return Page(404, "No such page", "There is nothing under this address.");
}

WebReply FrontDoor::AnswerToken(std::string_view token, bool known, bool& redeemed) {
  const std::string key = access_.Redeem(token);
  redeemed = !key.empty();
  // A browser that has been let in may open its address again.
  if (!redeemed && !known)
    return Page(403, "This address is no longer valid",
                "It has been used, or the program has been started anew since. " + std::string(kAskForAddress));
  WebReply reply = Page(303, "Come in", "The console is at <a href=\"/\">the start page</a>.");
  reply.headers.emplace_back("Location", "/");
  if (redeemed) reply.headers.emplace_back("Set-Cookie", cookie_ + "=" + key + "; HttpOnly; SameSite=Strict; Path=/");
  return reply;
}

WebReply FrontDoor::AnswerAsset(const Asset& asset, const WebRequest& request) {
  const bool gzip = TakesGzip(request.accept_encoding);
  std::string tag(1, '"');
  tag += asset.tag;
  tag += gzip ? "\"" : "-plain\"";
  WebReply reply;
  reply.headers.emplace_back("ETag", tag);
  reply.headers.emplace_back("Cache-Control", "no-cache");
  reply.headers.emplace_back("Vary", "Accept-Encoding");
  AddCommonHeaders(reply);
  const bool held = AnyOf(request.if_none_match, ',', [&](std::string_view one) {
    if (one.substr(0, 2) == "W/") one.remove_prefix(2);
    return one == tag || one == "*";
  });
  if (held) {
    reply.status = 304;
    return reply;
  }
  reply.headers.emplace_back("Content-Type", asset.type);
  if (gzip) {
    reply.headers.emplace_back("Content-Encoding", "gzip");
    reply.bytes = asset.gzip;
  } else {
    reply.text = Inflate(asset.gzip);
  }
  return reply;
}

bool FrontDoor::KnownBrowser(std::string_view cookies) const {
  return AnyOf(cookies, ';', [&](std::string_view cookie) {
    const auto equals = cookie.find('=');
    return equals != std::string_view::npos && cookie.substr(0, equals) == cookie_ &&
           access_.Knows(cookie.substr(equals + 1));
  });
}

}  // namespace qv
