#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/console.h"
#include "platform/runtime_error.h"
#include "tests/support/test_run.h"

namespace qv::test {

inline constexpr const char* kDefaultsPath = "C:\\Config\\SPAMVAL.DEF";
inline constexpr const char* kValuesPath = "C:\\Config\\SPAMVAL.TAB";
inline constexpr const char* kTemplatePath = "C:\\Config\\Filters\\templates\\{SPAM_FILTER}.QVS";
inline constexpr const char* kSwitchedOffPath = "C:\\Config\\Filters\\Criteria\\{SPAM_FILTER}.QV_";
inline constexpr const char* kActivePath = "C:\\Config\\Filters\\Criteria\\{SPAM_FILTER}.QVS";

// A server with three tests, a template and a place for the scripts.
class SpamFixture : public ::testing::Test, protected TestRun {
 protected:
  SpamFixture() {
    files.Put(kDefaultsPath,
              "[RBL]\tSender is on a block list\t50\t0\r\n"
              "[NOSUBJECT]\tNo subject\t10\t1\r\n"
              "[TRUSTED]\tSender is trusted\t0\t1000");
    files.Put(kTemplatePath, Golden("template.txt"));
    files.MakeFolder("C:\\Config\\Filters\\Criteria");
  }

  static std::string Golden(const std::string& name) {
    std::ifstream file(QV_SOURCE_DIR "/tests/spam/golden/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  std::string Values() const { return files.Get(kValuesPath).value_or("(missing)"); }
  std::string Active() const { return files.Get(kActivePath).value_or("(missing)"); }
  std::string SwitchedOff() const { return files.Get(kSwitchedOffPath).value_or("(missing)"); }

  void StoreOption(const std::string& value_name, const std::string& value, const std::string& host = "") {
    store.server(host).options.push_back({0, "GLOBAL", value_name, value});
  }
};

// A console that notes its message boxes and answers them all alike.
class MessageConsole : public Console {
 public:
  std::vector<ShownMessage> messages;
  MessageAnswer answer = MessageAnswer::Yes;

  MessageAnswer ConsoleMsgBox(const std::string& text, const std::string& title, MessageIcon icon,
                              MessageButtons buttons) override {
    messages.push_back({text, title, icon, buttons});
    return answer;
  }
  void AddPreDefined(const std::string& name, const std::string&, ScopeItem&) override {
    ADD_FAILURE() << "unexpected node " << name;
  }
  ScopePaneItem* CurrentScopePaneItem() override { return nullptr; }
  std::string FormatData(const std::string& bytes, long, long) override { return bytes; }
};

// What a step raises: its number and description, or "no error".
template <class Step>
std::string ErrorOf(Step&& step) {
  try {
    step();
    return "no error";
  } catch (const RuntimeError& error) {
    return std::to_string(error.number()) + " " + error.description();
  }
}

}  // namespace qv::test
