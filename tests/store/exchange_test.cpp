#include "store/exchange.h"

#include <gmock/gmock.h>

#include "tests/store/store_fixture.h"

namespace qv {
namespace {

std::string Malformed(const std::string& json) {
  try {
    ReadDataSet(json);
  } catch (const MalformedData& error) {
    return error.what();
  }
  return "well-formed";
}

struct BadCase {
  std::string json, message;
};

TEST(ExchangeTest, MalformedDataIsToldByItsPlace) {
  const BadCase cases[] = {
      {"", "line 1, column 1: this is no JSON (incomplete JSON)"},
      {"[]", "a JSON object is wanted"},
      {"7", "a JSON object is wanted"},
      {"{", "line 1, column 2: this is no JSON (incomplete JSON)"},
      {"{} x", "line 1, column 4: this is no JSON (extra data)"},
      {"{\n \"filters\": nothing}", "line 2, column 13: this is no JSON (syntax error)"},
      {"{\"a\": \"\xC3\x28\"}", "line 1, column 8: this is no JSON (syntax error)"},
      {R"({"filter": []})", "filter: there is no such section"},
      {R"({"Filters": []})", "Filters: there is no such section"},
      {R"({"filters": {}})", "filters: a list is wanted"},
      {R"({"filters": null})", "filters: a list is wanted"},
      {R"({"filters": [[]]})", "filters[0]: an object is wanted"},
      {R"({"filters": [{"FilterEntryID": "a"}, {"FilterEntryID": "b"}, {"FilterEntryID": "c"}, {"Status": "1"}]})",
       "filters[3].Status: a whole number is wanted"},
      {R"({"filters": [{"Status": 1.0}]})", "filters[0].Status: a whole number is wanted"},
      {R"({"filters": [{"Status": true}]})", "filters[0].Status: a whole number is wanted"},
      {R"({"filters": [{"Status": null}]})", "filters[0].Status: a whole number is wanted"},
      {R"({"filters": [{"Status": 2147483648}]})",
       "filters[0].Status: a whole number from -2147483648 to 2147483647 is wanted"},
      {R"({"filters": [{"Status": -2147483649}]})",
       "filters[0].Status: a whole number from -2147483648 to 2147483647 is wanted"},
      {R"({"filters": [{"Status": 18446744073709551615}]})",
       "filters[0].Status: a whole number from -2147483648 to 2147483647 is wanted"},
      {R"({"criteria": [{"Frequency": 32768}]})",
       "criteria[0].Frequency: a whole number from -32768 to 32767 is wanted"},
      {R"({"criteria": [{"Frequency": -32769}]})",
       "criteria[0].Frequency: a whole number from -32768 to 32767 is wanted"},
      {R"({"criteria": [{"RuleID": 1}]})", "criteria[0].RuleID: a text is wanted"},
      {R"({"tasks": [{"Values": ["a"]}]})", "tasks[0].Values: a text is wanted"},
      {R"({"tasks": [{"Note": "a"}]})", "tasks[0].Note: there is no such field"},
      {R"({"filters": [{"Order": 1}]})", "filters[0].Order: there is no such field"},
      {R"({"filters": [{"status": 1}]})", "filters[0].status: there is no such field"},
      {R"({"postoffices": [{"Name": null}]})", "postoffices[0].Name: a text is wanted"},
      {R"({"mailboxes": [{"Mailbox": "a", "Name": "b"}]})", "mailboxes[0].Name: there is no such field"},
      {R"({"options": [{"Scope": 40000}]})", "options[0].Scope: a whole number from -32768 to 32767 is wanted"},
      {R"({"options": [{"Value": 1}]})", "options[0].Value: a text is wanted"},
      {R"({"registry": [{"Key": "K"}]})", R"(registry[0].Kind: "word" or "string" is wanted)"},
      {R"({"registry": [{"Kind": "Word"}]})", R"(registry[0].Kind: "word" or "string" is wanted)"},
      {R"({"registry": [{"Kind": 1}]})", "registry[0].Kind: a text is wanted"},
      {R"({"registry": [{"Kind": "word", "Data": "1"}]})", "registry[0].Data: a whole number is wanted"},
      {R"({"registry": [{"Kind": "word", "Data": 4294967296}]})",
       "registry[0].Data: a whole number from -2147483648 to 4294967295 is wanted"},
      {R"({"registry": [{"Kind": "word", "Data": -2147483649}]})",
       "registry[0].Data: a whole number from -2147483648 to 4294967295 is wanted"},
      {R"({"registry": [{"Kind": "string", "Data": 1}]})", "registry[0].Data: a text is wanted"},
      {R"({"registry": [{"Kind": "string", "Word": 1}]})", "registry[0].Word: there is no such field"},
      {R"({"filters": [{"FilterEntryID": "a"}, {"FilterEntryID": "b"}, {"FilterEntryID": "a"}]})",
       "filters[2]: the same key as filters[0]"},
      {R"({"criteria": [{"CriteriaID": "a", "RuleID": "1"}, {"CriteriaID": "a", "RuleID": "1"}]})",
       "criteria[1]: the same key as criteria[0]"},
      {R"({"tasks": [{"ActionID": "a", "TaskID": "1", "Mailbox": "m"}, {"ActionID": "a", "TaskID": "1", "Mailbox": "m"}]})",
       "tasks[1]: the same key as tasks[0]"},
      {R"({"postoffices": [{"Name": "a"}, {"Name": "a", "Status": 1}]})",
       "postoffices[1]: the same key as postoffices[0]"},
      {R"({"mailboxes": [{"Postoffice": "a", "Mailbox": "b"}, {"Postoffice": "a", "Mailbox": "b"}]})",
       "mailboxes[1]: the same key as mailboxes[0]"},
      {R"({"options": [{"Query": "GLOBAL", "ValueName": "x"}, {"Query": "global", "ValueName": "X"}]})",
       "options[1]: the same key as options[0]"},
      {R"({"registry": [{"Key": "k", "ValueName": "v", "Kind": "word"}, {"Key": "K", "ValueName": "V", "Kind": "string"}]})",
       "registry[1]: the same key as registry[0]"},
  };
  for (const BadCase& bad : cases) EXPECT_EQ(Malformed(bad.json), bad.message) << bad.json;
}

TEST(ExchangeTest, OneKeyMayStandInTwoScopes) {
  EXPECT_EQ(Malformed(R"({"filters": [{"FilterEntryID": "a"}, {"FilterEntryID": "a", "Postoffice": "p"},
                           {"FilterEntryID": "a", "Postoffice": "p", "Mailbox": "m"}, {"FilterEntryID": "A"}]})"),
            "well-formed");
}

TEST(ExchangeTest, DeepNestingIsRefusedAndNotFollowed) {
  EXPECT_THAT(Malformed(std::string(100000, '[')), testing::HasSubstr("this is no JSON"));
}

TEST(ExchangeTest, AFieldLeftOutIsEmptyOrZero) {
  const DataSet data =
      ReadDataSet(R"({"criteria": [{}], "registry": [{"Kind": "word"}, {"Kind": "string", "Key": "a"}]})");
  EXPECT_FALSE(data.filters);
  ASSERT_TRUE(data.criteria);
  EXPECT_EQ(data.criteria->at(0).RuleID, "");
  EXPECT_EQ(data.criteria->at(0).Status, 0);
  EXPECT_EQ(data.criteria->at(0).Frequency, 0);
  EXPECT_EQ(data.registry->at(0).Word, 0);
  EXPECT_EQ(data.registry->at(1).Text, "");
}

class ExchangeDatabaseTest : public StoreTest {
 protected:
  void Import(const std::string& json) { StoreDataSet(servers.Of(""), ReadDataSet(json)); }
  std::string Export() { return WriteDataSet(LoadDataSet(servers.Of(""))); }
};

constexpr const char* kEverything = R"({
"filters": [
  {"FilterEntryID":"FLT2","CriteriaID":"CRT2","ActionID":"","Description":"Grüße","Note":"","Status":7,"Postoffice":"","Mailbox":""},
  {"FilterEntryID":"FLT1","CriteriaID":"","ActionID":"","Description":"a\u0000b\r\n\"","Note":"","Status":-2147483648,"Postoffice":"","Mailbox":""},
  {"FilterEntryID":"FLT1","CriteriaID":"","ActionID":"","Description":"","Note":"","Status":0,"Postoffice":"abc","Mailbox":"joe"}
],
"criteria": [
  {"CriteriaID":"CRT2","RuleID":"odd","CriteriaType":"","Description":"","Status":2147483647,"Values":"<REFERENCE>","Frequency":-32768,"Postoffice":"","Mailbox":""},
  {"CriteriaID":"CRT1","RuleID":"1","CriteriaType":"","Description":"","Status":0,"Values":"","Frequency":32767,"Postoffice":"","Mailbox":""}
],
"tasks": [
  {"ActionID":"CRT2","TaskID":"B","TaskType":"UNKNOWN","Description":"","Status":1,"Values":"","Postoffice":"","Mailbox":""},
  {"ActionID":"CRT2","TaskID":"A","TaskType":"","Description":"","Status":1,"Values":"","Postoffice":"","Mailbox":""}
],
"postoffices": [
  {"Name":"z","Account":"","Status":1},
  {"Name":"abc","Account":"acc","Status":0}
],
"mailboxes": [
  {"Postoffice":"abc","Mailbox":"joe"}
],
"options": [
  {"Scope":2,"Query":"abc/joe","ValueName":"MailBox-MailboxRulesStatus","Value":"1"}
],
"registry": [
  {"Key":"K","ValueName":"w","Kind":"word","Data":4294967295},
  {"Key":"K","ValueName":"s","Kind":"string","Data":"text"}
]
}
)";

constexpr const char* kNothing = R"({
"filters": [],
"criteria": [],
"tasks": [],
"postoffices": [],
"mailboxes": [],
"options": [],
"registry": []
}
)";

TEST_F(ExchangeDatabaseTest, WhatIsImportedIsExportedAgain) {
  EXPECT_EQ(Export(), kNothing);
  Import(kEverything);
  EXPECT_EQ(Export(), kEverything);
  Import(kEverything);
  EXPECT_EQ(Export(), kEverything);
}

TEST_F(ExchangeDatabaseTest, ASectionReplacesTheWholeAndTheOthersStay) {
  Import(kEverything);
  Import(R"({"filters": [{"FilterEntryID": "only"}], "tasks": []})");
  const DataSet data = LoadDataSet(servers.Of(""));
  ASSERT_EQ(data.filters->size(), 1u);
  EXPECT_EQ(data.filters->at(0).FilterEntryID, "only");
  EXPECT_TRUE(data.tasks->empty());
  EXPECT_EQ(data.criteria->size(), 2u);
  EXPECT_EQ(data.registry->size(), 2u);
  Import("{}");
  EXPECT_EQ(LoadDataSet(servers.Of("")).criteria->size(), 2u);
}

TEST_F(ExchangeDatabaseTest, ANegativeWordIsIts32Bits) {
  Import(R"({"registry": [{"Key": "K", "ValueName": "V", "Kind": "word", "Data": -1},
                          {"Key": "K", "ValueName": "W", "Kind": "word", "Data": -2147483648}]})");
  EXPECT_EQ(servers.MakeRegistry()->Read("K", "V")->word, 4294967295u);
  EXPECT_EQ(servers.MakeRegistry()->Read("K", "W")->word, 2147483648u);
  EXPECT_THAT(Export(), testing::HasSubstr(R"("Data":2147483648)"));
}

TEST_F(ExchangeDatabaseTest, ImportedFiltersKeepTheirOrderAndNewOnesFollow) {
  Import(R"({"filters": [{"FilterEntryID": "B"}, {"FilterEntryID": "P", "Postoffice": "p"}, {"FilterEntryID": "A"}]})");
  auto filter = Bound(components->CreateFilter());
  filter->FilterEntryID = "C";
  filter->AddFilter();
  filter = Bound(components->CreateFilter());
  filter->FilterEntryID = "C";
  ASSERT_EQ(filter->getfilter(), 1);
  EXPECT_EQ(filter->Order, 3);
  std::string ids;
  const DataSet data = LoadDataSet(servers.Of(""));
  for (const FilterRow& row : *data.filters) ids += row.FilterEntryID;
  EXPECT_EQ(ids, "BACP");
}

TEST_F(ExchangeDatabaseTest, TextThatIsNoUtf8IsExportedValid) {
  auto filter = Bound(components->CreateFilter());
  filter->FilterEntryID = "A";
  filter->Description = "x\xFFy";
  filter->AddFilter();
  EXPECT_THAT(Export(), testing::HasSubstr("\"Description\":\"x\xEF\xBF\xBDy\""));
}

}  // namespace
}  // namespace qv
