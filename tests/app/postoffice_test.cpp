#include "tests/app/app_fixture.h"

namespace qv {
namespace {

using testing::HasSubstr;

class PostofficeTest : public AppTest {
 protected:
  void SetUp() override { Init(); }

  std::vector<std::string> Postoffice(const std::string& verb, std::vector<std::string> rest = {}) const {
    rest.insert(rest.begin(), {"postoffice", verb, "--data", data});
    return rest;
  }
  std::vector<std::string> Mailbox(const std::string& verb, std::vector<std::string> rest = {}) const {
    rest.insert(rest.begin(), {"mailbox", verb, "--data", data});
    return rest;
  }
  void Import(const std::string& json) const { Out({"data", "import", "--data", data, "-"}, json); }
};

TEST_F(PostofficeTest, AddingMakesTheRowAndTheFolders) {
  EXPECT_EQ(Out(Postoffice("add", {"beta.example.com", "--account", "Beta"})),
            "Added the postoffice 'beta.example.com'.\n");
  EXPECT_EQ(Out(Postoffice("add", {"alpha"})), "Added the postoffice 'alpha'.\n");
  EXPECT_EQ(Out(Postoffice("list")), "beta.example.com\nalpha\n");
  EXPECT_TRUE(fs::is_directory(config / "postoffices/beta.example.com/rules/Criteria"));
  EXPECT_TRUE(fs::is_directory(config / "postoffices/alpha/mailboxes"));
  EXPECT_THAT(Out({"data", "export", "--data", data}),
              HasSubstr(R"({"Name":"beta.example.com","Account":"Beta","Status":1})"));
  EXPECT_EQ(Out(Mailbox("add", {"ALPHA", "joe"})), "Added the mailbox 'joe' to 'alpha'.\n");
  EXPECT_EQ(Out(Mailbox("add", {"alpha", "ann"})), "Added the mailbox 'ann' to 'alpha'.\n");
  EXPECT_EQ(Out(Mailbox("list", {"Alpha"})), "joe\nann\n");
  EXPECT_TRUE(fs::is_directory(config / "postoffices/alpha/mailboxes/joe/rules"));
}

TEST_F(PostofficeTest, NamesAreUniqueWithoutRegardToCase) {
  Out(Postoffice("add", {"Käse"}));
  EXPECT_EQ(Refused(Postoffice("add", {"KÄSE"})), "qvadmin: there is a postoffice 'Käse' already\n");
  Out(Mailbox("add", {"käse", "Joe"}));
  EXPECT_EQ(Refused(Mailbox("add", {"käse", "JOE"})), "qvadmin: there is a mailbox 'Joe' in 'Käse' already\n");
  EXPECT_EQ(Refused(Mailbox("add", {"none", "JOE"})), "qvadmin: there is no postoffice 'none'\n");
  EXPECT_EQ(Refused(Mailbox("list", {"none"})), "qvadmin: there is no postoffice 'none'\n");
}

TEST_F(PostofficeTest, FoldersThatAreThereInAnotherCaseAreTaken) {
  fs::create_directories(config / "PostOffices" / "ABC" / "Rules");
  Out(Postoffice("add", {"abc"}));
  EXPECT_TRUE(fs::is_directory(config / "PostOffices/ABC/Rules/Criteria"));
  EXPECT_FALSE(fs::exists(config / "postoffices"));
}

TEST_F(PostofficeTest, NamesThatAreNoFolders) {
  const std::pair<const char*, const char*> names[] = {
      {"", "can't be empty"},
      {"..", "can't begin or end with a dot"},
      {".", "can't begin or end with a dot"},
      {".hidden", "can't begin or end with a dot"},
      {"a.", "can't begin or end with a dot"},
      {" a", "can't begin or end with a blank"},
      {"a ", "can't begin or end with a blank"},
      {"a/b", "can't hold \"/\""},
      {"a\\b", "can't hold \"\\\""},
      {"a:b", "can't hold \":\""},
      {"a*", "can't hold \"*\""},
      {"a\nb", "can't hold control characters"},
      {"a\x7F", "can't hold control characters"},
      {"a\xFF", "must be UTF-8 text"},
  };
  Out(Postoffice("add", {"abc"}));
  for (const auto& [name, why] : names) {
    EXPECT_EQ(Refused(Postoffice("add", {name})), std::string("qvadmin: the name of a postoffice ") + why + "\n");
    EXPECT_EQ(Refused(Mailbox("add", {"abc", name})), std::string("qvadmin: the name of a mailbox ") + why + "\n");
  }
  EXPECT_THAT(Refused(Postoffice("add", {std::string(256, 'x')})), HasSubstr("longer than 255 bytes"));
  EXPECT_EQ(Out(Postoffice("list")), "abc\n");
}

TEST_F(PostofficeTest, AnEmptyPostofficeIsRemovedWithItsFolders) {
  Out(Postoffice("add", {"abc"}));
  EXPECT_EQ(Out(Postoffice("remove", {"ABC"})),
            "Removed the postoffice 'abc' with 0 mailboxes, 0 filters and 0 files.\n");
  EXPECT_EQ(Out(Postoffice("list")), "");
  EXPECT_FALSE(fs::exists(config / "postoffices/abc"));
  EXPECT_EQ(Refused(Postoffice("remove", {"abc"})), "qvadmin: there is no postoffice 'abc'\n");
}

TEST_F(PostofficeTest, OneWithContentIsRemovedByForceOnly) {
  Out(Postoffice("add", {"abc"}));
  Out(Mailbox("add", {"abc", "joe"}));
  Import(R"({"filters": [{"FilterEntryID": "S"}, {"FilterEntryID": "A", "Postoffice": "abc"},
                         {"FilterEntryID": "B", "Postoffice": "abc", "Mailbox": "joe"}]})");
  std::ofstream(config / "postoffices/abc/rules/Criteria/CRT1.QVS") << "x";
  EXPECT_EQ(Refused(Postoffice("remove", {"abc"})),
            "qvadmin: the postoffice 'abc' has 1 mailboxes, 2 filters and 1 files; --force removes it with all of "
            "them\n");
  EXPECT_TRUE(fs::exists(config / "postoffices/abc/rules/Criteria/CRT1.QVS"));
  EXPECT_EQ(Out(Mailbox("list", {"abc"})), "joe\n");
  EXPECT_EQ(Out(Postoffice("remove", {"abc", "--force"})),
            "Removed the postoffice 'abc' with 1 mailboxes, 2 filters and 1 files.\n");
  EXPECT_FALSE(fs::exists(config / "postoffices/abc"));
  const std::string rows = Out({"data", "export", "--data", data});
  EXPECT_THAT(rows, HasSubstr(R"("FilterEntryID":"S")"));
  EXPECT_THAT(rows, testing::Not(HasSubstr("abc")));
}

TEST_F(PostofficeTest, AMailboxWithContentIsRemovedByForceOnly) {
  Out(Postoffice("add", {"abc"}));
  Out(Mailbox("add", {"abc", "joe"}));
  Out(Mailbox("add", {"abc", "ann"}));
  EXPECT_EQ(Out(Mailbox("remove", {"abc", "ann"})), "Removed the mailbox 'ann' of 'abc' with 0 filters and 0 files.\n");
  Import(R"({"filters": [{"FilterEntryID": "B", "Postoffice": "abc", "Mailbox": "joe"}]})");
  EXPECT_EQ(Refused(Mailbox("remove", {"abc", "JOE"})),
            "qvadmin: the mailbox 'joe' has 1 filters and 0 files; --force removes it with all of them\n");
  EXPECT_EQ(Out(Mailbox("remove", {"abc", "JOE", "--force"})),
            "Removed the mailbox 'joe' of 'abc' with 1 filters and 0 files.\n");
  EXPECT_EQ(Refused(Mailbox("remove", {"abc", "joe"})), "qvadmin: there is no mailbox 'joe' in 'abc'\n");
  EXPECT_FALSE(fs::exists(config / "postoffices/abc/mailboxes/joe"));
  EXPECT_TRUE(fs::exists(config / "postoffices/abc/mailboxes"));
  EXPECT_THAT(Out({"data", "export", "--data", data}), HasSubstr("\"filters\": []"));
}

TEST_F(PostofficeTest, ALinkIsNotFollowedByARemoval) {
  TemporaryDirectory outside;
  std::ofstream(outside.path() / "precious") << "x";
  Out(Postoffice("add", {"abc"}));
  fs::create_directory_symlink(outside.path(), config / "postoffices/abc/rules/link");
  Out(Postoffice("remove", {"abc", "--force"}));
  EXPECT_TRUE(fs::exists(outside.path() / "precious"));
}

TEST_F(PostofficeTest, WithoutAConfigurationDirectoryNothingIsAdded) {
  Import(R"({"registry": []})");
  EXPECT_EQ(Refused(Postoffice("add", {"abc"})),
            "qvadmin: the registry value \"Configuration Directory\" names no directory\n");
  EXPECT_EQ(Out(Postoffice("list")), "");
}

TEST_F(PostofficeTest, AWordThatIsNoCommandIsNamed) {
  for (const auto& wrong : std::vector<std::vector<std::string>>{
           {"nonsense"}, {"postoffice", "nonsense"}, {"postoffice", "nonsense", "--help-me"}, {"data", "nonsense"}}) {
    EXPECT_THAT(Run(wrong).err, HasSubstr("nonsense")) << testing::PrintToString(wrong);
  }
  EXPECT_THAT(Run({"postoffice"}).err, HasSubstr("A subcommand is required"));
}

TEST_F(PostofficeTest, WrongUseAndHelp) {
  for (const auto& wrong : std::vector<std::vector<std::string>>{{},
                                                                 {"nonsense"},
                                                                 {"postoffice"},
                                                                 {"postoffice", "add", "abc"},
                                                                 Postoffice("add"),
                                                                 Postoffice("add", {"a", "b"}),
                                                                 Mailbox("add", {"a"})}) {
    const ProgramResult result = Run(wrong);
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err, "");
    EXPECT_EQ(result.out, "");
  }
  for (const auto& command : std::vector<std::vector<std::string>>{{},
                                                                   {"init"},
                                                                   {"data"},
                                                                   {"data", "export"},
                                                                   {"data", "import"},
                                                                   {"postoffice"},
                                                                   {"postoffice", "add"},
                                                                   {"postoffice", "remove"},
                                                                   {"postoffice", "list"},
                                                                   {"mailbox"},
                                                                   {"mailbox", "add"},
                                                                   {"mailbox", "remove"},
                                                                   {"mailbox", "list"}}) {
    std::vector<std::string> arguments = command;
    arguments.push_back("--help");
    EXPECT_THAT(Out(arguments), HasSubstr("Usage: ")) << testing::PrintToString(command);
  }
}

}  // namespace
}  // namespace qv
