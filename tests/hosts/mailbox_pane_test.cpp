// The pane of a postoffice, whose rows are names.

#include <gtest/gtest.h>

#include "hosts/console/name_list.h"
#include "tests/hosts/console_driver.h"

namespace qv {
namespace {

using test::ConsoleDriver;
using test::TwoServers;
using Texts = std::vector<std::string>;

class MailboxPane : public ::testing::Test {
 protected:
  void Have(const Texts& names) {
    std::string rows;
    for (const std::string& name : names) {
      rows += (rows.empty() ? "" : ",") + (R"({"Postoffice": "po", "Mailbox": ")" + name + "\"}");
    }
    world.Import("LOCALHOST", R"({"postoffices": [{"Name": "po"}], "mailboxes": [)" + rows + "]}");
  }
  void Open(ConsoleDriver& c) {
    c.Do(R"({"do":"expand","node":"server:LOCALHOST"})");
    c.Do(R"({"do":"expand","node":"server:LOCALHOST/postoffices"})");
    c.Do(R"({"do":"select","node":"server:LOCALHOST/postoffice:po"})");
  }
  Texts Selected(const ConsoleDriver& c) {
    Texts texts;
    const boost::json::value items = c.at("/view/items");
    for (const auto& item : items.as_array()) {
      if (item.at("selected").as_bool()) texts.emplace_back(item.at("text").as_string());
    }
    return texts;
  }
  TwoServers world;
};

TEST_F(MailboxPane, ARowHasItsNameInEveryField) {
  Have({"joe", "ann \\\"a\\\""});
  ConsoleDriver c(world.servers());
  Open(c);
  EXPECT_EQ(c.at("/view/items/1"),
            boost::json::parse(R"({"key": "MAILBOX-ann \"a\"", "tag": "MAILBOX-ann \"a\"", "text": "ann \"a\"",
                                   "icon": "105", "cells": ["ann \"a\""], "selected": false})"));
  EXPECT_EQ(c.at("/view/items").as_array().size(), 2u);
}

TEST_F(MailboxPane, NamesSortAsTextInAnyCaseAndEqualOnesStay) {
  Have({"beta", "Alpha", "zeta", "\u00c9t\u00e9", "alpha", "\u00e9t\u00e9", "ALPHA"});
  ConsoleDriver c(world.servers());
  Open(c);
  c.Do(R"({"do":"sort","column":0})");
  EXPECT_EQ(c.Cells(), (Texts{"Alpha", "alpha", "ALPHA", "beta", "zeta", "\u00c9t\u00e9", "\u00e9t\u00e9"}));
  c.Do(R"({"do":"sort","column":0})");
  EXPECT_EQ(c.Cells(), (Texts{"\u00c9t\u00e9", "\u00e9t\u00e9", "zeta", "beta", "Alpha", "alpha", "ALPHA"}));
  c.Do(R"({"do":"filter","text":"A"})");
  EXPECT_EQ(c.Cells(), (Texts{"zeta", "beta", "Alpha", "alpha", "ALPHA"}));
  c.Do(R"({"do":"filter","text":"\u00c9"})");
  EXPECT_EQ(c.Cells(), (Texts{"\u00c9t\u00e9", "\u00e9t\u00e9"}));
}

TEST_F(MailboxPane, AKeyThatNoRowHasIsTold) {
  Have({"joe", "ann"});
  ConsoleDriver c(world.servers());
  Open(c);
  EXPECT_EQ(c.Refused(R"({"do":"selectItems","keys":["MAILBOX-ann","MAILBOX-sue","MAILBOX-tom"]})"),
            "There is no row \"MAILBOX-sue\" in the pane.");
  EXPECT_EQ(c.Refused(R"({"do":"selectItems","keys":["ann"]})"), "There is no row \"ann\" in the pane.");
  EXPECT_EQ(c.Refused(R"({"do":"doubleClick","item":"MAILBOX-"})"), "There is no row \"MAILBOX-\" in the pane.");
  EXPECT_EQ(Selected(c), Texts{});
}

TEST_F(MailboxPane, ARowThatIsNamedTwiceIsOneRow) {
  Have({"joe", "ann"});
  ConsoleDriver c(world.servers());
  Open(c);
  c.Do(R"({"do":"selectItems","keys":["MAILBOX-ann","MAILBOX-ann"]})");
  EXPECT_EQ(Selected(c), Texts{"ann"});
  c.Do(R"({"do":"verb","name":"properties"})");
  EXPECT_EQ(c.at("/sheet/title"), "ann Properties");
}

TEST_F(MailboxPane, AnotherReadingKeepsFilterSortAndTheSelectedRowsThatAreLeft) {
  Have({"tom", "joe", "ann", "jon"});
  ConsoleDriver c(world.servers());
  Open(c);
  c.Do(R"({"do":"sort","column":0})");
  c.Do(R"({"do":"filter","text":"o"})");
  c.Do(R"({"do":"selectItems","keys":["MAILBOX-tom","MAILBOX-jon"]})");
  Have({"tom", "zoe", "ann", "bob"});
  c.Do(R"({"do":"verb","name":"refresh"})");
  EXPECT_EQ(c.Cells(), (Texts{"bob", "tom", "zoe"}));
  EXPECT_EQ(Selected(c), Texts{"tom"});
  c.Do(R"({"do":"doubleClick","item":"MAILBOX-zoe"})");
  EXPECT_EQ(c.at("/sheet/title"), "zoe Properties");
  EXPECT_EQ(Selected(c), Texts{"zoe"});
}

TEST(NameList, HoldsNamesInOrder) {
  NameList names;
  EXPECT_EQ(names.size(), 0u);
  names.Add("joe");
  names.Add("");
  names.Add(std::string_view("a\0b", 3));
  names.Settle();
  names.Add("caf\u00e9");
  ASSERT_EQ(names.size(), 4u);
  EXPECT_EQ(names[0], "joe");
  EXPECT_EQ(names[1], "");
  EXPECT_EQ(names[2], std::string_view("a\0b", 3));
  EXPECT_EQ(names[3], "caf\u00e9");
}

}  // namespace
}  // namespace qv
