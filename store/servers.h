#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/registry.h"
#include "services/components.h"

namespace qv {

class Database;

// The servers that a program administers: the local one and those named on the command line, each a data directory.
// One object serves all sessions of the program, from any thread.
class Servers {
 public:
  // Opens the local server. Raises RuntimeError that names the file when its database is missing, locked, damaged or
  // another program's.
  explicit Servers(const std::filesystem::path& local_directory);
  ~Servers();

  // Adds a server that the console administers as a remote one. Raises RuntimeError for a name that is empty, any case
  // of "LOCALHOST", or taken in any case.
  void Add(const std::string& name, const std::filesystem::path& directory);

  // "LOCALHOST" first, then the others in the order of adding.
  std::vector<std::string> Names() const;

  // The database of a host: the local one for an empty host or any case of "LOCALHOST". Raises RuntimeError for a
  // server that isn't known.
  Database& Of(const std::string& host);

  // What a run is given. The objects may be used by one thread; make one for each run.
  std::unique_ptr<Components> MakeComponents();
  std::unique_ptr<Registry> MakeRegistry();
  // The files below the local server's configuration directory.
  std::unique_ptr<Files> MakeFiles();

  // For the console's own tree: the postoffices of a host in the finders' order, and a postoffice's mailboxes in the
  // order of adding, each handed to `take`.
  std::vector<std::string> PostofficeNames(const std::string& host);
  void ForEachMailbox(const std::string& host, const std::string& postoffice,
                      const std::function<void(const std::string& name)>& take);

 private:
  struct Server;
  std::unique_ptr<Server> local_;
  std::vector<std::pair<std::string, std::unique_ptr<Server>>> others_;
};

}  // namespace qv
