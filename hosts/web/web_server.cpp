#include "hosts/web/web_server.h"

#include <malloc.h>

#include <iostream>
#include <map>
#include <ostream>

#include "hosts/web/front_door.h"
#include "hosts/web/small_thread.h"
#include "platform/runtime_error.h"

namespace qv {
namespace {

constexpr int kNormal = 1000, kPolicy = 1008, kFailed = 1011;
constexpr std::size_t kFileQuestions = 8;  // of one browser at a time

bool IsLoopback(const std::string& address) { return address == "::1" || address.rfind("127.", 0) == 0; }

std::vector<std::string> Names(const WebOptions& options) {
  std::vector<std::string> names = options.host_names;
  if (options.address == "0.0.0.0" || options.address == "::") return names;
  names.push_back(options.address.find(':') == std::string::npos ? options.address : "[" + options.address + "]");
  return names;
}

}  // namespace

class WebServer::Site : public WebSite {
 public:
  Site(Session session, OpenFiles files, std::span<const Asset> assets, const WebOptions& options, Transport& transport,
       std::ostream& out)
      : session_(std::move(session)),
        options_(options),
        transport_(transport),
        out_(out),
        door_(assets, Names(options), transport.port()),
        files_(std::move(files)) {}

  WebReply Answer(const WebRequest& request) override;
  std::shared_ptr<WebSession> Open(std::weak_ptr<WebPeer> peer) override;

  void PrintAddress(std::string_view where) {
    out_ << "Open " << door_.NewAddress() << " in " << where << " browser." << std::endl;
  }
  void Greet() {
    PrintAddress("your");
    if (terminal_) out_ << "Press Enter for another address, Ctrl+C to end." << std::endl;
  }
  void HasTerminal() { terminal_ = true; }
  // Waits for the sessions that still run.
  void JoinAll() { threads_.clear(); }

 private:
  class BrowserSession;

  void RunOne(std::size_t number, BrowserCarrier& carrier, const std::weak_ptr<WebPeer>& peer);

  const Session session_;
  const WebOptions options_;
  Transport& transport_;
  std::ostream& out_;
  bool terminal_ = false;
  FrontDoor door_;
  std::size_t next_number_ = 0;
  std::map<std::size_t, std::unique_ptr<SmallThread>> threads_;
  FileWindow files_;
};

// What a browser sends goes to the session's thread, save what is meant to pass it by.
class WebServer::Site::BrowserSession : public WebSession {
 public:
  BrowserSession(Site& site, std::weak_ptr<WebPeer> peer)
      : site_(site),
        peer_(std::move(peer)),
        carrier_(std::make_shared<BrowserCarrier>(site.options_.limits,
                                                  [&transport = site.transport_, to = peer_](std::string message) {
                                                    transport.Post([to, text = std::move(message)]() mutable {
                                                      if (const auto browser = to.lock())
                                                        browser->Send(std::move(text));
                                                    });
                                                  })) {}

  const std::shared_ptr<BrowserCarrier>& carrier() const { return carrier_; }

  void Take(std::string message) override {
    if (IsStopMessage(message)) return carrier_->Stop();
    if (IsFileMessage(message)) return AskFile(std::move(message));
    if (!carrier_->Put(std::move(message))) Close("Too many messages wait for their answers.");
  }
  void Sent(std::size_t bytes) override { carrier_->Sent(bytes); }
  void Gone() override { carrier_->Gone(); }

 private:
  void AskFile(std::string message) {
    if (*questions_ >= kFileQuestions) return Close("Too many files are asked for at a time.");
    ++*questions_;
    site_.files_.Ask(std::move(message), [carrier = carrier_, to = peer_, &transport = site_.transport_,
                                          questions = questions_](std::string answer) {
      transport.Post([carrier, to, questions, text = std::move(answer)]() mutable {
        --*questions;
        if (carrier->SendAside(std::move(text))) return;
        if (const auto browser = to.lock()) browser->Close(kPolicy, "Too much waits to be read.");
      });
    });
  }
  void Close(std::string_view why) {
    if (const auto browser = peer_.lock()) browser->Close(kPolicy, why);
  }

  Site& site_;
  const std::weak_ptr<WebPeer> peer_;
  const std::shared_ptr<BrowserCarrier> carrier_;
  const std::shared_ptr<std::size_t> questions_ = std::make_shared<std::size_t>(0);
};

WebReply WebServer::Site::Answer(const WebRequest& request) {
  bool redeemed = false;
  WebReply reply = door_.Answer(request, redeemed);
  if (reply.session && threads_.size() >= options_.max_sessions)
    return Page(503, "Too many sessions", "As many consoles are open as this server takes. Close one and try again.");
  // Where nobody can press Enter there has to be another way in for the next browser.
  if (redeemed && !terminal_) PrintAddress("another");
  return reply;
}

std::shared_ptr<WebSession> WebServer::Site::Open(std::weak_ptr<WebPeer> peer) {
  auto session = std::make_shared<BrowserSession>(*this, peer);
  const std::size_t number = next_number_++;
  auto thread = std::make_unique<SmallThread>(
      options_.session_stack,
      [this, number, carrier = session->carrier(), peer = std::move(peer)] { RunOne(number, *carrier, peer); });
  threads_[number] = std::move(thread);
  return session;
}

void WebServer::Site::RunOne(std::size_t number, BrowserCarrier& carrier, const std::weak_ptr<WebPeer>& peer) {
  int code = kNormal;
  try {
    session_(carrier);
  } catch (const RunEnded&) {
  } catch (const std::exception& error) {
    std::cerr << "A session failed: " << error.what() << std::endl;
    code = kFailed;
  }
  transport_.Post([this, number, peer, code] {
    if (const auto browser = peer.lock()) browser->Close(code, "The session has ended.");
    threads_.erase(number);
    // The heap keeps what many sessions have used, for the next; with the last one gone the system gets it back.
    if (threads_.empty()) malloc_trim(0);
  });
}

WebServer::WebServer(Session session, OpenFiles files, std::span<const Asset> assets, WebOptions options,
                     std::ostream& out) {
  if (options.address == "localhost") options.address = "127.0.0.1";
  if (!options.allow_remote && !IsLoopback(options.address)) {
    throw RuntimeError("The address " + options.address +
                       " can be reached from other machines, and what is sent there could be read on the way.");
  }
  transport_ = ListenPlain(options);
  site_ = std::make_unique<Site>(std::move(session), std::move(files), assets, options, *transport_, out);
}

WebServer::~WebServer() = default;

unsigned short WebServer::port() const { return transport_->port(); }

void WebServer::Run() {
  site_->Greet();
  transport_->Run(*site_);
  site_->JoinAll();
}

void WebServer::Stop() {
  transport_->Post([this] { transport_->Stop(); });
}

void WebServer::MindSignals() { transport_->StopOnSignals(); }

void WebServer::MindTerminal(int terminal) {
  site_->HasTerminal();
  transport_->OnLine(terminal, [this] { site_->PrintAddress("another"); });
}

}  // namespace qv
