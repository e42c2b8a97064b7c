// Measures the web and the line host and prints a line "name value limit" for each figure; the exit status is 1 when
// one is over its limit.
//
//   event_over_echo    the round trip of an event and its state over WebSocket, as a multiple of the round trip of an
//                      echo of the state's bytes through the same server
//   event_us, echo_us  the lower quartiles behind it
//   idle_session_kb    the memory of a browser session that shows a list of filters and waits
//   console_start_ms   from the start of the line console to its first state

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/scratch_folder.h"
#include "hosts/console/session.h"
#include "hosts/web/web_server.h"
#include "store/servers.h"
#include "tests/hosts/web_client.h"

namespace {

using qv::testing::WebClient;
using Clock = std::chrono::steady_clock;

constexpr int kSessions = 1000, kRounds = 600, kBatch = 5, kStarts = 21, kFilterRows = 100;
constexpr const char* kExpand = R"({"do":"expand","node":"server:LOCALHOST"})";
constexpr const char* kFilters = R"({"do":"select","node":"server:LOCALHOST/filters"})";

// The value below which a part of the values lies: the lower ones tell what the work takes when nothing else runs.
double Quantile(std::vector<double> values, double part) {
  const auto at = static_cast<std::ptrdiff_t>(static_cast<double>(values.size()) * part);
  std::nth_element(values.begin(), values.begin() + at, values.end());
  return values[static_cast<std::size_t>(at)];
}

double MicrosecondsSince(Clock::time_point start) {
  return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

void Echo(qv::Carrier& carrier) {
  while (auto message = carrier.Receive()) carrier.Send(std::move(*message));
}

// A server in a process of its own.
class ServerProcess {
 public:
  ServerProcess(const std::string& data, bool echo) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    std::fflush(stdout);  // or both processes print it
    process_ = fork();
    if (process_ == 0) {
      prctl(PR_SET_PDEATHSIG, SIGKILL);
      close(ends[0]);
      dup2(ends[1], STDOUT_FILENO);
      Serve(data, echo);
    }
    close(ends[1]);
    std::FILE* out = fdopen(ends[0], "r");
    char line[256];
    if (!std::fgets(line, sizeof line, out)) throw std::runtime_error("the server did not start");
    const std::string text = line;
    const auto colon = text.find(':', text.find("127.0.0.1"));
    port_ = static_cast<unsigned short>(std::stoi(text.substr(colon + 1)));
    const auto at = text.find("/?token=");
    const std::string cookie = WebClient(port_).Get(text.substr(at, text.find(' ', at) - at)).headers["set-cookie"];
    cookie_ = cookie.substr(0, cookie.find(';'));
    std::fclose(out);
  }
  ~ServerProcess() {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
  }
  ServerProcess(const ServerProcess&) = delete;
  ServerProcess& operator=(const ServerProcess&) = delete;

  std::unique_ptr<WebClient> Open() const {
    auto client = std::make_unique<WebClient>(port_);
    if (client->Upgrade(cookie_).status != 101) throw std::runtime_error("no session");
    return client;
  }
  double ResidentKilobytes() const {
    std::ifstream statm("/proc/" + std::to_string(process_) + "/statm");
    double size = 0, resident = 0;
    statm >> size >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024;
  }

 private:
  [[noreturn]] static void Serve(const std::string& data, bool echo) {
    signal(SIGPIPE, SIG_IGN);
    qv::Servers servers(data);
    qv::WebOptions options;
    options.max_sessions = options.max_connections = kSessions + 100;
    qv::WebServer server(
        [&](qv::Carrier& carrier) {
          if (echo)
            Echo(carrier);
          else
            qv::RunSession(servers, carrier);
        },
        [&servers] { return servers.MakeFiles(); }, qv::EmbeddedAssets(), options, std::cout);
    server.MindSignals();
    server.Run();
    std::_Exit(0);
  }

  pid_t process_ = -1;
  unsigned short port_ = 0;
  std::string cookie_;
};

std::string Ask(WebClient& client, const std::string& message) {
  client.SendText(message);
  std::string answer = client.ReadText();
  if (answer.find("\"state\"") == std::string::npos) throw std::runtime_error("no state: " + answer);
  return answer;
}

// A server with a list of filters that fills a screen or two.
void MakeServer(const std::string& data) {
  const auto run = [](const std::string& arguments) {
    if (std::system((std::string(QVADMIN_PATH) + " " + arguments + " >/dev/null").c_str()) != 0)
      throw std::runtime_error("failed: " + arguments);
  };
  run("init --demo --data " + data);
  const std::string rows = data + "/rows.json";
  std::ofstream file(rows);
  file << "{\"filters\":[";
  for (int i = 0; i < kFilterRows; ++i) {
    const std::string id = std::to_string(10'000'000 + i) + "0123456789ABCDEF01234567";
    file << (i ? "," : "") << "{\"FilterEntryID\":\"FLT" << id << "\",\"CriteriaID\":\"CRT" << id
         << "\",\"Description\":\"Keep out offers of kind " << i
         << "\",\"Note\":\"Asked for by the post room\",\"Status\":" << i % 2 << "}";
  }
  file << "]}";
  file.close();
  run("data import --data " + data + " " + rows);
}

bool Report(const char* name, double value, double limit) {
  std::printf("%s %.2f %g\n", name, value, limit);
  return value <= limit;
}

bool MeasureRoundTrip(const std::string& data) {
  const ServerProcess console(data, false), echo(data, true);
  const auto events = console.Open(), echoes = echo.Open();
  events->ReadText();
  Ask(*events, kExpand);
  const std::string state = Ask(*events, kFilters);
  const auto row = state.find("\"key\"", state.find("\"items\""));
  if (row == std::string::npos) throw std::runtime_error("no filters in the list");
  const auto quote = state.find('"', row + 6);
  const std::string key = state.substr(quote, state.find('"', quote + 1) + 1 - quote);
  const std::string select = "{\"do\":\"selectItems\",\"keys\":[" + key + "]}",
                    clear = R"({"do":"selectItems","keys":[]})";
  const std::string answer = Ask(*events, select);
  std::printf("state_bytes %zu -\n", answer.size());
  std::vector<double> event_times, echo_times;
  for (int round = -20; round < kRounds; ++round) {
    for (int i = 0; i < kBatch; ++i) {
      const auto start = Clock::now();
      Ask(*events, i % 2 ? select : clear);
      if (round >= 0) event_times.push_back(MicrosecondsSince(start));
    }
    for (int i = 0; i < kBatch; ++i) {
      const auto start = Clock::now();
      Ask(*echoes, answer);
      if (round >= 0) echo_times.push_back(MicrosecondsSince(start));
    }
  }
  const double event = Quantile(event_times, 0.25), same = Quantile(echo_times, 0.25);
  std::printf("event_us %.1f -\necho_us %.1f -\n", event, same);
  return Report("event_over_echo", event / same, 1.5);
}

bool MeasureMemory(const std::string& data) {
  const ServerProcess console(data, false);
  std::vector<std::unique_ptr<WebClient>> clients;
  const auto open = [&] {
    clients.push_back(console.Open());
    clients.back()->ReadText();
    Ask(*clients.back(), kExpand);
    Ask(*clients.back(), kFilters);
  };
  open();
  const double before = console.ResidentKilobytes();
  for (int i = 0; i < kSessions; ++i) open();
  return Report("idle_session_kb", (console.ResidentKilobytes() - before) / kSessions, 100);
}

bool MeasureStart(const std::string& data) {
  std::vector<double> times;
  for (int i = 0; i < kStarts; ++i) {
    int in[2], out[2];
    if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    const auto start = Clock::now();
    const pid_t child = fork();
    if (child == 0) {
      dup2(in[0], STDIN_FILENO);
      dup2(out[1], STDOUT_FILENO);
      execl(QVADMIN_PATH, QVADMIN_PATH, "console", "--data", data.c_str(), nullptr);
      _exit(127);
    }
    close(in[0]);
    close(out[1]);
    char c = 0;
    while (read(out[0], &c, 1) == 1 && c != '\n') {
    }
    times.push_back(MicrosecondsSince(start) / 1000);
    close(in[1]);
    close(out[0]);
    int status = -1;
    waitpid(child, &status, 0);
    if (c != '\n' || status != 0) throw std::runtime_error("the line console failed");
  }
  return Report("console_start_ms", Quantile(times, 0.5), 20);
}

int Run(const std::filesystem::path& folder) {
  const std::string data = (folder / "data").string();
  MakeServer(data);
  bool good = MeasureStart(data);
  good = MeasureRoundTrip(data) && good;
  good = MeasureMemory(data) && good;
  return good ? 0 : 1;
}

}  // namespace

int main() { return qv::bench::RunInScratchFolder(Run); }
