#include "actions/plain_dialogs.h"

#include "tests/actions/action_fixture.h"

namespace qv::test {
namespace {

class PlainDialogs : public ActionTest {};

TEST_F(PlainDialogs, WriteBackTheValuesThatTheyFound) {
  PutTask("B", "COPY_TO_BADMAIL", "x", "kept|1");
  PutTask("D", "DELETE", "x", "kept|2");
  PutTask("Q", "COPY_TO_QUARANTINE", "x", "kept|3");
  Edit<frmTaskBadMail>("B", [](auto&, Person& person) { person.Click("cmdOK"); });
  Edit<frmTaskDeleteMessage>("D", [](auto&, Person& person) { person.Click("cmdOK"); });
  Edit<FrmTaskQuarantine>("Q", [](auto&, Person& person) { person.Click("cmdOK"); });
  EXPECT_EQ(tasks().at(0).Values, "kept|1");
  EXPECT_EQ(tasks().at(0).Description, "Copy Message to Bad Mail");
  EXPECT_EQ(tasks().at(1).Values, "kept|2");
  EXPECT_EQ(tasks().at(2).Values, "kept|3");
}

TEST_F(PlainDialogs, AnAddAfterAnEditStartsWithEmptyValues) {
  PutTask("B", "COPY_TO_BADMAIL", "x", "old");
  Edit<frmTaskBadMail>("B", [](auto&, Person& person) { person.Click("cmdOK"); });
  Add<frmTaskBadMail>([](auto&, Person& person) { person.Click("cmdOK"); });
  ASSERT_EQ(tasks().size(), 2u);
  EXPECT_EQ(tasks().at(1).Values, "");
}

TEST_F(PlainDialogs, WhatLoadingKeeps) {
  for (const char* type : {"COPY_TO_BADMAIL", "DELETE", "COPY_TO_QUARANTINE", "JUNK", "ADD_HEADER"}) {
    PutTask(type, type, "x", "stored", 1);
  }
  const auto loaded = [](auto& dialog, Person&) {
    EXPECT_EQ(dialog.Status, 1);
    EXPECT_EQ(dialog.Values, "stored");
  };
  const auto values_only = [](auto& dialog, Person&) {
    EXPECT_EQ(dialog.Status, 0);
    EXPECT_EQ(dialog.Values, "stored");
  };
  Edit<frmTaskBadMail>("COPY_TO_BADMAIL", loaded);
  Edit<frmTaskDeleteMessage>("DELETE", loaded);
  Edit<FrmTaskQuarantine>("COPY_TO_QUARANTINE", values_only);
  Edit<frmTaskGeneric>("JUNK", values_only);
  Edit<frmTaskMarkasSpam>("ADD_HEADER", [](auto& dialog, Person&) {
    EXPECT_EQ(dialog.Status, 0);
    EXPECT_EQ(dialog.Values, "");
  });
}

TEST_F(PlainDialogs, ATaskRemovedBehindTheDialogIsWrittenUnderItsOldId) {
  Edit<frmTaskDeleteMessage>("GONE", [&](auto& dialog, Person& person) {
    EXPECT_EQ(Messages(), Error("Task Not Found"));
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
  });
  EXPECT_EQ(t.store.calls.back(), "Task.EditTask@(GONE,0,CRTF,DELETE,Delete Message,)");
  EXPECT_EQ(Messages(), Error("Unable to Add Task"));
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_F(PlainDialogs, MarkAsSpamWritesItsConstantsAtEditToo) {
  PutTask("S", "ADD_HEADER", "Mark message as spam.", "other|text");
  Edit<frmTaskMarkasSpam>("S", [](auto&, Person& person) { person.Click("cmdOK"); });
  EXPECT_EQ(tasks().at(0).Description, "Mark message as spam");
  EXPECT_EQ(tasks().at(0).Values, "X-QV-Content|Deliver-To=Junk");
}

TEST_F(PlainDialogs, TheSharedDialogWritesTheTypeThatItWasGiven) {
  frmTaskGeneric& dialog = t.run.The<frmTaskGeneric>();
  dialog.TaskType = "QUARANTINE";
  dialog.Description = "Any description";
  Add<frmTaskGeneric>([](auto&, Person& person) { person.Click("cmdOK"); });
  ASSERT_EQ(tasks().size(), 1u);
  EXPECT_EQ(tasks().at(0).TaskType, "QUARANTINE");
  EXPECT_EQ(tasks().at(0).Description, "Any description");
}

TEST_F(PlainDialogs, AnyStatusButOneShowsAsOff) {
  PutTask("D", "DELETE", "x", "", 2);
  Edit<frmTaskDeleteMessage>("D", [](auto& dialog, Person&) { EXPECT_FALSE(dialog.end.chkStatus.Checked()); });
}

TEST_F(PlainDialogs, TheTaskIsThatOfTheScope) {
  tasks().push_back({"CRTF", "D", "DELETE", "x", 1, "", "po", ""});
  Edit<frmTaskDeleteMessage>("D", [&](auto&, Person&) { EXPECT_EQ(Messages(), Error("Task Not Found")); });
}

TEST_F(PlainDialogs, ARemoteServerGetsTheTaskAndTheLocalMachineTheSignal) {
  t.store.server("Far");
  frmTaskDeleteMessage& dialog = The<frmTaskDeleteMessage>(ActionDialog::kAdd);
  dialog.Host = "Far";
  t.desktop.Visit([](Form& form) { Person(form).Click("cmdOK"); });
  dialog.EditTask();
  EXPECT_EQ(t.store.server("Far").tasks.size(), 1u);
  EXPECT_TRUE(tasks().empty());
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_F(PlainDialogs, AnUnknownServerIsToldToTheOpener) {
  frmTaskDeleteMessage& dialog = The<frmTaskDeleteMessage>(ActionDialog::kEdit, "D");
  dialog.Host = "Nowhere";
  EXPECT_THROW(dialog.EditTask(), RuntimeError);
}

}  // namespace
}  // namespace qv::test
