#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/forms.h"
#include "platform/guid.h"
#include "platform/registry.h"
#include "platform/script_host.h"
#include "platform/toolkit.h"

namespace qv::test {

struct ShownMessage {
  std::string text, title;
  MessageIcon icon = MessageIcon::None;
  MessageButtons buttons = MessageButtons::Ok;
  bool operator==(const ShownMessage&) const = default;
};
std::ostream& operator<<(std::ostream& out, const ShownMessage& message);

// A desktop whose person is a test: message boxes are noted and answered from a queue ("OK", or No where nothing is
// queued), and a modal form is handed to the next queued visit. Fails the test when a form comes up unexpectedly or
// stays loaded after its visit.
class TestDesktop : public Toolkit {
 public:
  std::vector<ShownMessage> messages;
  std::deque<MessageAnswer> answers;
  std::vector<std::string> programs, addresses, topics;
  bool tab = false;

  // Queues what the person does with the next modal form.
  void Visit(std::function<void(Form& form)> visit) { visits_.push_back(std::move(visit)); }
  bool AllVisited() const { return visits_.empty(); }

  // The messages since the last call.
  std::vector<ShownMessage> TakeMessages() { return std::exchange(messages, {}); }

  MessageAnswer ShowMessage(const std::string& text, const std::string& title, MessageIcon icon,
                            MessageButtons buttons) override;
  void ShowModal(Form& form) override;
  bool TabKeyDown() override { return tab; }
  void StartProgram(const std::string& command_line) override { programs.push_back(command_line); }
  void OpenAddress(const std::string& address) override { addresses.push_back(address); }
  void ShowHelp(const std::string& topic) override { topics.push_back(topic); }

 private:
  std::deque<std::function<void(Form&)>> visits_;
};

// What a person does to a form's controls, by name. A control that is missing, hidden or disabled fails the test.
class Person {
 public:
  explicit Person(Form& form) : form_(form) {}
  void Click(const std::string& control);
  void Set(const std::string& control, const std::string& text);  // pastes over everything
  void Type(const std::string& control, const std::string& keys);
  void Pick(const std::string& control, long index);              // clicks a row; -1 is the empty space
  void Open(const std::string& control, long index);              // double clicks a row
  void Tick(const std::string& control, long row, bool checked);  // a row's check box
  void Tab(TestDesktop& desktop, const std::string& control);     // brings the focus by the Tab key
  void Close() { form_.Unload(); }                                // the close box

 private:
  Control& Usable(const std::string& name);
  Form& form_;
};

class MemoryRegistry : public Registry {
 public:
  // Key and value name are joined by "|" and in lower case.
  std::map<std::string, RegistryValue> values;
  std::vector<std::string> writes;  // "key|value name=data" as written, in order
  bool fail_reads = false, fail_writes = false;

  void SetWord(const std::string& key, const std::string& value_name, std::uint32_t word);
  void SetText(const std::string& key, const std::string& value_name, const std::string& text);
  std::optional<RegistryValue> Read(const std::string& key, const std::string& value_name) override;
  void Write(const std::string& key, const std::string& value_name, const RegistryValue& value) override;

  // How often the reload signal has gone out since the last call.
  int TakeReloads();
};

// Files by their full paths, found without regard to case. A folder is there when it was made or holds a file.
class MemoryFiles : public Files {
 public:
  void Put(const std::string& path, const std::string& text);
  void MakeFolder(const std::string& path);
  // The file's text, or nothing.
  std::optional<std::string> Get(const std::string& path) const;
  std::vector<std::string> writes;  // paths in the order of writing
  std::string fail;                 // the operation that raises: "Write", "Rename", "Delete", "ReadAll", "FileNames"

  bool FileExists(const std::string& path) override;
  bool FolderExists(const std::string& path) override;
  std::vector<std::string> FileNames(const std::string& folder) override;
  std::string ReadAll(const std::string& path) override;
  void Write(const std::string& path, const std::string& text) override;
  void Delete(const std::string& path) override;
  void Rename(const std::string& from, const std::string& to) override;

 private:
  void MayFail(const std::string& operation) const;
  struct Entry {
    std::string path, text;
  };
  std::map<std::string, Entry> files_;  // by the path in lower case
  std::map<std::string, std::string> folders_;
};

// GUIDs 1, 2, 3 ... in Data1.
class CountedGuids : public GuidSource {
 public:
  bool refuse = false;
  std::uint32_t last = 0;
  bool NewGuid(Guid& guid) override;
};

class TestScripts : public ScriptHost {
 public:
  std::vector<std::string> codes;
  std::optional<ScriptFault> fault;
  std::optional<ScriptFault> AddCode(const std::string& code) override {
    codes.push_back(code);
    return fault;
  }
};

}  // namespace qv::test
