#pragma once

#include <gmock/gmock.h>

#include <fstream>

#include "tests/app/program.h"
#include "tests/store/store_fixture.h"

namespace qv {

namespace fs = std::filesystem;

// A place for data directories; what a command prints there has the place as DIR.
class AppTest : public testing::Test {
 protected:
  TemporaryDirectory directory;
  std::string data = (directory.path() / "data").string();
  fs::path config = fs::path(data) / "config";

  ProgramResult Run(const std::vector<std::string>& arguments, const std::string& input = "") const {
    ProgramResult result = RunProgram(arguments, input);
    for (std::string* text : {&result.out, &result.err}) {
      for (std::size_t at; (at = text->find(directory.path().string())) != std::string::npos;) {
        text->replace(at, directory.path().string().size(), "DIR");
      }
    }
    return result;
  }

  // Runs a command that must succeed without a word on standard error; what it prints.
  std::string Out(const std::vector<std::string>& arguments, const std::string& input = "") const {
    const ProgramResult result = Run(arguments, input);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    return result.out;
  }

  // Runs a command that must be refused and print nothing; why.
  std::string Refused(const std::vector<std::string>& arguments, const std::string& input = "") const {
    const ProgramResult result = Run(arguments, input);
    EXPECT_EQ(result.status, 1) << result.out;
    EXPECT_EQ(result.out, "");
    return result.err;
  }

  void Init() const { ASSERT_EQ(Out({"init", "--data", data}), "Made the server 'DIR/data'.\n"); }

  static std::vector<std::string> FilesBelow(const fs::path& folder) {
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      files.push_back(entry.path().lexically_relative(folder).string() + (entry.is_directory() ? "/" : ""));
    }
    return files;
  }
};

}  // namespace qv
