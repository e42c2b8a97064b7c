#pragma once

#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "console/filtering.h"
#include "platform/console.h"
#include "tests/support/test_run.h"

namespace qv::test {

// A pane item that counts how often its view was built anew.
class FakePaneItem : public ScopePaneItem {
 public:
  explicit FakePaneItem(const std::string& name);

  std::vector<std::string> redisplays;  // "display string|view type"
  std::string fail;                     // what building the view raises
  qv::ResultView view;

  void DisplayNewResultView(const std::string& display_string, int result_view_type) override;
};

// A console whose user is a test: boxes are noted and answered from a queue, "OK" or No where nothing is queued.
class FakeConsole : public Console {
 public:
  std::vector<ShownMessage> messages;
  std::deque<MessageAnswer> answers;
  std::vector<std::string> nodes;    // "name|type|parent's GUID"
  std::vector<std::string> formats;  // "start|format type" of every decoding
  FakePaneItem* current = nullptr;

  MessageAnswer ConsoleMsgBox(const std::string& text, const std::string& title, MessageIcon icon,
                              MessageButtons buttons) override;
  void AddPreDefined(const std::string& name, const std::string& node_type, ScopeItem& parent) override;
  ScopePaneItem* CurrentScopePaneItem() override { return current; }
  std::string FormatData(const std::string& bytes, long start, long format_type) override;

  std::vector<ShownMessage> TakeMessages() { return std::exchange(messages, {}); }
};

class FakeData : public DataObject {
 public:
  std::map<std::string, std::string> formats;
  bool broken = false;

  bool GetFormat(const std::string& format) const override { return formats.count(format) != 0; }
  std::string GetData(const std::string& format) const override;
};

class FakeSheet : public PropertySheet {
 public:
  std::vector<std::string> pages;  // "class|caption|help" or "|no help"
  std::vector<Dictionary> data;
  bool broken = false;

  void AddPage(const std::string& class_name, const std::string& caption, bool help,
               const Dictionary& initial_data) override;
};

// Notes what a menu shows: "caption", or "(caption)" for a grayed item.
class FakeMenu : public ContextMenu {
 public:
  std::vector<std::string> items;
  std::vector<MMCMenu> groups;
  bool broken = false;

  void AddMenu(const MMCMenu& group) override;
};

class FakeVerbs : public ConsoleVerbs {
 public:
  std::vector<Verb> enabled;
  bool broken = false;

  void Enable(Verb verb, bool on) override;
};

// A run with a console in front of it, on the filters node with its list.
class ConsoleRun : public TestRun {
 public:
  explicit ConsoleRun(const std::string& node = "nodFiltering");

  FakeConsole console;
  FakePaneItem pane;
  ScopeItem node;
  qv::View view;
  Filtering filtering{run, console};

  // A new system filter row of the server.
  void Add(const std::string& id, const std::string& description, int status = 1, const std::string& host = "");
  // Builds the list again and selects rows of it by their positions.
  Selection Rows(const std::vector<std::size_t>& positions);
  Selection Node();
  // Each row as "text|sub-item 1|sub-item 2".
  std::vector<std::string> Listed();
  // Chooses an item of the menu that a selection opens.
  void Choose(const Selection& selection, const std::string& name);
};

}  // namespace qv::test
