#pragma once

#include <map>
#include <string>
#include <vector>

#include "store/rows.h"

namespace qv {

// An invented server to try the program on.
struct DemoServer {
  DataSet data;                              // every section
  std::vector<std::string> folders;          // below the configuration directory, with slashes
  std::map<std::string, std::string> files;  // text by path, likewise
};

inline constexpr int kDemoServers = 2;

// The demonstration server of a number from 1.
DemoServer MakeDemoServer(int variant);

}  // namespace qv
