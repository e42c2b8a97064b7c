#include "tests/app/program.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <stdexcept>

namespace qv {

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File NewFile(const std::string& text = "") {
  File file(std::tmpfile(), std::fclose);
  if (!file) throw std::runtime_error("no temporary file");
  std::fwrite(text.data(), 1, text.size(), file.get());
  std::rewind(file.get());
  return file;
}

std::string TextOf(std::FILE* file) {
  std::string text;
  std::rewind(file);
  for (int c; (c = std::fgetc(file)) != EOF;) text += static_cast<char>(c);
  return text;
}

}  // namespace

ProgramResult RunProgram(const std::vector<std::string>& arguments, const std::string& input) {
  const File in = NewFile(input), out = NewFile(), err = NewFile();
  std::vector<std::string> all = {QVADMIN_PATH};
  all.insert(all.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& argument : all) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  const pid_t program = ::fork();
  if (program < 0) throw std::runtime_error("no process");
  if (program == 0) {
    ::dup2(::fileno(in.get()), 0);
    ::dup2(::fileno(out.get()), 1);
    ::dup2(::fileno(err.get()), 2);
    ::execv(QVADMIN_PATH, pointers.data());
    ::_exit(127);
  }
  int status = 0;
  ::waitpid(program, &status, 0);
  ProgramResult result;
  if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
  result.out = TextOf(out.get());
  result.err = TextOf(err.get());
  return result;
}

}  // namespace qv
