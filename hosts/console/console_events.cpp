// The events to the console itself, what each is going to do, and the menus and verbs.

#include <algorithm>
#include <iterator>

#include "hosts/console/console_session.h"

namespace qv {

namespace {

// Collects what the extension adds to a context menu.
class MenuItems : public ContextMenu {
 public:
  explicit MenuItems(std::vector<MMCMenu>& items) : items_(items) {}
  void AddMenu(const MMCMenu& group) override {
    std::copy_if(group.Children.begin(), group.Children.end(), std::back_inserter(items_),
                 [](const MMCMenu& item) { return item.Visible; });
  }

 private:
  std::vector<MMCMenu>& items_;
};

class VerbSwitches : public ConsoleVerbs {
 public:
  void Enable(Verb verb, bool enabled) override {
    if (verb == Verb::Delete) states.delete_rows = enabled;
    if (verb == Verb::Properties) states.properties = enabled;
    if (verb == Verb::Refresh) states.refresh = enabled;
  }
  VerbStates states;
};

Verb VerbOf(const std::string& name) {
  if (name == "delete") return Verb::Delete;
  if (name == "properties") return Verb::Properties;
  if (name == "refresh") return Verb::Refresh;
  throw EventError("There is no verb \"" + name + "\".");
}

bool IsOn(const VerbStates& verbs, Verb verb) {
  return verb == Verb::Delete ? verbs.delete_rows : verb == Verb::Properties ? verbs.properties : verbs.refresh;
}

}  // namespace

Action ConsoleSession::ReadConsoleEvent(const std::string& what, const Event& event) {
  if (what == "expand") {
    TreeNode& node = WantedNode(event);
    return [this, &node] { Expand(node); };
  }
  if (what == "collapse") {
    TreeNode& node = WantedNode(event);
    return [this, &node] { Collapse(node); };
  }
  if (what == "select") {
    TreeNode& node = WantedNode(event);
    return [this, &node] { SelectNode(node); };
  }
  if (what == "menu") return ReadMenu(event);
  if (what == "choose") return ReadChoice(event);
  if (what == "verb") return ReadVerb(event);

  const bool of_pane =
      what == "selectItems" || what == "doubleClick" || what == "sort" || what == "scroll" || what == "filter";
  if (!of_pane) throw EventError("There is no event \"" + what + "\" that could be taken now.");
  if (!pane_) throw EventError("No result pane is shown.");
  if (what == "selectItems") {
    const std::vector<std::string> keys = event.Texts("keys");
    WantRows(keys);
    return [this, keys] {
      pane_->SelectRows(keys);
      target_ = Target::Rows;
      verbs_ = VerbsOf(target_);
    };
  }
  if (what == "doubleClick") {
    const std::string key = event.Text("item");
    WantRows({key});
    return [this, key] { OpenRow(key); };
  }
  if (what == "sort") {
    const long column = event.Number("column");
    if (column < 0 || column >= static_cast<long>(pane_->ResultView->ListView.Columns.size())) {
      throw EventError("There is no column " + std::to_string(column) + ".");
    }
    return [this, column] { pane_->SortBy(static_cast<int>(column), Comparison()); };
  }
  if (what == "filter") {
    if (!pane_->CanFilter()) throw EventError("The pane shows all of its rows always.");
    return [this, text = event.Text("text")] {
      pane_->FilterBy(text, Comparison());
      verbs_ = VerbsOf(target_);
    };
  }
  const long offset = event.Number("offset");
  if (offset < 0) throw EventError("The offset counts from 0.");
  return [this, offset] { pane_->ScrollTo(static_cast<std::size_t>(offset)); };
}

TreeNode& ConsoleSession::WantedNode(const Event& event) {
  const std::string id = event.Text("node");
  TreeNode* node = tree_.Find(id);
  if (!node) throw EventError("There is no node \"" + id + "\".");
  return *node;
}

void ConsoleSession::WantRows(const std::vector<std::string>& keys) const {
  if (const std::string* missing = pane_->FindMissing(keys)) {
    throw EventError("There is no row \"" + *missing + "\" in the pane.");
  }
}

VerbStates ConsoleSession::VerbsOf(Target target) {
  VerbSwitches verbs;
  if (OnExtension()) {
    filtering_->Views_Select(PresentView(), SelectionOf(target), true, verbs);
    return verbs.states;
  }
  const bool of_mailbox = pane_->node().kind == TreeNode::Kind::Postoffice;
  verbs.states.refresh = true;
  verbs.states.properties = of_mailbox && (target == Target::Node || pane_->SelectedCount() == 1);
  return verbs.states;
}

Action ConsoleSession::ReadMenu(const Event& event) {
  const std::string on = event.Text("on");
  if (on != "node" && on != "items") throw EventError("A menu opens on \"node\" or on \"items\".");
  if (!pane_) throw EventError("No node is selected.");
  const Target target = on == "items" ? Target::Rows : Target::Node;
  if (target == Target::Rows && pane_->SelectedCount() == 0) throw EventError("No rows are selected.");
  return [this, target] {
    OpenMenu menu;
    menu.on_rows = target == Target::Rows;
    menu.verbs = VerbsOf(target);
    if (OnExtension()) {
      const Selection selection = SelectionOf(target);
      MenuItems new_items(menu.new_items), top_items(menu.top_items);
      filtering_->Views_AddNewMenuItems(selection, new_items);
      filtering_->Views_AddTopMenuItems(PresentView(), selection, top_items);
    }
    menu_ = std::move(menu);
  };
}

Action ConsoleSession::ReadChoice(const Event& event) {
  if (!menu_) throw EventError("No menu is open.");
  const std::string name = event.Text("name");
  for (const auto* items : {&menu_->new_items, &menu_->top_items}) {
    for (const MMCMenu& item : *items) {
      if (item.Name != name) continue;
      if (!item.Enabled || item.Grayed) throw EventError("The menu item \"" + name + "\" is disabled.");
      return [this, click = item.Click, target = menu_->on_rows ? Target::Rows : Target::Node] {
        menu_.reset();
        if (click) click(0, SelectionOf(target));
      };
    }
  }
  throw EventError("The menu has no item \"" + name + "\".");
}

Action ConsoleSession::ReadVerb(const Event& event) {
  const std::string name = event.Text("name");
  const Verb verb = VerbOf(name);
  // Out of an open menu a verb is meant for what the menu was opened on.
  const VerbStates& verbs = menu_ ? menu_->verbs : verbs_;
  if (!pane_ || !IsOn(verbs, verb)) throw EventError("The verb \"" + name + "\" is not enabled.");
  const Target target = !menu_ ? target_ : menu_->on_rows ? Target::Rows : Target::Node;
  return [this, verb, target] {
    menu_.reset();
    PerformVerb(verb, target);
  };
}

void ConsoleSession::PerformVerb(Verb verb, Target target) {
  if (verb == Verb::Properties) {
    OpenProperties(target);
  } else if (!OnExtension()) {
    BuildPane();
  } else if (verb == Verb::Delete) {
    filtering_->Views_Delete(PresentView(), SelectionOf(target));
  } else {
    filtering_->Views_Refresh(PresentView(), SelectionOf(target));
  }
}

}  // namespace qv
