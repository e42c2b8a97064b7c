#include "criteria/word_list_dialog.h"
#include "tests/criteria/criteria_test.h"

namespace qv::test {
namespace {

struct WordListFiles : CriteriaTest {
  // Opens row 1, new, and does the visit.
  int Fresh(Visit visit) {
    Put("1", 1, "");
    return Open("1", std::move(visit));
  }
  void PutPattern(const std::string& file_name) { files.Put("C:\\Config\\filters\\patterns\\" + file_name, "x"); }
};

TEST_F(WordListFiles, WithoutWordFilesEditIsOff) {
  Fresh([](Form& form) {
    EXPECT_EQ(Items(form, "cboPattern"), Texts());
    EXPECT_EQ(Get<ComboBox>(form, "cboPattern").ListIndex(), -1);
    EXPECT_FALSE(IsOn(form, "cmdEdit"));
    EXPECT_TRUE(IsOn(form, "cboPattern"));
    Person(form).Click("optUseExternal");
    EXPECT_FALSE(IsOn(form, "cmdEdit"));
    form.Unload();
  });
}

TEST_F(WordListFiles, ListsTheFilesOfItsFormOnly) {
  for (const char* name : {"QVFILTER-a.txt", "QVFILTER-b c.TXT", "QVFILTER-d.tXt", "QVFILTER-e.txt.Txt",
                           "qvfilter-f.txt", "QVFilter-g.txt", "QVFILTER-h.doc", "QVFILTER-itxt", "xQVFILTER-j.txt",
                           "QVFILTER", "QVFILTER-", "QVFILTER-txt", "other.txt"}) {
    PutPattern(name);
  }
  files.Put("C:\\Config\\filters\\patterns\\QVFILTER-folder.txt\\x", "x");
  Fresh([](Form& form) {
    EXPECT_EQ(Items(form, "cboPattern"), Texts({"a", "b c", "d", "e.txt"}));
    EXPECT_EQ(Get<ComboBox>(form, "cboPattern").ListIndex(), 0);
    form.Unload();
  });
}

TEST_F(WordListFiles, AFileWithoutANameIsListedAsSuch) {
  PutPattern("QVFILTER-.txt");
  Fresh([](Form& form) {
    EXPECT_EQ(Items(form, "cboPattern"), Texts({""}));
    Person(form).Click("optUseExternal");
    Person(form).Click("cmdOK");
  });
  EXPECT_EQ(Row("1").Values, "<REFERENCE><FILE>QVFILTER-.TXT</FILE></REFERENCE>");
}

TEST_F(WordListFiles, TheFolderFollowsTheScope) {
  files.Put("C:\\Config\\filters\\patterns\\QVFILTER-system.txt", "x");
  files.Put("C:\\Config\\postoffices\\abc\\rules\\QVFILTER-postoffice.txt", "x");
  files.Put("C:\\Config\\postoffices\\abc\\mailboxes\\joe\\rules\\QVFILTER-mailbox.txt", "x");
  const auto expect = [this](const std::string& pattern, const std::string& path) {
    Fresh([&](Form& form) {
      EXPECT_EQ(Items(form, "cboPattern"), Texts({pattern}));
      Person(form).Click("cmdEdit");
      form.Unload();
    });
    EXPECT_EQ(desktop.programs.back(), "notepad \"" + path + "\"");
  };
  expect("system", "C:\\Config\\filters\\patterns\\QVFILTER-system.TXT");
  postoffice = "abc";
  expect("postoffice", "C:\\Config\\postoffices\\abc\\rules\\QVFILTER-postoffice.TXT");
  mailbox = "joe";
  expect("mailbox", "C:\\Config\\postoffices\\abc\\mailboxes\\joe\\rules\\QVFILTER-mailbox.TXT");
  // The local machine's folder, whatever the server.
  host = "OTHER";
  expect("mailbox", "C:\\Config\\postoffices\\abc\\mailboxes\\joe\\rules\\QVFILTER-mailbox.TXT");
}

TEST_F(WordListFiles, AMailboxDecidesFirst) {
  files.Put("C:\\Config\\postoffices\\\\mailboxes\\joe\\rules\\QVFILTER-m.txt", "x");
  PutPattern("QVFILTER-system.txt");
  mailbox = "joe";
  Fresh([](Form& form) {
    EXPECT_EQ(Items(form, "cboPattern"), Texts({"m"}));
    form.Unload();
  });
}

TEST_F(WordListFiles, TheFilesAreLookedUpAtEveryOpening) {
  PutPattern("QVFILTER-b.txt");
  Fresh([this](Form& form) {
    PutPattern("QVFILTER-a.txt");
    EXPECT_EQ(Items(form, "cboPattern"), Texts({"b"}));
    form.Unload();
  });
  Fresh([](Form& form) {
    EXPECT_EQ(Items(form, "cboPattern"), Texts({"a", "b"}));
    form.Unload();
  });
}

TEST_F(WordListFiles, EditStartsTheEditorOnTheFile) {
  PutPattern("QVFILTER-my words.txt");
  Fresh([this](Form& form) {
    Person(form).Click("cmdEdit");
    files.Delete("C:\\Config\\filters\\patterns\\QVFILTER-my words.txt");
    Person(form).Click("cmdEdit");
    EXPECT_TRUE(form.Loaded());
    form.Unload();
  });
  const std::string command = "notepad \"C:\\Config\\filters\\patterns\\QVFILTER-my words.TXT\"";
  EXPECT_EQ(desktop.programs, Texts({command, command}));
  EXPECT_TRUE(files.writes.empty());
}

}  // namespace
}  // namespace qv::test
