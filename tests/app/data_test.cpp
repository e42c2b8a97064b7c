#include "tests/app/app_fixture.h"

namespace qv {
namespace {

using testing::HasSubstr;

class DataTest : public AppTest {
 protected:
  void SetUp() override { Init(); }
  std::string Export() const { return Out({"data", "export", "--data", data}); }
};

TEST_F(DataTest, ImportFromAFileAndFromStandardInput) {
  std::ofstream(directory.path() / "rows.json") << R"({"postoffices": [{"Name": "abc"}, {"Name": "xyz"}]})";
  EXPECT_EQ(Out({"data", "import", "--data", data, (directory.path() / "rows.json").string()}),
            "Imported 2 postoffices.\n");
  EXPECT_EQ(Out({"data", "import", "--data", data, "-"}, R"({"filters": [{}], "mailboxes": []})"),
            "Imported 1 filters, 0 mailboxes.\n");
  EXPECT_EQ(Out({"data", "import", "--data", data, "-"}, "{}"), "Imported nothing.\n");
  EXPECT_THAT(Export(), HasSubstr(R"({"Name":"xyz","Account":"","Status":0})"));
}

TEST_F(DataTest, MalformedInputChangesNothingAndIsToldByItsPlace) {
  Out({"data", "import", "--data", data, "-"}, R"({"filters": [{"FilterEntryID": "kept"}]})");
  const std::string before = Export();
  EXPECT_EQ(Refused({"data", "import", "--data", data, "-"},
                    R"({"filters": [{"FilterEntryID": "new"}], "criteria": [{}, {"RuleID": "2", "Status": "x"}]})"),
            "qvadmin: criteria[1].Status: a whole number is wanted\n");
  EXPECT_EQ(Refused({"data", "import", "--data", data, "-"}, "{\"filters\": [\n{]}"),
            "qvadmin: line 2, column 2: this is no JSON (syntax error)\n");
  EXPECT_EQ(Refused({"data", "import", "--data", data, "-"}, R"({"filters": [], "unknown": []})"),
            "qvadmin: unknown: there is no such section\n");
  EXPECT_EQ(Export(), before);
}

TEST_F(DataTest, FilesThatCantBeRead) {
  EXPECT_EQ(Refused({"data", "import", "--data", data, (directory.path() / "none").string()}),
            "qvadmin: the file 'DIR/none' can't be read\n");
  EXPECT_EQ(Refused({"data", "import", "--data", data, directory.path().string()}),
            "qvadmin: the file 'DIR' can't be read\n");
}

TEST_F(DataTest, AMissingDatabaseIsNamed) {
  const std::string none = (directory.path() / "none").string();
  EXPECT_EQ(Refused({"data", "export", "--data", none}), "qvadmin: The database 'DIR/none/quillvane.db' is missing.\n");
  EXPECT_EQ(Refused({"data", "import", "--data", none, "-"}, "{}"),
            "qvadmin: The database 'DIR/none/quillvane.db' is missing.\n");
}

TEST_F(DataTest, OutputThatCantBeWrittenIsTold) {
  EXPECT_EQ(std::system(("'" QVADMIN_PATH "' data export --data '" + data + "' >/dev/full 2>'" +
                         (directory.path() / "err").string() + "'")
                            .c_str()),
            256);
  std::ifstream err(directory.path() / "err");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(err), {}), "qvadmin: the output can't be written\n");
}

TEST_F(DataTest, WrongUse) {
  EXPECT_EQ(Run({"data"}).status, 2);
  EXPECT_EQ(Run({"data", "export"}).status, 2);
  EXPECT_EQ(Run({"data", "import", "--data", data}).status, 2);
  EXPECT_EQ(Run({"data", "drop", "--data", data}).status, 2);
}

}  // namespace
}  // namespace qv
