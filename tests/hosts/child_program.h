#pragma once

#include <sys/types.h>

#include <cstdio>
#include <string>
#include <vector>

namespace qv::testing {

// The program, running beside the test with its streams in the test's hands.
class ChildProgram {
 public:
  explicit ChildProgram(const std::vector<std::string>& arguments);
  ~ChildProgram();
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;

  void Write(const std::string& text);
  void CloseInput();
  void CloseOutput();
  // The next line of its output without the line feed; empty at the end.
  std::string Line();
  // What is left of its standard error.
  std::string Errors();
  // The exit status, or minus the signal that ended it.
  int Wait();
  pid_t id() const { return id_; }

 private:
  pid_t id_ = -1;
  int input_ = -1;
  std::FILE* output_ = nullptr;
  std::FILE* errors_ = nullptr;
};

// A data directory with the demonstration data, for the time of a test.
class DemoServer {
 public:
  DemoServer();
  ~DemoServer();
  DemoServer(const DemoServer&) = delete;
  DemoServer& operator=(const DemoServer&) = delete;

  std::string data() const { return folder_ + "/data"; }

 private:
  std::string folder_;
};

}  // namespace qv::testing
