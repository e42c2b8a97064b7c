#include "actions/dir_selection.h"

#include <map>

#include "platform/runtime_error.h"
#include "tests/actions/action_fixture.h"

namespace qv::test {
namespace {

using Items = std::vector<std::string>;

// Two drives; "D:" has no disk in it.
class FakeFolders : public Folders {
 public:
  std::map<std::string, Items> folders = {
      {"C:\\", {"Config", "Mail"}}, {"C:\\Config", {"Filters"}}, {"C:\\Config\\Filters", {}}, {"E:\\", {}}};
  bool fail_paths = false;

  std::string GetAbsolutePathName(const std::string& path) override {
    if (fail_paths) throw RuntimeError(52, "Bad file name or number");
    return path.find(':') == std::string::npos ? "C:\\" + path : path;
  }
  std::string GetDriveName(const std::string& path) override { return path.substr(0, path.find(':') + 1); }
  Items DriveNames() override { return {"C:", "D:", "E:"}; }
  std::string CurrentFolder(const std::string& drive) override {
    if (drive == "D:") throw RuntimeError(68, "Device unavailable");
    return drive + "\\";
  }
  Items FolderNames(const std::string& folder) override {
    const auto found = folders.find(folder);
    if (found == folders.end()) throw RuntimeError(76, "Path not found");
    return found->second;
  }
};

class DirSelection : public ::testing::Test {
 protected:
  std::string Select(const std::string& path, const std::function<void(Person&)>& visit) {
    t.desktop.Visit([&](Form& form) {
      Person person(form);
      visit(person);
      form.Unload();
    });
    return dialog.SelectDir(path);
  }

  TestRun t;
  FakeFolders folders;
  frmDirSelection dialog{t.desktop, folders};
};

TEST_F(DirSelection, FixedTexts) {
  Select("C:\\", [&](Person&) {
    EXPECT_EQ(dialog.Caption(), "Select Directory");
    EXPECT_EQ(dialog.cmdOK.Caption(), "OK");
    EXPECT_EQ(dialog.cmdCancel.Caption(), "Cancel");
    EXPECT_EQ(dialog.dirDrive.Items(), (Items{"C:", "D:", "E:"}));
    ExpectWholeLayout(dialog);
  });
}

TEST_F(DirSelection, StartsAtThePathAndGivesItBack) {
  const std::string chosen = Select("C:\\Config", [&](Person& person) {
    EXPECT_EQ(dialog.dirDrive.Text(), "C:");
    EXPECT_EQ(dialog.dirDir.Items(), (Items{"C:\\", "Config", "Filters"}));
    EXPECT_EQ(dialog.dirDir.ListIndex(), 1);
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
  });
  EXPECT_EQ(chosen, "C:\\Config");
}

TEST_F(DirSelection, ADoubleClickGoesDownAndUp) {
  EXPECT_EQ(Select("C:\\Config",
                   [&](Person& person) {
                     person.Open("dirDir", 2);
                     EXPECT_EQ(dialog.dirDir.Items(), (Items{"C:\\", "Config", "Filters"}));
                     EXPECT_EQ(dialog.dirDir.ListIndex(), 2);
                     person.Click("cmdOK");
                   }),
            "C:\\Config\\Filters");
  EXPECT_EQ(Select("C:\\Config\\Filters",
                   [&](Person& person) {
                     person.Open("dirDir", 0);
                     EXPECT_EQ(dialog.dirDir.Items(), (Items{"C:\\", "Config", "Mail"}));
                     person.Click("cmdOK");
                   }),
            "C:\\");
}

TEST_F(DirSelection, CancelGivesNothing) {
  EXPECT_EQ(Select("C:\\Config", [](Person& person) { person.Click("cmdOK"); }), "C:\\Config");
  EXPECT_EQ(Select("C:\\Config", [](Person& person) { person.Click("cmdCancel"); }), "");
  EXPECT_EQ(Select("C:\\Config", [](Person& person) { person.Close(); }), "");
}

TEST_F(DirSelection, AnotherDrive) {
  EXPECT_EQ(Select("C:\\Config",
                   [&](Person& person) {
                     person.Pick("dirDrive", 2);
                     EXPECT_EQ(dialog.dirDir.Items(), (Items{"E:\\"}));
                     person.Click("cmdOK");
                   }),
            "E:\\");
}

TEST_F(DirSelection, ADeviceThatFailsIsTold) {
  EXPECT_EQ(Select("C:\\Config",
                   [&](Person& person) {
                     person.Pick("dirDrive", 1);
                     EXPECT_EQ(t.desktop.TakeMessages(),
                               (std::vector<ShownMessage>{
                                   {"Error with device: Device unavailable", "Error", MessageIcon::Exclamation}}));
                     person.Click("cmdOK");
                   }),
            "C:\\Config");
}

TEST_F(DirSelection, APathThatIsNotThereIsNoError) {
  EXPECT_EQ(Select("E:\\Gone",
                   [&](Person& person) {
                     EXPECT_EQ(dialog.dirDrive.Text(), "E:");
                     person.Click("cmdOK");
                   }),
            "E:\\");
  EXPECT_EQ(Select("X:\\Gone",
                   [&](Person& person) {
                     EXPECT_EQ(dialog.dirDrive.Text(), "C:");
                     person.Click("cmdOK");
                   }),
            "C:\\");
  EXPECT_TRUE(t.desktop.messages.empty());
}

TEST_F(DirSelection, EachStepOfTheStartIsTriedByItself) {
  folders.fail_paths = true;
  EXPECT_EQ(Select("C:\\Config", [](Person& person) { person.Click("cmdOK"); }), "C:\\Config");
}

}  // namespace
}  // namespace qv::test
