#include <gmock/gmock.h>

#include "tests/store/store_fixture.h"

namespace qv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TasksTest : public StoreTest {
 protected:
  std::unique_ptr<Task> New(const std::string& task_id = "", const std::string& action_id = "CRT1",
                            const std::string& mailbox = "") {
    auto task = Bound(components->CreateTask());
    task->ActionID = action_id;
    task->TaskID = task_id;
    task->Postoffice = mailbox.empty() ? "" : "abc";
    task->Mailbox = mailbox;
    return task;
  }

  int Add(const std::string& task_id, const std::string& action_id = "CRT1", const std::string& mailbox = "") {
    auto task = New(task_id, action_id, mailbox);
    task->TaskType = "DELETE";
    task->Description = "Delete Message";
    task->Status = 1;
    return task->AddTask();
  }

  std::vector<std::string> List(const std::string& action_id = "CRT1", const std::string& mailbox = "") {
    std::vector<std::string> ids;
    auto task = New("", action_id, mailbox);
    for (int found = task->FindFirstTask(); found == 1; found = task->FindNextTask()) ids.push_back(task->TaskID);
    return ids;
  }
};

TEST_F(TasksTest, TasksComeInTheOrderOfAdding) {
  for (const char* id : {"C", "A", "B"}) EXPECT_EQ(Add(id), 1);
  Add("D", "CRT2");
  Add("E", "CRT1", "joe");
  EXPECT_THAT(List(), ElementsAre("C", "A", "B"));
  EXPECT_THAT(List("CRT2"), ElementsAre("D"));
  EXPECT_THAT(List("CRT1", "joe"), ElementsAre("E"));
}

TEST_F(TasksTest, ReorderingByRemovingAllAndAddingAgain) {
  for (const char* id : {"A", "B", "C"}) Add(id);
  Add("X", "CRT2");
  EXPECT_EQ(New()->RemoveTask(), 1);
  EXPECT_THAT(List(), IsEmpty());
  for (const char* id : {"C", "B", "A"}) EXPECT_EQ(Add(id), 1);
  EXPECT_THAT(List(), ElementsAre("C", "B", "A"));
  EXPECT_THAT(List("CRT2"), ElementsAre("X"));
}

TEST_F(TasksTest, RemovingAllOfNoneSucceeds) { EXPECT_EQ(New()->RemoveTask(), 1); }

TEST_F(TasksTest, RemovingOne) {
  Add("A");
  Add("B");
  EXPECT_EQ(New("A")->RemoveTask(), 1);
  EXPECT_EQ(New("A")->RemoveTask(), 0);
  EXPECT_THAT(List(), ElementsAre("B"));
}

TEST_F(TasksTest, ADuplicateOfAScopeIsRefused) {
  EXPECT_EQ(Add("A"), 1);
  EXPECT_EQ(Add("A"), 0);
  EXPECT_EQ(Add("A", "CRT2"), 1);
  EXPECT_EQ(Add("A", "CRT1", "joe"), 1);
}

TEST_F(TasksTest, ACallKeepsToItsScope) {
  Add("A");
  Add("A", "CRT1", "joe");
  Add("B", "CRT1", "joe");
  EXPECT_EQ(New("A", "CRT1", "joe")->EditTask("A", 0, "", "ADD_HEADER", "", "of joe"), 1);
  auto task = New("A");
  ASSERT_EQ(task->GetTask(), 1);
  EXPECT_EQ(task->TaskType, "DELETE");
  EXPECT_EQ(task->Values, "");
  EXPECT_EQ(New("B")->GetTask(), 0);
  EXPECT_EQ(New("B")->EditTask("B", 0, "", "", "", ""), 0);
  EXPECT_EQ(New("B")->RemoveTask(), 0);
  EXPECT_EQ(New("", "CRT1", "joe")->RemoveTask(), 1);
  EXPECT_THAT(List(), ElementsAre("A"));
  EXPECT_THAT(List("CRT1", "joe"), IsEmpty());
}

TEST_F(TasksTest, TheThirdArgumentOfEditIsNoField) {
  Add("A");
  EXPECT_EQ(New("A")->EditTask("A", 1, "CRT9", "DELETE", "Delete Message", ""), 1);
  EXPECT_THAT(List(), ElementsAre("A"));
  EXPECT_THAT(List("CRT9"), IsEmpty());
}

TEST_F(TasksTest, GetAndEdit) {
  Add("A");
  EXPECT_EQ(New("A")->EditTask("A", 0, "ignored", "ADD_HEADER", "Add a header to a message", "X|y"), 1);
  auto task = New("A");
  ASSERT_EQ(task->GetTask(), 1);
  EXPECT_EQ(task->ActionID, "CRT1");
  EXPECT_EQ(task->Status, 0);
  EXPECT_EQ(task->TaskType, "ADD_HEADER");
  EXPECT_EQ(task->Description, "Add a header to a message");
  EXPECT_EQ(task->Values, "X|y");

  task = New("B");
  EXPECT_EQ(task->GetTask(), 0);
  EXPECT_EQ(task->Status, -1);
  EXPECT_EQ(task->TaskType, "");
  EXPECT_EQ(New("B")->EditTask("B", 0, "", "", "", ""), 0);
}

TEST_F(TasksTest, AnEmptyTaskIdIsNoWildcardForGetAndEdit) {
  Add("A");
  EXPECT_EQ(New("")->GetTask(), 0);
  EXPECT_EQ(New("")->EditTask("", 0, "", "", "", ""), 0);
}

}  // namespace
}  // namespace qv
