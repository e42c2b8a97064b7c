#include "hosts/console/console_session.h"

#include "desktop/kernel_guids.h"
#include "desktop/vbscript_host.h"
#include "hosts/console/session.h"
#include "platform/runtime_error.h"

namespace qv {

namespace json = boost::json;

namespace {

constexpr const char* kConsoleName = "Quillvane Filtering Administration";

}  // namespace

void RunSession(Servers& servers, Carrier& carrier) { ConsoleSession(servers, carrier).Work(); }

ConsoleSession::ConsoleSession(Servers& servers, Carrier& carrier)
    : servers_(servers),
      carrier_(carrier),
      components_(servers.MakeComponents()),
      registry_(servers.MakeRegistry()),
      files_(servers.MakeFiles()),
      guids_(std::make_unique<KernelGuids>()),
      scripts_(std::make_unique<VbscriptHost>(carrier.Interrupt())),
      tree_(servers.Names()) {
  Toolkit& toolkit = *this;
  Console& console = *this;
  run_ = std::make_unique<Run>(Platform{toolkit, *registry_, *files_, *guids_, *scripts_, *components_});
  filtering_ = std::make_unique<Filtering>(*run_, console);
}

ConsoleSession::~ConsoleSession() = default;

void ConsoleSession::Work() {
  try {
    Pump([] { return false; });
  } catch (const RunEnded&) {  // NOLINT(bugprone-empty-catch)
    // The person has gone away, wherever the run stood.
  }
}

void ConsoleSession::Pump(const std::function<bool()>& done) {
  struct Depth {
    int& count;
    explicit Depth(int& pumps) : count(pumps) { ++count; }
    ~Depth() { --count; }
  } depth(pumps_);
  while (!done()) {
    if (answer_owed_) SendState();
    const std::optional<std::string> message = carrier_.Receive();
    if (!message) throw RunEnded{};
    Take(*message);
  }
}

void ConsoleSession::Take(const std::string& message) {
  answer_owed_ = true;
  answer_has_id_ = false;
  json::error_code failure;
  const json::value value = json::parse(message, failure);
  if (failure || !value.is_object()) return SendError("The line is no JSON object.");
  const json::object& fields = value.get_object();
  if (const json::value* id = fields.if_contains("id")) {
    answer_id_ = *id;
    answer_has_id_ = true;
  }
  Action action;
  bool closes_menu = true;
  try {
    const Event event(fields);
    const std::string what = event.Text("do");
    closes_menu = what != "choose" && what != "verb" && what != "menu";
    action = Read(what, event);
  } catch (const EventError& error) {
    return SendError(error.what());
  }
  started_.clear();
  if (closes_menu) menu_.reset();
  if (pumps_ == 1) {
    // No handler is under way that could hold on to what the pane showed before.
    pane_before_.reset();
    if (pane_) pane_->DropFormerRows();
  }
  Perform(action);
}

// The event boundary: what no trap of the logic has held is shown as the console's runtime would show it.
void ConsoleSession::Perform(const Action& action) {
  std::string failure;
  try {
    action();
    return;
  } catch (const RuntimeError& error) {
    failure = error.description();
  } catch (const std::exception& error) {
    failure = std::string("Internal error: ") + error.what();
  }
  ConsoleMsgBox(failure, "", MessageIcon::Critical, MessageButtons::Ok);
}

Action ConsoleSession::Read(const std::string& what, const Event& event) {
  if (message_) {
    if (what != "answer") throw EventError("A message box is waiting for its answer.");
    return ReadAnswer(event);
  }
  if (what == "answer") throw EventError("No message box is shown.");
  if (what == "page" || what == "sheet") return ReadSheetEvent(what, event);
  if (what == "close") {
    if (!dialogs_.empty()) return [form = dialogs_.back()] { form->Unload(); };
    if (!sheet_) throw EventError("Nothing is open that could be closed.");
    return [this] { CancelSheet(); };
  }
  Form* form = !dialogs_.empty() ? dialogs_.back() : sheet_ ? &sheet_->Front() : nullptr;
  const bool to_row = what == "doubleClick" && event.Has("item");
  if (!form) return ReadConsoleEvent(what, event);
  if (!to_row) {
    if (Action action = ReadFormEvent(what, event, *form, tab_)) return action;
  }
  throw EventError("A dialog or a property sheet is open.");
}

Action ConsoleSession::ReadAnswer(const Event& event) {
  const std::string button = event.Text("button");
  const bool yes_no = message_->buttons == MessageButtons::YesNo;
  MessageAnswer answer = MessageAnswer::Ok;
  if (yes_no && button == "yes") {
    answer = MessageAnswer::Yes;
  } else if (yes_no && button == "no") {
    answer = MessageAnswer::No;
  } else if (yes_no || button != "ok") {
    throw EventError("The message box has no button \"" + button + "\".");
  }
  return [this, answer] { answer_ = answer; };
}

void ConsoleSession::SendState() {
  answer_owed_ = false;
  ConsoleState state;
  state.root = &tree_.root();
  state.selected = pane_ ? &pane_->node() : nullptr;
  state.pane = pane_.get();
  state.verbs = verbs_;
  state.menu = menu_ ? &*menu_ : nullptr;
  state.sheet = sheet_.get();
  for (const Form* form : dialogs_) {
    if (form->Loaded()) state.dialogs.push_back(form);
  }
  state.message = message_;
  state.started = &started_;
  JsonWriter answer(answer_size_);
  answer.Open('{');
  answer.Key("state");
  WriteState(state, answer);
  if (answer_has_id_) answer.Key("id").Raw(json::serialize(answer_id_));
  answer.Close('}');
  std::string text = answer.Take();
  answer_size_ = text.size() + text.size() / 8;
  carrier_.Send(std::move(text));
}

void ConsoleSession::SendError(const std::string& text) {
  answer_owed_ = false;
  json::object answer;
  answer["error"] = text;
  if (answer_has_id_) answer["id"] = answer_id_;
  carrier_.Send(json::serialize(answer));
}

MessageAnswer ConsoleSession::ShowMessage(const std::string& text, const std::string& title, MessageIcon icon,
                                          MessageButtons buttons) {
  const MessageBoxState box{text, title, icon, buttons};
  message_ = &box;
  answer_.reset();
  try {
    Pump([this] { return answer_.has_value(); });
  } catch (...) {
    message_ = nullptr;
    throw;
  }
  message_ = nullptr;
  return *answer_;
}

void ConsoleSession::ShowModal(Form& form) {
  dialogs_.push_back(&form);
  try {
    Pump([&form] { return !form.Loaded(); });
  } catch (...) {
    form.Unload();
    dialogs_.pop_back();
    throw;
  }
  dialogs_.pop_back();
}

void ConsoleSession::StartProgram(const std::string& command_line) { started_.push_back({"program", command_line}); }

void ConsoleSession::OpenAddress(const std::string& address) { started_.push_back({"url", address}); }

void ConsoleSession::ShowHelp(const std::string& topic) { started_.push_back({"help", topic}); }

MessageAnswer ConsoleSession::ConsoleMsgBox(const std::string& text, const std::string& title, MessageIcon icon,
                                            MessageButtons buttons) {
  return ShowMessage(text, title.empty() ? kConsoleName : title, icon, buttons);
}

void ConsoleSession::AddPreDefined(const std::string& name, const std::string& node_type, ScopeItem& parent) {
  tree_.AddExtension(name, node_type, tree_.Of(parent));
}

std::string ConsoleSession::FormatData(const std::string& bytes, long start, long /*format_type*/) {
  const auto skipped = static_cast<std::size_t>(start > 0 ? start - 1 : 0);
  return skipped < bytes.size() ? bytes.substr(skipped) : std::string();
}

}  // namespace qv
