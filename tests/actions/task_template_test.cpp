#include <functional>
#include <memory>

#include "platform/text.h"
#include "tests/actions/golden_actions.h"

namespace qv::test {
namespace {

using Texts = std::vector<std::string>;

// A store whose task objects tell their fields at each operation, and whose GetTask fills every field.
class ToldStore : public MemoryStore {
 public:
  Texts told;
  std::string read_description, read_values;
  std::function<void()> at_write = [] {};
  std::unique_ptr<Task> CreateTask() override;
};

class ToldTask : public Task {
 public:
  explicit ToldTask(ToldStore& store) : store_(store) {}
  void SetHost() override { store_.told.push_back("SetHost " + Host); }
  int GetTask() override {
    Tell("GetTask");
    ActionID = "action read";
    TaskID = "task read";
    TaskType = "type read";
    Description = store_.read_description;
    Status = 1;
    Values = store_.read_values;
    Postoffice = "postoffice read";
    Mailbox = "mailbox read";
    return 1;
  }
  int AddTask() override {
    Tell("AddTask");
    store_.at_write();
    return 1;
  }
  int EditTask(const std::string& task_id, int status, const std::string& unused, const std::string& task_type,
               const std::string& description, const std::string& values) override {
    Tell("EditTask");
    store_.told.push_back(Join({task_id, std::to_string(status), unused, task_type, description, values}, ","));
    store_.at_write();
    return 1;
  }
  int RemoveTask() override { return 0; }
  int FindFirstTask() override { return 0; }
  int FindNextTask() override { return 0; }

 private:
  void Tell(const std::string& operation) {
    store_.told.push_back(
        operation + " " +
        Join({ActionID, TaskID, TaskType, Description, std::to_string(Status), Values, Postoffice, Mailbox}, ","));
  }
  ToldStore& store_;
};

std::unique_ptr<Task> ToldStore::CreateTask() {
  told.push_back("Create");
  return std::make_unique<ToldTask>(*this);
}

// What each dialog puts into the store's objects, field by field.
class TaskTemplate : public ::testing::TestWithParam<Golden> {
 protected:
  const Golden& g() const { return GetParam(); }

  void Open(int mode, const std::function<void(Person&)>& visit) {
    ActionDialog& dialog = g().dialog(run);
    if (g().type) dialog.SetType(*g().type);
    dialog.ActionID = "CRTF";
    dialog.TaskID = "T1";
    dialog.EditMode = mode;
    dialog.Postoffice = "po";
    dialog.Mailbox = "box";
    dialog.Host = "mail";
    t.desktop.Visit([&](Form& form) {
      Person person(form);
      visit(person);
      form.Unload();
    });
    dialog.EditTask();
  }
  TestRun t;
  ToldStore store;
  qv::Run run{Platform{t.desktop, t.registry, t.files, t.guids, t.scripts, store}};
};

TEST_P(TaskTemplate, Add) {
  store.at_write = [this] { EXPECT_EQ(t.registry.TakeReloads(), 0); };
  Open(ActionDialog::kAdd, [&](Person& person) {
    EXPECT_EQ(store.told, Texts{});
    for (const auto& [box, text] : g().texts) person.Set(box, text);
    person.Click("cmdOK");
  });
  const std::string fields = std::string(g().task_type) + "," + g().description + ",1," + g().values + ",po,box";
  EXPECT_EQ(store.told, (Texts{"Create", "SetHost mail", std::string("AddTask CRTF,") + kFirstGuid + "," + fields}));
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_P(TaskTemplate, Edit) {
  store.at_write = [this] { EXPECT_EQ(t.registry.TakeReloads(), 0); };
  store.read_description = g().description;
  store.read_values = g().values;
  Open(ActionDialog::kEdit, [&](Person& person) {
    EXPECT_EQ(store.told, (Texts{"Create", "SetHost mail", "GetTask CRTF,T1,,,-1,,po,box"}));
    store.told.clear();
    person.Click("cmdOK");
  });
  const std::string arguments = std::string("T1,1,CRTF,") + g().task_type + "," + g().description + "," + g().values;
  EXPECT_EQ(store.told, (Texts{"Create", "SetHost mail", "EditTask CRTF,T1,,,-1,,po,box", arguments}));
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, TaskTemplate, ::testing::ValuesIn(kGolden),
                         [](const ::testing::TestParamInfo<Golden>& golden) {
                           return std::string(golden.param.name) + "_" + golden.param.task_type;
                         });

}  // namespace
}  // namespace qv::test
