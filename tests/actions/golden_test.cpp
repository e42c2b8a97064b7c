#include "platform/runtime_error.h"
#include "tests/actions/golden_actions.h"

namespace qv::test {
namespace {

class ActionGolden : public ::testing::TestWithParam<Golden> {
 protected:
  const Golden& g() const { return GetParam(); }

  void Open(int mode, const std::function<void(ActionDialog&, Person&)>& visit) {
    ActionDialog& dialog = g().dialog(t.run);
    if (g().type) dialog.SetType(*g().type);
    dialog.ActionID = "CRTF";
    dialog.TaskID = mode == ActionDialog::kAdd ? "" : "T1";
    dialog.EditMode = mode;
    dialog.Postoffice = "po";
    dialog.Mailbox = "box";
    dialog.Host = "mail";
    t.desktop.Visit([&](Form& form) {
      Person person(form);
      visit(dialog, person);
      form.Unload();
    });
    dialog.EditTask();
  }
  void FillIn(Person& person) {
    for (const auto& [box, text] : g().texts) person.Set(box, text);
  }
  void PutTask(int status = 1) {
    server.tasks.push_back({"CRTF", "T1", g().task_type, g().description, status, g().values, "po", "box"});
  }
  std::string Written(const std::string& id, int status) {
    return std::string("(CRTF,") + id + "," + g().task_type + "," + g().description + "," + std::to_string(status) +
           "," + g().values + ")";
  }
  std::string Arguments(int status) {
    return std::string("(T1,") + std::to_string(status) + ",CRTF," + g().task_type + "," + g().description + "," +
           g().values + ")";
  }

  TestRun t;
  ServerData& server = t.store.server("mail");
};

TEST_P(ActionGolden, FixedTexts) {
  Open(ActionDialog::kAdd, [&](ActionDialog& dialog, Person&) {
    EXPECT_EQ(dialog.name(), g().name);
    EXPECT_EQ(dialog.Caption(), g().caption);
    EXPECT_EQ(dialog.lblH1.Caption(), "Action:");
    EXPECT_EQ(dialog.lblDescription.Caption(), g().sentence);
    EXPECT_EQ(dynamic_cast<CheckBox&>(*dialog.Find("chkStatus")).Caption(), "Enabled");
    auto& ok = dynamic_cast<Button&>(*dialog.Find("cmdOK"));
    EXPECT_EQ(ok.Caption(), "OK");
    EXPECT_EQ(ok.role(), Button::Role::Default);
    auto& cancel = dynamic_cast<Button&>(*dialog.Find("cmdCancel"));
    EXPECT_EQ(cancel.Caption(), "&Cancel");
    EXPECT_EQ(cancel.role(), Button::Role::Cancel);
    EXPECT_EQ(TabOrder(dialog), g().tab_order);
    EXPECT_EQ(dialog.Focus(), dialog.Find(g().tab_order.front()));
    ExpectWholeLayout(dialog);
  });
}

TEST_P(ActionGolden, AddsAnEnabledTask) {
  Open(ActionDialog::kAdd, [&](ActionDialog& dialog, Person& person) {
    EXPECT_TRUE(dynamic_cast<CheckBox&>(*dialog.Find("chkStatus")).Checked());
    EXPECT_TRUE(t.store.calls.empty());
    FillIn(person);
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
    EXPECT_EQ(dialog.Status, 1);
  });
  const std::vector<std::string> calls = {"Task.Create", "Task.SetHost@mail",
                                          "Task.AddTask@mail" + Written(kFirstGuid, 1)};
  EXPECT_EQ(t.store.calls, calls);
  ASSERT_EQ(server.tasks.size(), 1u);
  EXPECT_EQ(server.tasks[0].Postoffice, "po");
  EXPECT_EQ(server.tasks[0].Mailbox, "box");
  EXPECT_TRUE(t.desktop.messages.empty());
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_P(ActionGolden, AddsADisabledTask) {
  Open(ActionDialog::kAdd, [&](ActionDialog&, Person& person) {
    FillIn(person);
    person.Click("chkStatus");
    person.Click("cmdOK");
  });
  ASSERT_EQ(server.tasks.size(), 1u);
  EXPECT_EQ(server.tasks[0].Status, 0);
  EXPECT_EQ(server.tasks[0].Values, g().values);
  EXPECT_EQ(server.tasks[0].Description, g().description);
}

TEST_P(ActionGolden, EditsATask) {
  PutTask();
  Open(ActionDialog::kEdit, [&](ActionDialog& dialog, Person& person) {
    EXPECT_EQ(dialog.Caption(), g().edit_caption);
    EXPECT_TRUE(dynamic_cast<CheckBox&>(*dialog.Find("chkStatus")).Checked());
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
  });
  const std::vector<std::string> calls = {"Task.Create", "Task.SetHost@mail", "Task.GetTask@mail(CRTF,T1)",
                                          "Task.Create", "Task.SetHost@mail", "Task.EditTask@mail" + Arguments(1)};
  EXPECT_EQ(t.store.calls, calls);
  EXPECT_EQ(t.registry.TakeReloads(), 1);
  EXPECT_EQ(t.guids.last, 0u);
}

TEST_P(ActionGolden, EditsADisabledTask) {
  PutTask(0);
  Open(ActionDialog::kEdit, [&](ActionDialog& dialog, Person& person) {
    EXPECT_FALSE(dynamic_cast<CheckBox&>(*dialog.Find("chkStatus")).Checked());
    person.Click("cmdOK");
    EXPECT_EQ(dialog.Status, 0);
  });
  EXPECT_EQ(t.store.calls.back(), "Task.EditTask@mail" + Arguments(0));
}

TEST_P(ActionGolden, AddFails) {
  t.store.Refuse("Task.AddTask", 0);
  Open(ActionDialog::kAdd, [&](ActionDialog& dialog, Person& person) {
    FillIn(person);
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
  });
  EXPECT_EQ(t.desktop.messages, (std::vector<ShownMessage>{{g().add_failure, "Error", MessageIcon::Critical}}));
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_P(ActionGolden, EditFails) {
  PutTask();
  t.store.Refuse("Task.EditTask", 2);
  Open(ActionDialog::kEdit, [&](ActionDialog& dialog, Person& person) {
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
  });
  EXPECT_EQ(t.desktop.messages, (std::vector<ShownMessage>{{g().edit_failure, "Error", MessageIcon::Critical}}));
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_P(ActionGolden, TaskNotFoundAtEdit) {
  Open(ActionDialog::kEdit, [&](ActionDialog& dialog, Person&) {
    EXPECT_EQ(t.desktop.TakeMessages(), (std::vector<ShownMessage>{{g().not_found, "Error", MessageIcon::Critical}}));
    EXPECT_FALSE(dynamic_cast<CheckBox&>(*dialog.Find("chkStatus")).Checked());
    for (const auto& [box, text] : g().texts) {
      EXPECT_EQ(dynamic_cast<TextBox&>(*dialog.Find(box)).Text(), "") << box;
    }
  });
}

TEST_P(ActionGolden, CancelAndCloseBoxWriteNothing) {
  PutTask();
  for (const char* way : {"cmdCancel", ""}) {
    Open(ActionDialog::kEdit, [&](ActionDialog& dialog, Person& person) {
      person.Click("chkStatus");
      if (*way) {
        person.Click(way);
      } else {
        person.Close();
      }
      EXPECT_FALSE(dialog.Loaded());
    });
  }
  EXPECT_EQ(t.store.CountOf("Task.EditTask"), 0);
  EXPECT_EQ(server.tasks[0].Status, 1);
  EXPECT_EQ(t.registry.TakeReloads(), 0);
  EXPECT_TRUE(t.desktop.messages.empty());
}

TEST_P(ActionGolden, DeleteViewShowsAndWritesNothing) {
  PutTask();
  Open(ActionDialog::kDeleteView, [&](ActionDialog& dialog, Person& person) {
    EXPECT_EQ(dialog.Caption(), g().delete_caption);
    EXPECT_TRUE(dynamic_cast<CheckBox&>(*dialog.Find("chkStatus")).Checked());
    EXPECT_FALSE(dialog.Find("chkStatus")->Enabled());
    for (const auto& [box, text] : g().texts) EXPECT_FALSE(dialog.Find(box)->Enabled()) << box;
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
  });
  const std::vector<std::string> calls = {"Task.Create", "Task.SetHost@mail", "Task.GetTask@mail(CRTF,T1)"};
  EXPECT_EQ(t.store.calls, calls);
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_P(ActionGolden, DeleteViewOfAMissingTask) {
  Open(ActionDialog::kDeleteView, [&](ActionDialog& dialog, Person&) {
    EXPECT_EQ(t.desktop.TakeMessages(),
              (std::vector<ShownMessage>{{"Task Not Found", "Error", MessageIcon::Critical}}));
    EXPECT_EQ(dialog.Caption(), g().delete_caption);
    EXPECT_FALSE(dialog.Find("chkStatus")->Enabled());
  });
}

TEST_P(ActionGolden, ComesBackFreshAfterAnEdit) {
  PutTask();
  Open(ActionDialog::kDeleteView, [&](ActionDialog&, Person& person) { person.Click("cmdOK"); });
  Open(ActionDialog::kAdd, [&](ActionDialog& dialog, Person&) {
    EXPECT_EQ(dialog.Caption(), g().caption);
    EXPECT_TRUE(dialog.Find("chkStatus")->Enabled());
    for (const auto& [box, text] : g().texts) {
      EXPECT_EQ(dynamic_cast<TextBox&>(*dialog.Find(box)).Text(), "") << box;
      EXPECT_TRUE(dialog.Find(box)->Enabled()) << box;
    }
  });
}

TEST_P(ActionGolden, AnErrorAtLoadingGoesToTheOpener) {
  PutTask();
  t.store.Raise("Task.GetTask", "The store is down.");
  ActionDialog& dialog = g().dialog(t.run);
  if (g().type) dialog.SetType(*g().type);
  dialog.ActionID = "CRTF";
  dialog.TaskID = "T1";
  dialog.EditMode = ActionDialog::kEdit;
  dialog.Host = "mail";
  EXPECT_THROW(dialog.EditTask(), RuntimeError);
  EXPECT_FALSE(dialog.Loaded());
  t.store.Heal();
  Open(ActionDialog::kAdd, [&](ActionDialog& fresh, Person&) { EXPECT_EQ(fresh.Caption(), g().caption); });
}

TEST_P(ActionGolden, AnErrorAtSavingLeavesTheDialogOpenAndSignalsNothing) {
  t.store.Raise("Task.AddTask", "The store is down.");
  Open(ActionDialog::kAdd, [&](ActionDialog& dialog, Person& person) {
    FillIn(person);
    EXPECT_THROW(person.Click("cmdOK"), RuntimeError);
    EXPECT_TRUE(dialog.Loaded());
  });
  EXPECT_EQ(t.registry.TakeReloads(), 0);
}

TEST_P(ActionGolden, AnErrorAtEditingLeavesTheDialogOpenAndSignalsNothing) {
  PutTask();
  t.store.Raise("Task.EditTask", "The store is down.");
  Open(ActionDialog::kEdit, [&](ActionDialog& dialog, Person& person) {
    EXPECT_THROW(person.Click("cmdOK"), RuntimeError);
    EXPECT_TRUE(dialog.Loaded());
  });
  EXPECT_TRUE(t.desktop.messages.empty());
  EXPECT_EQ(t.registry.TakeReloads(), 0);
}

TEST_P(ActionGolden, AGuidThatIsRefusedGivesTheFixedOne) {
  t.guids.refuse = true;
  Open(ActionDialog::kAdd, [&](ActionDialog&, Person& person) {
    FillIn(person);
    person.Click("cmdOK");
  });
  EXPECT_EQ(t.store.calls.back(), "Task.AddTask@mail" + Written("00000000", 1));
}

INSTANTIATE_TEST_SUITE_P(Dialogs, ActionGolden, ::testing::ValuesIn(kGolden),
                         [](const ::testing::TestParamInfo<Golden>& golden) {
                           return std::string(golden.param.name) + "_" + golden.param.task_type;
                         });

}  // namespace
}  // namespace qv::test
