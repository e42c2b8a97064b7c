#include "console/filtering.h"

#include "console/filtering_trap.h"
#include "console/node_types.h"
#include "platform/text.h"
#include "services/identifiers.h"

namespace qv {

namespace {

// The type of a data-object format's text, as the console's runtime counts them.
constexpr long kTextFormat = 4;

std::string ReadFormat(Console& console, const DataObject& data_object, const std::string& format) {
  return console.FormatData(data_object.GetData(format), 1, kTextFormat);
}

MMCMenu& Child(MMCMenu& group, const char* name) {
  for (MMCMenu& child : group.Children) {
    if (child.Name == name) return child;
  }
  throw RuntimeError(std::string("There is no menu item ") + name);
}

void Allow(MMCMenu& item, bool allowed) {
  item.Enabled = allowed;
  item.Grayed = !allowed;
}

bool IsSpamNode(const Selection& selection) {
  return selection.SelectionType == Selection::kScopeItem && !selection.ScopeItems.empty() &&
         selection.ScopeItems.front()->Name == "nodSpamProtection";
}

// The items of the menu that concern one selected filter.
constexpr const char* kRowItems[] = {"mnuFilterEnable", "mnuFilterDisable", "mnuManage", "mnuRename"};

}  // namespace

Filtering::Filtering(Run& run, Console& console) : run_(run), console_(console) {
  const auto item = [](const char* name, const char* caption) {
    MMCMenu menu;
    menu.Name = name;
    menu.Caption = caption;
    return menu;
  };
  mnuFilterNode = item("mnuFilterNode", "");
  mnuFilterNode.Children = {item("mnuFilterAdd", "New Filter...")};
  mnuFilter = item("mnuFilter", "");
  mnuFilter.Children = {item("mnuFilterEnable", "Enable"), item("mnuFilterDisable", "Disable"),
                        item("mnuManage", "Manage..."), item("mnuRename", "Rename..."),
                        item("mnuOrderFilters", "Order Filters...")};
  mnuSysFilter = item("mnuSysFilter", "");
  mnuSysFilter.Children = {item("mnuSetToDefault", "Reset all values to default")};

  const auto on = [this](MMCMenu& group, const char* name, void (Filtering::*handler)(long, const Selection&)) {
    Child(group, name).Click = [this, handler](long index, const Selection& selection) {
      (this->*handler)(index, selection);
    };
  };
  on(mnuFilterNode, "mnuFilterAdd", &Filtering::mnuFilterAdd_Click);
  on(mnuFilter, "mnuFilterEnable", &Filtering::mnuFilterEnable_Click);
  on(mnuFilter, "mnuFilterDisable", &Filtering::mnuFilterDisable_Click);
  on(mnuFilter, "mnuManage", &Filtering::mnuManage_Click);
  on(mnuFilter, "mnuRename", &Filtering::mnuRename_Click);
  on(mnuFilter, "mnuOrderFilters", &Filtering::mnuOrderFilters_Click);
  on(mnuSysFilter, "mnuSetToDefault", &Filtering::mnuSetToDefault_Click);
}

void Filtering::ExtensionSnapIn_Expand(const DataObject& data_object, ScopeItem& parent) {
  if (data_object.GetFormat("SERVER_NAME")) run_.ServerHost = ReadFormat(console_, data_object, "SERVER_NAME");
  if (parent.Node.NodeTypeGUID != kMachineGuid) return;
  for (const char* type : {"nodFiltering", "nodSpamProtection"}) console_.AddPreDefined(type, type, parent);
}

void Filtering::ExtensionSnapIn_CreatePropertyPages(const DataObject& data_object, PropertySheet& sheet) {
  try {
    Dictionary data;
    if (data_object.GetFormat("POSITION_DETAIL")) {
      const std::string position = ReadFormat(console_, data_object, "POSITION_DETAIL");
      data.Add("postoffice", GetToken(position, "\t", 1));
      data.Add("mailbox", GetToken(position, "\t", 2));
      data.Add("host", GetToken(position, "\t", 3));
      sheet.AddPage("ppgMailboxFilters", "Filters", true, data);
    }
    if (data_object.GetFormat("POSTOFFICE_NAME")) {
      // No host here, so this page works on the local machine.
      data.Add("postoffice", GetToken(ReadFormat(console_, data_object, "POSTOFFICE_NAME"), "\t", 1));
      sheet.AddPage("ppgPostofficeFilters", "Filters", true, data);
    }
  } catch (const RuntimeError& error) {
    run_.toolkit.ShowMessage("Error adding the filtering property pages:" + error.description(), "Error",
                             MessageIcon::Critical);
  }
}

// Below "nodFiltering" and "nodPOFilters" there is nothing to add: a filter is a row, never a node.
void Filtering::ScopeItems_Expand(const ScopeItem& /*scope_item*/) {}

void Filtering::Views_AddNewMenuItems(const Selection& selection, ContextMenu& context_menu) {
  Trap("Views_AddNewMenuItems: ", [&] {
    if (selection.SelectionType == Selection::kScopeItem && !selection.ScopeItems.empty() &&
        selection.ScopeItems.front()->Tag == "filters") {
      context_menu.AddMenu(mnuFilterNode);
    }
  });
}

void Filtering::Views_AddTaskMenuItems(const Selection& /*selection*/, ContextMenu& /*context_menu*/) {}

void Filtering::Views_AddTopMenuItems(const View& view, const Selection& selection, ContextMenu& context_menu) {
  Trap("Views_AddTopMenuItems: ", [&] {
    if (selection.SelectionType != Selection::kListItems) return;
    const std::string& tag = view.SelectedPaneItem->ResultView->ListView.Tag;
    if (tag == "filter" && selection.ListItems.size() == 1) {
      for (const char* name : kRowItems) Child(mnuFilter, name).Visible = true;
      Allow(Child(mnuFilter, "mnuFilterEnable"), false);
      Allow(Child(mnuFilter, "mnuFilterDisable"), false);
      const std::string_view status = selection.ListItems.front()->SubItems.at(1).Text;
      Allow(Child(mnuFilter, status == "Enabled" ? "mnuFilterDisable" : "mnuFilterEnable"), true);
      context_menu.AddMenu(mnuFilter);
    } else if (tag == "SYSFILTERS") {
      context_menu.AddMenu(mnuSysFilter);
    }
  });
  IgnoreErrors([&] {
    if (selection.SelectionType != Selection::kScopeItem || selection.ScopeItems.empty()) return;
    if (LowerCase(selection.ScopeItems.front()->Node.DisplayName) != "filters") return;
    for (const char* name : kRowItems) Child(mnuFilter, name).Visible = false;
    context_menu.AddMenu(mnuFilter);
  });
}

bool Filtering::Views_QueryPagesFor(const Selection& selection) {
  bool has_pages = false;
  Trap("Views_QueryPagesFor: ", [&] { has_pages = IsSpamNode(selection); });
  return has_pages;
}

void Filtering::Views_CreatePropertyPages(const Selection& selection, PropertySheet& sheet) {
  Trap("Views_CreatePropertyPages: ", [&] {
    if (!IsSpamNode(selection)) return;
    Dictionary data;
    data.Add("mailbox", "");
    data.Add("postoffice", "");
    data.Add("host", run_.ServerHost);
    sheet.AddPage("ppgSpamProtection", "Spam Protection", true, data);
  });
}

void Filtering::Views_Select(const View& view, const Selection& selection, bool selected, ConsoleVerbs& verbs) {
  Trap("Error selecting item: ", [&] {
    const bool on_item = selection.SelectionType == Selection::kScopeItem;
    const bool on_rows = selection.SelectionType == Selection::kListItems;
    if ((on_item || on_rows) && selected && console_.CurrentScopePaneItem()) verbs.Enable(Verb::Refresh, true);
    if (on_rows && !selection.ListItems.empty() && StartsWith(view.SelectedPaneItem->Name, "nodFiltering")) {
      verbs.Enable(Verb::Delete, true);
    }
    // No node of the tree has this tag; "filters" is another word.
    if (on_item && !selection.ScopeItems.empty() && GetToken(selection.ScopeItems.front()->Tag, "\t", 1) == "filter") {
      verbs.Enable(Verb::Delete, true);
    }
    if (IsSpamNode(selection)) verbs.Enable(Verb::Properties, true);
  });
}

void Filtering::Views_Refresh(const View& /*view*/, const Selection& selection) {
  Trap("Error refreshing view: ", [&] {
    if ((selection.SelectionType == Selection::kScopeItem || selection.SelectionType == Selection::kListItems) &&
        console_.CurrentScopePaneItem()) {
      RedisplayResultView();
    }
  });
}

void Filtering::RedisplayResultView() {
  if (ScopePaneItem* item = console_.CurrentScopePaneItem()) {
    item->DisplayNewResultView(item->DisplayString, item->ResultViewType);
  }
}

}  // namespace qv
