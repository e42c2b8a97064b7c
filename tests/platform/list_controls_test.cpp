#include "platform/list_controls.h"

#include "platform/runtime_error.h"
#include "tests/platform/forms_fixture.h"

namespace qv::test {
namespace {

struct Lists : Forms {};

TEST_F(Lists, AListLosesItsSelectionWithTheEntry) {
  form.list.AddItem("b");
  form.list.AddItem("c");
  form.list.SetListIndex(1);
  form.list.RemoveItem(0);
  EXPECT_EQ(form.list.Text(), "b");
  form.list.RemoveItem(0);
  EXPECT_EQ(form.list.ListIndex(), -1);
  EXPECT_EQ(form.list.Text(), "");
  EXPECT_THROW(form.list.RemoveItem(5), RuntimeError);
  EXPECT_THROW(form.list.SetListIndex(5), RuntimeError);
}

TEST_F(Lists, TheEmptySpaceOfAListKeepsTheSelectionAndRunsTheHandlers) {
  form.list.Press(0);
  form.list.Press(-1);
  EXPECT_EQ(form.list.ListIndex(), 0);
  form.list.PressTwice(-1);
  EXPECT_EQ(form.log, "list;list;list;list twice;");
}

TEST_F(Lists, RowKeysAreUnique) {
  form.rows.AddRow({"k1", "a", {}, false});
  form.rows.AddRow({"k2", "b", {}, false});
  try {
    form.rows.AddRow({"k1", "c", {}, false});
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 35602);
    EXPECT_EQ(error.description(), "Key is not unique in collection");
  }
  EXPECT_THROW(form.rows.SetKey(1, "k1"), RuntimeError);
  form.rows.SetKey(1, "k2");
  EXPECT_EQ(form.rows.Count(), 2);
}

TEST_F(Lists, ACheckNeitherSelectsTheRowNorRunsTheClickHandler) {
  form.rows.AddRow({"k1", "a", {}, false});
  form.rows.Check(0, true);
  form.rows.Check(0, true);
  EXPECT_EQ(form.rows.Selected(), -1);
  EXPECT_EQ(form.log, "row0;");
}

TEST_F(Lists, RebuiltRowsHaveNoSelection) {
  form.rows.AddRow({"k1", "a", {}, false});
  form.rows.Press(0);
  EXPECT_EQ(form.rows.Selected(), 0);
  form.rows.Clear();
  form.rows.AddRow({"k1", "a", {}, false});
  EXPECT_EQ(form.rows.Selected(), -1);
  EXPECT_THROW(form.rows.SelectRow(1), RuntimeError);
}

TEST_F(Lists, ADoubleClickRunsTheClickHandlerFirst) {
  form.rows.AddRow({"k1", "a", {}, false});
  form.rows.PressTwice(0);
  EXPECT_EQ(form.log, "rows;rows twice;");
}

}  // namespace
}  // namespace qv::test
