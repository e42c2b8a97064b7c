#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "store/database.h"
#include "store/servers.h"

namespace qv {

// A folder that is gone at the end of the test.
class TemporaryDirectory {
 public:
  TemporaryDirectory() {
    std::string name = (std::filesystem::temp_directory_path() / "qv-test-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary directory");
    path_ = name;
  }
  ~TemporaryDirectory() {
    std::error_code none;
    std::filesystem::remove_all(path_, none);
  }
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// An empty server and a further one, which are LOCALHOST and "Remote".
class StoreTest : public testing::Test {
 protected:
  static const std::filesystem::path& Made(const std::filesystem::path& directory) {
    Database::Create(DatabaseFile(directory));
    return directory;
  }

  StoreTest() { servers.Add("Remote", Made(remote_directory.path())); }

  // A record object, bound to a host.
  template <class Made>
  std::unique_ptr<Made> Bound(std::unique_ptr<Made> record, const std::string& host = "") {
    record->Host = host;
    record->SetHost();
    return record;
  }

  TemporaryDirectory directory, remote_directory;
  Servers servers{Made(directory.path())};
  std::unique_ptr<Components> components = servers.MakeComponents();
};

}  // namespace qv
