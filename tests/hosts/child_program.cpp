#include "tests/hosts/child_program.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace qv::testing {

ChildProgram::ChildProgram(const std::vector<std::string>& arguments) {
  int in[2], out[2], err[2];
  if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0 || pipe2(err, O_CLOEXEC) != 0)
    throw std::runtime_error("no pipes");
  std::vector<char*> words{const_cast<char*>(QVADMIN_PATH)};
  for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  id_ = fork();
  if (id_ == 0) {
    dup2(in[0], STDIN_FILENO);
    dup2(out[1], STDOUT_FILENO);
    dup2(err[1], STDERR_FILENO);
    execv(words[0], words.data());
    _exit(127);
  }
  close(in[0]);
  close(out[1]);
  close(err[1]);
  input_ = in[1];
  output_ = fdopen(out[0], "r");
  errors_ = fdopen(err[0], "r");
}

ChildProgram::~ChildProgram() {
  CloseInput();
  CloseOutput();
  std::fclose(errors_);
  if (id_ < 0) return;
  kill(id_, SIGKILL);
  waitpid(id_, nullptr, 0);
}

void ChildProgram::Write(const std::string& text) {
  std::size_t done = 0;
  while (done < text.size()) {
    const auto count = write(input_, text.data() + done, text.size() - done);
    if (count <= 0) throw std::runtime_error("the program takes no input");
    done += static_cast<std::size_t>(count);
  }
}

void ChildProgram::CloseInput() {
  if (input_ >= 0) close(input_);
  input_ = -1;
}

void ChildProgram::CloseOutput() {
  if (output_) std::fclose(output_);
  output_ = nullptr;
}

std::string ChildProgram::Line() {
  std::string line;
  for (int c = std::getc(output_); c != EOF && c != '\n'; c = std::getc(output_)) line += static_cast<char>(c);
  return line;
}

std::string ChildProgram::Errors() {
  std::string text;
  for (int c = std::getc(errors_); c != EOF; c = std::getc(errors_)) text += static_cast<char>(c);
  return text;
}

int ChildProgram::Wait() {
  int status = -1;
  waitpid(id_, &status, 0);
  id_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

DemoServer::DemoServer() {
  std::string name = (std::filesystem::temp_directory_path() / "qvadmin-test-XXXXXX").string();
  if (!mkdtemp(name.data())) throw std::runtime_error("no folder");
  folder_ = name;
  ChildProgram init({"init", "--demo", "--data", data()});
  if (init.Wait() != 0) throw std::runtime_error("no demonstration server");
}

DemoServer::~DemoServer() { std::filesystem::remove_all(folder_); }

}  // namespace qv::testing
