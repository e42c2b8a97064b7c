#include "tests/support/memory_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace qv::test {

std::ostream& operator<<(std::ostream& out, const ShownMessage& message) {
  return out << '"' << message.text << "\", \"" << message.title << "\", icon " << static_cast<int>(message.icon);
}

MessageAnswer TestDesktop::ShowMessage(const std::string& text, const std::string& title, MessageIcon icon,
                                       MessageButtons buttons) {
  messages.push_back({text, title, icon, buttons});
  if (answers.empty()) return buttons == MessageButtons::YesNo ? MessageAnswer::No : MessageAnswer::Ok;
  const MessageAnswer answer = answers.front();
  answers.pop_front();
  return answer;
}

void TestDesktop::ShowModal(Form& form) {
  if (visits_.empty()) {
    ADD_FAILURE() << "unexpected dialog " << form.name();
    form.Unload();
    return;
  }
  const auto visit = visits_.front();
  visits_.pop_front();
  visit(form);
  if (form.Loaded()) {
    ADD_FAILURE() << form.name() << " is still open after the visit";
    form.Unload();
  }
}

Control& Person::Usable(const std::string& name) {
  Control* control = form_.Find(name);
  if (!control) throw std::logic_error("no control " + name + " in " + form_.name());
  if (!control->Showing()) throw std::logic_error(name + " is not visible");
  if (!control->Usable()) throw std::logic_error(name + " is disabled");
  return *control;
}

void Person::Click(const std::string& control) {
  Control& found = Usable(control);
  if (auto* button = dynamic_cast<Button*>(&found)) return button->Press();
  if (auto* check = dynamic_cast<CheckBox*>(&found)) return check->Press();
  if (auto* option = dynamic_cast<OptionButton*>(&found)) return option->Press();
  throw std::logic_error(control + " can't be clicked");
}

void Person::Set(const std::string& control, const std::string& text) {
  dynamic_cast<TextBox&>(Usable(control)).Paste(text);
}

void Person::Type(const std::string& control, const std::string& keys) {
  dynamic_cast<TextBox&>(Usable(control)).Type(keys);
}

void Person::Pick(const std::string& control, long index) {
  Control& found = Usable(control);
  if (auto* rows = dynamic_cast<RowList*>(&found)) return rows->Press(index);
  dynamic_cast<ListControl&>(found).Press(index);
}

void Person::Open(const std::string& control, long index) {
  Control& found = Usable(control);
  if (auto* rows = dynamic_cast<RowList*>(&found)) return rows->PressTwice(index);
  dynamic_cast<ListControl&>(found).PressTwice(index);
}

void Person::Tick(const std::string& control, long row, bool checked) {
  dynamic_cast<RowList&>(Usable(control)).Check(row, checked);
}

void Person::Tab(TestDesktop& desktop, const std::string& control) {
  Control& found = Usable(control);
  desktop.tab = true;
  form_.SetFocus(found);
  desktop.tab = false;
}

namespace {

std::string RegistryName(const std::string& key, const std::string& value_name) {
  return LowerCase(key + "|" + value_name);
}

constexpr const char* kReload = "software\\quillvane\\quillvane\\agents\\mta\\filters\\mtafilter|reload";

}  // namespace

void MemoryRegistry::SetWord(const std::string& key, const std::string& value_name, std::uint32_t word) {
  values[RegistryName(key, value_name)] = {RegistryKind::Word, word, ""};
}

void MemoryRegistry::SetText(const std::string& key, const std::string& value_name, const std::string& text) {
  values[RegistryName(key, value_name)] = {RegistryKind::String, 0, text};
}

std::optional<RegistryValue> MemoryRegistry::Read(const std::string& key, const std::string& value_name) {
  if (fail_reads) throw RuntimeError("The registry can't be read.");
  const auto found = values.find(RegistryName(key, value_name));
  if (found == values.end()) return std::nullopt;
  return found->second;
}

void MemoryRegistry::Write(const std::string& key, const std::string& value_name, const RegistryValue& value) {
  if (fail_writes) throw RuntimeError("The registry can't be written.");
  const std::string data = value.kind == RegistryKind::Word ? std::to_string(value.word) : value.text;
  writes.push_back(key + "|" + value_name + "=" + data);
  values[RegistryName(key, value_name)] = value;
}

int MemoryRegistry::TakeReloads() {
  const auto is_reload = [](const std::string& write) { return LowerCase(write) == std::string(kReload) + "=1"; };
  const auto count = std::count_if(writes.begin(), writes.end(), is_reload);
  writes.erase(std::remove_if(writes.begin(), writes.end(), is_reload), writes.end());
  return static_cast<int>(count);
}

void MemoryFiles::Put(const std::string& path, const std::string& text) {
  files_[LowerCase(path)] = {path, text};
  MakeFolder(path.substr(0, path.rfind('\\')));
}

void MemoryFiles::MakeFolder(const std::string& path) {
  for (std::size_t at = path.find('\\'); at != std::string::npos; at = path.find('\\', at + 1)) {
    folders_.emplace(LowerCase(path.substr(0, at)), path.substr(0, at));
  }
  folders_.emplace(LowerCase(path), path);
}

std::optional<std::string> MemoryFiles::Get(const std::string& path) const {
  const auto found = files_.find(LowerCase(path));
  if (found == files_.end()) return std::nullopt;
  return found->second.text;
}

void MemoryFiles::MayFail(const std::string& operation) const {
  if (fail == operation) throw RuntimeError(70, "Permission denied");
}

bool MemoryFiles::FileExists(const std::string& path) { return files_.count(LowerCase(path)) != 0; }
bool MemoryFiles::FolderExists(const std::string& path) { return folders_.count(LowerCase(path)) != 0; }

std::vector<std::string> MemoryFiles::FileNames(const std::string& folder) {
  MayFail("FileNames");
  if (!FolderExists(folder)) throw RuntimeError(76, "Path not found");
  std::vector<std::string> names;
  const std::string prefix = LowerCase(folder) + "\\";
  for (const auto& [key, entry] : files_) {
    if (StartsWith(key, prefix) && key.find('\\', prefix.size()) == std::string::npos) {
      names.push_back(entry.path.substr(prefix.size()));
    }
  }
  return names;
}

std::string MemoryFiles::ReadAll(const std::string& path) {
  MayFail("ReadAll");
  const auto found = files_.find(LowerCase(path));
  if (found == files_.end()) throw RuntimeError(53, "File not found");
  if (found->second.text.empty()) throw RuntimeError(62, "Input past end of file");
  return found->second.text;
}

void MemoryFiles::Write(const std::string& path, const std::string& text) {
  MayFail("Write");
  if (!FolderExists(path.substr(0, path.rfind('\\')))) throw RuntimeError(76, "Path not found");
  writes.push_back(path);
  const auto found = files_.find(LowerCase(path));
  if (found == files_.end()) {
    files_[LowerCase(path)] = {path, text};
  } else {
    found->second.text = text;
  }
}

void MemoryFiles::Delete(const std::string& path) {
  MayFail("Delete");
  if (files_.erase(LowerCase(path)) == 0) throw RuntimeError(53, "File not found");
}

void MemoryFiles::Rename(const std::string& from, const std::string& to) {
  MayFail("Rename");
  const auto found = files_.find(LowerCase(from));
  if (found == files_.end()) throw RuntimeError(53, "File not found");
  if (FileExists(to)) throw RuntimeError(58, "File already exists");
  const std::string text = found->second.text;
  files_.erase(found);
  files_[LowerCase(to)] = {to, text};
}

bool CountedGuids::NewGuid(Guid& guid) {
  if (refuse) return false;
  guid = Guid{};
  guid.Data1 = ++last;
  return true;
}

}  // namespace qv::test
