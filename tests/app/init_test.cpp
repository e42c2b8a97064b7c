#include "store/exchange.h"
#include "tests/app/app_fixture.h"

namespace qv {
namespace {

using testing::HasSubstr;
using testing::UnorderedElementsAre;

class InitTest : public AppTest {};

TEST_F(InitTest, MakesTheDatabaseTheFoldersAndTheRegistryValue) {
  Init();
  EXPECT_THAT(FilesBelow(config),
              UnorderedElementsAre("Filters/", "Filters/Criteria/", "Filters/templates/", "Filters/patterns/"));
  EXPECT_EQ(Out({"data", "export", "--data", data}), R"({
"filters": [],
"criteria": [],
"tasks": [],
"postoffices": [],
"mailboxes": [],
"options": [],
"registry": [
  {"Key":"SOFTWARE\\Quillvane\\Quillvane","ValueName":"Configuration Directory","Kind":"string","Data":"DIR/data/config"}
]
}
)");
}

TEST_F(InitTest, FoldersThatAreThereCountWithoutRegardToCase) {
  fs::create_directories(fs::path(config) / "filters" / "CRITERIA");
  Init();
  EXPECT_THAT(FilesBelow(config),
              UnorderedElementsAre("filters/", "filters/CRITERIA/", "filters/templates/", "filters/patterns/"));
}

TEST_F(InitTest, TheRegisteredPathIsWhole) {
  fs::create_directory(directory.path() / "here");
  const std::string roundabout = (directory.path() / "here" / ".." / "data").string();
  EXPECT_EQ(Out({"init", "--data", roundabout}), "Made the server 'DIR/data'.\n");
}

TEST_F(InitTest, ASecondTimeIsRefusedAndChangesNothing) {
  Init();
  fs::remove_all(config);
  EXPECT_EQ(Refused({"init", "--data", data}), "qvadmin: there is a database 'DIR/data/quillvane.db' already\n");
  EXPECT_EQ(Refused({"init", "--data", data, "--demo"}),
            "qvadmin: there is a database 'DIR/data/quillvane.db' already\n");
  EXPECT_FALSE(fs::exists(config));
  EXPECT_THAT(Out({"data", "export", "--data", data}), HasSubstr("\"filters\": []"));
}

TEST_F(InitTest, AForeignFileOfThatNameIsRefusedToo) {
  fs::create_directory(data);
  std::ofstream(fs::path(data) / "quillvane.db") << "mine";
  EXPECT_EQ(Refused({"init", "--data", data}), "qvadmin: there is a database 'DIR/data/quillvane.db' already\n");
  EXPECT_EQ(fs::file_size(fs::path(data) / "quillvane.db"), 4u);
}

TEST_F(InitTest, ADirectoryThatCantBeMadeLeavesNothing) {
  std::ofstream(directory.path() / "file") << "x";
  const std::string below = (directory.path() / "file" / "data").string();
  EXPECT_THAT(Refused({"init", "--data", below}), HasSubstr("can't be made"));
}

TEST_F(InitTest, ADirectoryWithoutANameIsRefused) {
  EXPECT_EQ(Refused({"init", "--data", ""}), "qvadmin: the directory '' has no usable name\n");
}

// Every filter has its 24 criteria, every task and mailbox belongs to something, and every reference to a file holds.
void CheckDemo(const DataSet& demo, const fs::path& config) {
  std::map<std::vector<std::string>, int> criteria;
  for (const CriteriaRow& row : *demo.criteria) ++criteria[{row.Postoffice, row.Mailbox, row.CriteriaID}];
  std::set<std::vector<std::string>> filters;
  std::set<int> scopes;
  for (const FilterRow& row : *demo.filters) {
    filters.insert({row.Postoffice, row.Mailbox, row.CriteriaID});
    scopes.insert(row.Postoffice.empty() ? 0 : row.Mailbox.empty() ? 1 : 2);
    if (row.FilterEntryID == "{SPAM_FILTER}") continue;
    EXPECT_EQ(row.FilterEntryID.substr(3), row.CriteriaID.substr(3));
    EXPECT_EQ((criteria[{row.Postoffice, row.Mailbox, row.CriteriaID}]), 24) << row.Description;
  }
  EXPECT_EQ(scopes, (std::set<int>{0, 1, 2}));
  for (const TaskRow& row : *demo.tasks) {
    EXPECT_EQ(filters.count({row.Postoffice, row.Mailbox, row.ActionID}), 1u) << row.Description;
    EXPECT_NE(row.Description, "") << row.TaskType;
    const std::string& values = row.Values;
    const std::size_t at = values.find("QVFILTER-");
    if (row.TaskType.rfind("NOTIFY", 0) != 0 || at == std::string::npos) continue;
    const std::string name = values.substr(at, values.find('<', at) - at);
    EXPECT_TRUE(fs::exists(config / "Filters/templates" / (name + ".TXT")) ||
                fs::exists(config / "Filters/templates" / (name + ".txt")))
        << name;
  }
  std::set<std::string> postoffices;
  for (const PostofficeRow& row : *demo.postoffices) {
    postoffices.insert(row.Name);
    EXPECT_TRUE(fs::is_directory(config / "postoffices" / row.Name / "rules/Criteria"));
  }
  for (const MailboxRow& row : *demo.mailboxes) {
    EXPECT_EQ(postoffices.count(row.Postoffice), 1u) << row.Mailbox;
    EXPECT_TRUE(fs::is_directory(config / "postoffices" / row.Postoffice / "mailboxes" / row.Mailbox / "rules"));
  }
  for (const CriteriaRow& row : *demo.criteria) {
    const std::string mark = "<REFERENCE><FILE>";
    if (row.Values.rfind(mark, 0) != 0) continue;
    const std::string name = row.Values.substr(mark.size(), row.Values.find("</FILE>") - mark.size());
    fs::path folder = config / "Filters/patterns";
    if (!row.Postoffice.empty()) folder = config / "postoffices" / row.Postoffice / "rules";
    if (!row.Mailbox.empty()) folder = config / "postoffices" / row.Postoffice / "mailboxes" / row.Mailbox / "rules";
    EXPECT_TRUE(fs::exists(folder / name)) << folder / name;
  }
}

std::string BytesOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

TEST_F(InitTest, TheDemonstrationServersAreWhole) {
  EXPECT_EQ(Out({"init", "--data", data, "--demo"}), "Made the server 'DIR/data' with demonstration data.\n");
  const std::string text = RunProgram({"data", "export", "--data", data}).out;
  const DataSet demo = ReadDataSet(text);
  CheckDemo(demo, config);
  EXPECT_EQ(demo.postoffices->size(), 6u);
  EXPECT_GE(demo.mailboxes->size(), 30u);
  EXPECT_GE(demo.filters->size(), 30u);

  const std::string other = (directory.path() / "other").string();
  Out({"init", "--data", other, "--demo", "--demo-variant", "2"});
  const DataSet second = ReadDataSet(RunProgram({"data", "export", "--data", other}).out);
  CheckDemo(second, fs::path(other) / "config");
  EXPECT_NE(second.postoffices->at(0).Name, demo.postoffices->at(0).Name);
  EXPECT_NE(second.filters->at(0).FilterEntryID, demo.filters->at(0).FilterEntryID);
}

TEST_F(InitTest, TheDemonstrationScriptTemplateHasEveryToken) {
  Out({"init", "--data", data, "--demo"});
  const std::string script = BytesOf(config / "Filters/templates/{SPAM_FILTER}.QVS");
  for (const char* token : {"[QV_LOWSPAM]", "[QV_MEDSPAM]", "[QV_HISPAM]"}) EXPECT_THAT(script, HasSubstr(token));
  std::istringstream defaults(BytesOf(config / "SPAMVAL.DEF"));
  int tests = 0;
  for (std::string line; std::getline(defaults, line); ++tests) {
    const std::string word = line.substr(0, line.find(']'));
    EXPECT_EQ(std::count(line.begin(), line.end(), '\t'), 3) << line;
    EXPECT_EQ(word.find('-'), std::string::npos) << line;
    EXPECT_THAT(script, HasSubstr(word + "_POS]"));
    EXPECT_THAT(script, HasSubstr(word + "_NEG]"));
  }
  EXPECT_EQ(tests, 32);
}

TEST_F(InitTest, WrongUse) {
  EXPECT_EQ(Run({"init"}).status, 2);
  EXPECT_EQ(Run({"init", "--data", data, "--demo-variant", "2"}).status, 2);
  EXPECT_EQ(Run({"init", "--data", data, "--demo", "--demo-variant", "3"}).status, 2);
  EXPECT_EQ(Run({"init", "--data", data, "extra"}).status, 2);
  EXPECT_FALSE(fs::exists(data));
}

}  // namespace
}  // namespace qv
