// Any sequence of what a person does to the action list, with tasks vanishing from the store in between, against a
// model.

#include <rapidcheck.h>

#include <algorithm>

#include "tests/editor/action_list_fixture.h"

namespace qv::test {
namespace {

enum class Step { Pick, Check, Up, Down, Delete, Add, Edit, Vanish, Refuse };

struct Move {
  Step step;
  int number;
};

void showValue(const Move& move, std::ostream& out) {
  static const char* const kNames[] = {"Pick", "Check", "Up", "Down", "Delete", "Add", "Edit", "Vanish", "Refuse"};
  out << kNames[static_cast<int>(move.step)] << " " << move.number;
}

struct Row {
  std::string id;
  bool on = true;
  bool shown = true;  // the check box, which a refused change leaves turned
};

class Model {
 public:
  std::vector<Row> store, rows;
  long selected = -1;
  bool can_delete = true, can_up = true, can_down = true;
  int messages = 0;

  void Load() {
    rows = store;
    for (Row& row : rows) row.shown = row.on;
    selected = -1;
    if (rows.empty()) can_delete = can_up = can_down = false;
  }
  void Follow() {
    const long last = static_cast<long>(rows.size()) - 1;
    if (last >= 0) can_delete = true;
    can_up = last > 0 && selected != 0;
    can_down = last > 0 && selected != last;
  }
  Row* InStore(const std::string& id) {
    const auto found = std::find_if(store.begin(), store.end(), [&](const Row& row) { return row.id == id; });
    return found == store.end() ? nullptr : &*found;
  }
  void Check(long index, bool refused) {
    Row& row = rows[static_cast<std::size_t>(index)];
    row.shown = !row.shown;
    Row* stored = InStore(row.id);
    if (refused || !stored) {
      ++messages;
    } else {
      stored->on = row.on = row.shown;
    }
  }
  void Swap(long target) {
    if (selected < 0 || target < 0 || target >= static_cast<long>(rows.size())) return;
    std::swap(rows[static_cast<std::size_t>(selected)], rows[static_cast<std::size_t>(target)]);
    for (Row& row : rows) row.shown = row.on;
    store = rows;
    selected = target;
    Follow();
  }
  void Delete() {
    if (selected < 0) return;
    ++messages;
    const std::string id = rows[static_cast<std::size_t>(selected)].id;
    store.erase(std::remove_if(store.begin(), store.end(), [&](const Row& row) { return row.id == id; }), store.end());
    Load();
  }
};

class ActionModel : public ActionListTest {
 public:
  void TestBody() override {}

  void Run(const std::vector<Move>& moves, int count) {
    for (int i = 0; i < count; ++i) {
      PutTask("T" + std::to_string(i));
      model.store.push_back({"T" + std::to_string(i)});
    }
    Open();
    model.Load();
    Compare();
    for (const Move& move : moves) {
      Do(move);
      Compare();
    }
    RC_ASSERT(t.desktop.AllVisited());
  }

 private:
  void Do(const Move& move) {
    const long count = static_cast<long>(model.rows.size());
    const long index = count == 0 ? -1 : move.number % count;
    switch (move.step) {
      case Step::Pick:
        form.lvwActions.Press(index);
        if (index >= 0) model.selected = index;
        model.Follow();
        break;
      case Step::Check:
      case Step::Refuse: {
        if (index < 0) break;
        const bool refused = move.step == Step::Refuse;
        if (refused) t.store.Refuse("Task.EditTask", 0);
        model.Check(index, refused);
        form.lvwActions.Check(index, model.rows[static_cast<std::size_t>(index)].shown);
        t.store.Heal();
        break;
      }
      case Step::Up:
        if (!form.cmdUp.Enabled()) break;
        form.cmdUp.Press();
        model.Swap(model.selected - 1);
        break;
      case Step::Down:
        if (!form.cmdDown.Enabled()) break;
        form.cmdDown.Press();
        model.Swap(model.selected + 1);
        break;
      case Step::Delete:
        if (!form.cmdDelete.Enabled()) break;
        t.desktop.answers = {MessageAnswer::Yes};
        form.cmdDelete.Press();
        model.Delete();
        break;
      case Step::Add:
        t.desktop.Visit([](Form& select) { Person(select).Open("lstActions", 0); });
        t.desktop.Visit([](Form& dialog) { Person(dialog).Click("cmdOK"); });
        form.cmdAdd.Press();
        model.store.push_back({tasks().back().TaskID});
        model.Load();
        break;
      case Step::Edit: {
        if (index < 0) break;
        Row* stored = model.InStore(model.rows[static_cast<std::size_t>(index)].id);
        if (stored) {
          t.desktop.Visit([](Form& dialog) {
            Person(dialog).Click("chkStatus");
            Person(dialog).Click("cmdOK");
          });
          stored->on = !stored->on;
        }
        form.lvwActions.PressTwice(index);
        model.selected = index;
        model.Follow();
        model.Load();
        if (index < static_cast<long>(model.rows.size())) model.selected = index;
        model.Follow();
        break;
      }
      case Step::Vanish: {
        if (model.store.empty()) break;
        const auto at = static_cast<std::ptrdiff_t>(static_cast<std::size_t>(move.number) % model.store.size());
        model.store.erase(model.store.begin() + at);
        tasks().erase(tasks().begin() + at);
        break;
      }
    }
  }

  void Compare() {
    Items shown, stored;
    for (const Row& row : model.rows) shown.push_back((row.shown ? "" : "-") + row.id);
    for (const Row& row : model.store) stored.push_back((row.on ? "" : "-") + row.id);
    RC_ASSERT(Shown() == shown);
    RC_ASSERT(Stored() == stored);
    RC_ASSERT(form.lvwActions.Selected() == model.selected);
    RC_ASSERT(form.cmdDelete.Enabled() == model.can_delete);
    RC_ASSERT(form.cmdUp.Enabled() == model.can_up);
    RC_ASSERT(form.cmdDown.Enabled() == model.can_down);
    RC_ASSERT(static_cast<int>(t.desktop.messages.size()) == model.messages);
  }

  Model model;
};

TEST(ActionListModel, AgreesWithItsModel) {
  const auto step = rc::gen::map(rc::gen::pair(rc::gen::inRange(0, 9), rc::gen::inRange(0, 12)),
                                 [](const std::pair<int, int>& drawn) {
                                   return Move{static_cast<Step>(drawn.first), drawn.second};
                                 });
  const bool agrees = rc::check([&] {
    ActionModel run;
    const int count = *rc::gen::inRange(0, 6);
    run.Run(*rc::gen::container<std::vector<Move>>(step), count);
  });
  EXPECT_TRUE(agrees);
}

}  // namespace
}  // namespace qv::test
