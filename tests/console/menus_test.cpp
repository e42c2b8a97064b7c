// What the context menus offer.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/console/fake_console.h"

namespace qv {
namespace {

using test::ConsoleRun;
using test::FakeMenu;
using test::ShownMessage;
using testing::ElementsAre;
using testing::IsEmpty;

Selection OfNothing(int type) {
  Selection selection;
  selection.SelectionType = type;
  return selection;
}

TEST(Menus, TheFiltersNodeOffersNewAndOrder) {
  ConsoleRun run;
  FakeMenu fresh, top;
  run.filtering.Views_AddNewMenuItems(run.Node(), fresh);
  run.filtering.Views_AddTopMenuItems(run.view, run.Node(), top);
  EXPECT_THAT(fresh.items, ElementsAre("New Filter..."));
  EXPECT_THAT(top.items, ElementsAre("Order Filters..."));
}

TEST(Menus, TheNodesCaptionCountsInAnyCase) {
  ConsoleRun run;
  run.node.Node.DisplayName = "FILTERS";
  FakeMenu top;
  run.filtering.Views_AddTopMenuItems(run.view, run.Node(), top);
  EXPECT_THAT(top.items, ElementsAre("Order Filters..."));
}

TEST(Menus, AnEnabledRowOffersDisable) {
  ConsoleRun run;
  run.Add("FLT1", "One");
  FakeMenu fresh, top;
  const Selection row = run.Rows({0});
  run.filtering.Views_AddNewMenuItems(row, fresh);
  run.filtering.Views_AddTopMenuItems(run.view, row, top);
  EXPECT_THAT(fresh.items, IsEmpty());
  EXPECT_THAT(top.items, ElementsAre("(Enable)", "Disable", "Manage...", "Rename...", "Order Filters..."));
}

TEST(Menus, ARowWithAnyOtherStatusWordOffersEnable) {
  ConsoleRun run;
  run.Add("FLT1", "One", 0);
  FakeMenu off, odd;
  const Selection row = run.Rows({0});
  run.filtering.Views_AddTopMenuItems(run.view, row, off);
  row.ListItems[0]->SubItems = {{"1", "One"}, {"2", "enabled"}};
  run.filtering.Views_AddTopMenuItems(run.view, row, odd);
  EXPECT_THAT(off.items, ElementsAre("Enable", "(Disable)", "Manage...", "Rename...", "Order Filters..."));
  EXPECT_THAT(odd.items, ElementsAre("Enable", "(Disable)", "Manage...", "Rename...", "Order Filters..."));
}

TEST(Menus, TheNodesMenuHidesItemsThatTheNextRowShowsAgain) {
  ConsoleRun run;
  run.Add("FLT1", "One");
  FakeMenu node, row;
  run.filtering.Views_AddTopMenuItems(run.view, run.Node(), node);
  run.filtering.Views_AddTopMenuItems(run.view, run.Rows({0}), row);
  EXPECT_THAT(node.items, ElementsAre("Order Filters..."));
  EXPECT_THAT(row.items, ElementsAre("(Enable)", "Disable", "Manage...", "Rename...", "Order Filters..."));
}

TEST(Menus, SeveralRowsOfferNothing) {
  ConsoleRun run;
  run.Add("FLT1", "One");
  run.Add("FLT2", "Two");
  FakeMenu top;
  run.filtering.Views_AddTopMenuItems(run.view, run.Rows({0, 1}), top);
  EXPECT_THAT(top.items, IsEmpty());
}

TEST(Menus, ASpamRowOffersTheReset) {
  ConsoleRun run("nodSpamProtection");
  run.pane.view.ListView.Tag = "SYSFILTERS";
  FakeMenu top;
  run.filtering.Views_AddTopMenuItems(run.view, OfNothing(1), top);
  EXPECT_THAT(top.items, ElementsAre("Reset all values to default"));
}

TEST(Menus, TheSpamNodeOffersNothing) {
  ConsoleRun run("nodSpamProtection");
  FakeMenu fresh, top;
  run.filtering.Views_AddNewMenuItems(run.Node(), fresh);
  run.filtering.Views_AddTopMenuItems(run.view, run.Node(), top);
  EXPECT_THAT(fresh.items, IsEmpty());
  EXPECT_THAT(top.items, IsEmpty());
}

TEST(Menus, OtherSelectionsAndTheTaskMenuOfferNothing) {
  ConsoleRun run;
  FakeMenu menu;
  run.filtering.Views_AddNewMenuItems(OfNothing(2), menu);
  run.filtering.Views_AddTopMenuItems(run.view, OfNothing(2), menu);
  run.filtering.Views_AddTaskMenuItems(run.Node(), menu);
  EXPECT_THAT(menu.items, IsEmpty());
}

TEST(Menus, AnErrorOfTheNewMenuIsTold) {
  ConsoleRun run;
  FakeMenu menu;
  menu.broken = true;
  run.filtering.Views_AddNewMenuItems(run.Node(), menu);
  EXPECT_THAT(run.console.messages, ElementsAre(ShownMessage{"Views_AddNewMenuItems: The menu is full.", "",
                                                             MessageIcon::None, MessageButtons::Ok}));
}

TEST(Menus, AnErrorOfTheRowsTopMenuIsTold) {
  ConsoleRun run;
  run.Add("FLT1", "One");
  FakeMenu menu;
  menu.broken = true;
  run.filtering.Views_AddTopMenuItems(run.view, run.Rows({0}), menu);
  EXPECT_THAT(run.console.messages, ElementsAre(ShownMessage{"Views_AddTopMenuItems: The menu is full.", "",
                                                             MessageIcon::None, MessageButtons::Ok}));
}

TEST(Menus, AnErrorOfTheNodesTopMenuIsSilent) {
  ConsoleRun run;
  FakeMenu menu;
  menu.broken = true;
  run.filtering.Views_AddTopMenuItems(run.view, run.Node(), menu);
  EXPECT_THAT(run.console.messages, IsEmpty());
}

}  // namespace
}  // namespace qv
