#pragma once

#include <span>
#include <string>
#include <vector>

#include "hosts/web/access.h"
#include "hosts/web/assets.h"
#include "hosts/web/transport.h"

namespace qv {

// Answers requests: who may come in, from where, and what there is. Knows no sockets. Belongs to one thread.
class FrontDoor {
 public:
  // `names` are what the server may be called in an address besides "localhost" and the loopback addresses.
  FrontDoor(std::span<const Asset> assets, const std::vector<std::string>& names, unsigned short port);

  // An address that lets one browser in.
  std::string NewAddress();
  // The answer to a request; `session` when it is a WebSocket's that may be opened. `redeemed` becomes true when it has
  // used up an address.
  WebReply Answer(const WebRequest& request, bool& redeemed);

 private:
  WebReply AnswerToken(std::string_view token, bool known, bool& redeemed);
  WebReply AnswerAsset(const Asset& asset, const WebRequest& request);
  bool KnownBrowser(std::string_view cookies) const;

  std::span<const Asset> assets_;
  std::vector<std::string> hosts_;  // with the port, in small letters; the first is the one in addresses
  std::string cookie_;              // holds the port, as browsers do not tell the ports of a machine apart
  WebAccess access_;
};

// A page of a heading and a sentence.
WebReply Page(int status, const std::string& heading, const std::string& text);

// Whether a client that sends this header takes gzip.
bool TakesGzip(std::string_view accept_encoding);

}  // namespace qv
