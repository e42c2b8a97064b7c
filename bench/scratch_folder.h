#pragma once

#include <stdlib.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <system_error>

namespace qv::bench {

// Runs a benchmark in an empty folder, which is gone again afterwards. Returns what the benchmark returns, or 2 when it
// could not be carried out, and says why on standard error.
template <class Benchmark>
int RunInScratchFolder(Benchmark&& benchmark) {
  std::string name = (std::filesystem::temp_directory_path() / "qv-bench-XXXXXX").string();
  if (!mkdtemp(name.data())) {
    std::perror("the folder could not be made");
    return 2;
  }
  const std::filesystem::path folder = name;
  int status = 2;
  try {
    status = benchmark(folder);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
  std::error_code none;
  std::filesystem::remove_all(folder, none);
  return status;
}

}  // namespace qv::bench
