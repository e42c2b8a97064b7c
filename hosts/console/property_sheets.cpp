// The console's property sheets: the pages that the extension adds to one, and the sheet's own buttons.

#include "console/snap_in_control.h"
#include "hosts/console/console_session.h"
#include "hosts/console/node_data.h"

namespace qv {

namespace {

// Takes the pages that the extension adds.
class PageCollector : public PropertySheet {
 public:
  PageCollector(Run& run, Sheet& sheet) : run_(run), sheet_(sheet) {}
  void AddPage(const std::string& class_name, const std::string& caption, bool help,
               const Dictionary& initial_data) override {
    pages_.push_back({class_name, caption, help, CreatePage(run_, class_name)});
    data_.push_back(initial_data);
  }
  // Starts the pages, once all of them are there.
  void Start() {
    for (std::size_t n = 0; n < pages_.size(); ++n) {
      pages_[n].page->Load();
      pages_[n].page->IMMCPropertyPage_Initialize(data_[n]);
      sheet_.Add(std::move(pages_[n]));
    }
  }

 private:
  Run& run_;
  Sheet& sheet_;
  std::vector<Sheet::Page> pages_;
  std::vector<Dictionary> data_;
};

}  // namespace

void ConsoleSession::OpenProperties(Target target) {
  const TreeNode& node = pane_->node();
  const std::string subject = target == Target::Rows ? pane_->SelectedText() : node.caption();
  auto sheet = std::make_unique<Sheet>(subject + " Properties");
  PageCollector collector(*run_, *sheet);
  if (OnExtension()) {
    const Selection selection = SelectionOf(target);
    if (!filtering_->Views_QueryPagesFor(selection)) return;
    filtering_->Views_CreatePropertyPages(selection, collector);
  } else if (target == Target::Rows) {
    filtering_->ExtensionSnapIn_CreatePropertyPages(
        NodeData("POSITION_DETAIL", node.postoffice + "\t" + subject + "\t" + node.server), collector);
  } else {
    filtering_->ExtensionSnapIn_CreatePropertyPages(NodeData("POSTOFFICE_NAME", node.postoffice), collector);
  }
  collector.Start();
  if (sheet->pages().empty()) return;
  sheet_ = std::move(sheet);
}

Action ConsoleSession::ReadSheetEvent(const std::string& what, const Event& event) {
  if (!sheet_) throw EventError("No property sheet is open.");
  if (!dialogs_.empty()) throw EventError("A dialog is open.");
  if (what == "page") {
    const long index = event.Number("index");
    if (index < 0 || index >= static_cast<long>(sheet_->pages().size())) {
      throw EventError("There is no page " + std::to_string(index) + ".");
    }
    return [this, index] { sheet_->Activate(static_cast<std::size_t>(index)); };
  }
  const std::string button = event.Text("button");
  if (button == "ok") {
    return [this] {
      if (ApplyPages()) CloseSheet();
    };
  }
  if (button == "cancel") return [this] { CancelSheet(); };
  if (button == "apply") {
    if (!sheet_->Changed()) throw EventError("No page has changes.");
    return [this] { ApplyPages(); };
  }
  if (button == "help") {
    if (!sheet_->pages()[sheet_->active()].help) throw EventError("The page has no help.");
    return [this] { sheet_->Front().IMMCPropertyPage_Help(); };
  }
  throw EventError("The sheet has no button \"" + button + "\".");
}

// Applies the pages that have changes. A page that refuses comes to the front and stays changed, and the pages behind
// it wait.
bool ConsoleSession::ApplyPages() {
  for (std::size_t n = 0; n < sheet_->pages().size(); ++n) {
    PropertyPage& page = *sheet_->pages()[n].page;
    if (!page.Changed()) continue;
    if (!page.ApplyChanges()) {
      page.SetChanged(true);
      sheet_->Activate(n);
      return false;
    }
    page.SetChanged(false);
  }
  return true;
}

void ConsoleSession::CancelSheet() {
  for (const Sheet::Page& page : sheet_->pages()) page.page->IMMCPropertyPage_Cancel();
  CloseSheet();
}

void ConsoleSession::CloseSheet() {
  for (const Sheet::Page& page : sheet_->pages()) page.page->IMMCPropertyPage_Close();
  sheet_.reset();
}

}  // namespace qv
