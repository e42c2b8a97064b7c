#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "console/filtering.h"
#include "hosts/console/carrier.h"
#include "hosts/console/event.h"
#include "hosts/console/form_events.h"
#include "hosts/console/result_pane.h"
#include "hosts/console/scope_tree.h"
#include "hosts/console/sheet.h"
#include "hosts/console/state_writer.h"
#include "platform/console.h"
#include "platform/toolkit.h"
#include "services/run.h"
#include "store/servers.h"

namespace qv {

// One run of the stand-in console: takes events from its carrier, raises the extension's events, and answers each with
// the whole visible state as soon as the logic waits for the next. A modal dialog or a message box inside a handler
// takes the next events itself.
class ConsoleSession : private Toolkit, private Console {
 public:
  ConsoleSession(Servers& servers, Carrier& carrier);
  ~ConsoleSession() override;

  // Returns when the person has gone away.
  void Work();

 private:
  // What menus and verbs act on: the selected node or the selected rows of the pane.
  enum class Target { Node, Rows };

  // Toolkit.
  MessageAnswer ShowMessage(const std::string& text, const std::string& title, MessageIcon icon,
                            MessageButtons buttons) override;
  void ShowModal(Form& form) override;
  bool TabKeyDown() override { return tab_; }
  void StartProgram(const std::string& command_line) override;
  void OpenAddress(const std::string& address) override;
  void ShowHelp(const std::string& topic) override;

  // Console.
  MessageAnswer ConsoleMsgBox(const std::string& text, const std::string& title, MessageIcon icon,
                              MessageButtons buttons) override;
  void AddPreDefined(const std::string& name, const std::string& node_type, ScopeItem& parent) override;
  ScopePaneItem* CurrentScopePaneItem() override { return pane_.get(); }
  std::string FormatData(const std::string& bytes, long start, long format_type) override;

  // Events: waiting for them, and what each is going to do. The readers throw EventError, having changed nothing.
  void Pump(const std::function<bool()>& done);
  void Take(const std::string& message);
  Action Read(const std::string& what, const Event& event);
  Action ReadConsoleEvent(const std::string& what, const Event& event);
  Action ReadSheetEvent(const std::string& what, const Event& event);
  Action ReadAnswer(const Event& event);
  Action ReadMenu(const Event& event);
  Action ReadChoice(const Event& event);
  Action ReadVerb(const Event& event);
  void Perform(const Action& action);
  void SendState();
  void SendError(const std::string& text);

  // The tree and the result pane.
  TreeNode& WantedNode(const Event& event);
  void WantRows(const std::vector<std::string>& keys) const;
  void Expand(TreeNode& node);
  void Collapse(TreeNode& node);
  void SelectNode(TreeNode& node);
  void ReloadPostoffices(TreeNode& branch);
  void BuildPane();
  void FillOwnPane(ResultView& view);
  // The console's sort callback.
  ResultPane::Compare Comparison();
  void OpenRow(const std::string& key);
  Selection SelectionOf(Target target);
  View PresentView() { return View{pane_.get()}; }
  VerbStates VerbsOf(Target target);
  void PerformVerb(Verb verb, Target target);
  bool OnExtension() const { return pane_ && pane_->node().kind == TreeNode::Kind::Extension; }

  // Property sheets.
  void OpenProperties(Target target);
  bool ApplyPages();
  void CancelSheet();
  void CloseSheet();

  Servers& servers_;
  Carrier& carrier_;
  std::unique_ptr<Components> components_;
  std::unique_ptr<Registry> registry_;
  std::unique_ptr<Files> files_;
  std::unique_ptr<GuidSource> guids_;
  std::unique_ptr<ScriptHost> scripts_;
  ScopeTree tree_;
  std::unique_ptr<ResultPane> pane_, pane_before_;
  Target target_ = Target::Node;
  VerbStates verbs_;
  std::optional<OpenMenu> menu_;
  std::unique_ptr<Sheet> sheet_;
  std::vector<Form*> dialogs_;
  const MessageBoxState* message_ = nullptr;
  std::optional<MessageAnswer> answer_;
  std::vector<Started> started_;
  bool tab_ = false;
  int pumps_ = 0;  // waits for events, one inside the other

  bool answer_owed_ = true;  // the first state goes out before any event
  boost::json::value answer_id_;
  bool answer_has_id_ = false;
  std::size_t answer_size_ = 4096;  // what the next answer is likely to take

  std::unique_ptr<Run> run_;
  std::unique_ptr<Filtering> filtering_;
};

}  // namespace qv
