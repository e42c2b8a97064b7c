#pragma once

#include <string>

#include "platform/console.h"
#include "services/run.h"

namespace qv {

// The extension's entry: the console's events, each told what was selected, and what they do to the tree, the menus,
// the property sheets and the lists. It keeps no data of its own beside the server of the run.
//
// Every event that traps errors shows them in a message box and returns; the others let RuntimeError through to the
// console's runtime.
class Filtering {
 public:
  Filtering(Run& run, Console& console);
  Filtering(const Filtering&) = delete;
  Filtering& operator=(const Filtering&) = delete;

  // Shell and node tree.
  void ExtensionSnapIn_Expand(const DataObject& data_object, ScopeItem& parent);
  void ExtensionSnapIn_CreatePropertyPages(const DataObject& data_object, PropertySheet& sheet);
  void ScopeItems_Expand(const ScopeItem& scope_item);
  void Views_AddNewMenuItems(const Selection& selection, ContextMenu& context_menu);
  void Views_AddTaskMenuItems(const Selection& selection, ContextMenu& context_menu);
  void Views_AddTopMenuItems(const View& view, const Selection& selection, ContextMenu& context_menu);
  bool Views_QueryPagesFor(const Selection& selection);
  void Views_CreatePropertyPages(const Selection& selection, PropertySheet& sheet);
  void Views_Select(const View& view, const Selection& selection, bool selected, ConsoleVerbs& verbs);
  void Views_Refresh(const View& view, const Selection& selection);

  // Lists.
  void ResultViews_Initialize(ResultView& view);
  // Compares two items of a view by a column, counted from 0. `result` stays as it came where the column has no kind.
  void ResultViews_CompareItems(const ResultView& view, const SortItem& first, const SortItem& second, int column,
                                int& result);
  void ResultViews_ListItemDblClick(ResultView& view, const ListItem& item);

  // Commands.
  void Views_Delete(const View& view, const Selection& selection);
  void mnuFilterEnable_Click(long index, const Selection& selection);
  void mnuFilterDisable_Click(long index, const Selection& selection);
  void mnuFilterAdd_Click(long index, const Selection& selection);
  void mnuRename_Click(long index, const Selection& selection);
  void mnuOrderFilters_Click(long index, const Selection& selection);
  void mnuManage_Click(long index, const Selection& selection);
  void mnuSetToDefault_Click(long index, const Selection& selection);

  // Kept for callers that drive the class by name; they do nothing.
  std::string EditRule() { return ""; }
  std::string EditTask() { return ""; }

 private:
  void RedisplayResultView();
  void LoadFilterItems(ResultView& view, const std::string& postoffice, const std::string& mailbox);
  void SetSelectedStatus(const Selection& selection, int status);
  template <class Step>
  void Trap(const char* text, Step&& step, const char* title = "");

  Run& run_;
  Console& console_;
  MMCMenu mnuFilterNode, mnuFilter, mnuSysFilter;
};

}  // namespace qv
