#include "editor/script_editor.h"

#include <gtest/gtest.h>

#include "tests/support/test_run.h"

namespace qv {
namespace {

using test::Person;
using test::ShownMessage;
using test::TestRun;

constexpr const char* kOff = "C:\\Config\\Filters\\Criteria\\CRT1.QV_";
constexpr const char* kActive = "C:\\Config\\Filters\\Criteria\\CRT1.QVS";

class ScriptEditor : public ::testing::Test {
 protected:
  ScriptEditor() {
    t.files.MakeFolder("C:\\Config\\Filters\\Criteria");
    editor.CriteriaID = "CRT1";
    editor.Postoffice = "";
  }
  void Visit(const std::function<void(Person&)>& visit) {
    t.desktop.Visit([&visit](Form& form) {
      Person person(form);
      visit(person);
      if (form.Loaded()) form.Unload();
    });
    editor.ShowModal();
  }
  long Token(const std::string& name) {
    const auto& items = editor.lstTokens.Items();
    return static_cast<long>(std::find(items.begin(), items.end(), name) - items.begin());
  }
  // What a double click on a token makes of a text with the caret at a place.
  std::string Inserted(const std::string& text, std::size_t caret) {
    std::string result;
    Visit([&](Person& person) {
      person.Set("txtCondition", text);
      editor.txtCondition.Select(caret, 0);
      person.Open("lstTokens", Token("[QV_BODY]"));
      result = editor.txtCondition.Text();
    });
    return result;
  }
  TestRun t;
  frmScriptEditor& editor = t.run.The<frmScriptEditor>();
};

TEST_F(ScriptEditor, HasItsCaptionsAndTokens) {
  Visit([this](Person&) {
    EXPECT_EQ(editor.Caption(), "Advanced Criteria Script Editor");
    EXPECT_EQ(editor.Label1.Caption(),
              "This screen allows you to create a script that can be enumerated for this filter. ");
    EXPECT_EQ(editor.Label2.Caption(), "Criteria Script e.g.: If CriteriaMet([QV_SUBJECT],\"*Viagra*\") Then");
    EXPECT_EQ(editor.Label3.Caption(), "Criteria Tokens:");
    EXPECT_EQ(editor.Label4.Caption(),
              "Criteria Tokens can be used in the script for enumeration. You can insert the criteria token into the "
              "script by double clicking on it.");
    EXPECT_EQ(editor.cmdCheck.Caption(), "&Check Syntax..");
    EXPECT_EQ(editor.cmdSyntax.Caption(), "&Help...");
    EXPECT_EQ(editor.cmdExit.Caption(), "&Save and Exit");
    EXPECT_EQ(editor.cmdCancel.Caption(), "&Cancel");
    EXPECT_TRUE(editor.txtCondition.MultiLine());
    EXPECT_EQ(editor.lstTokens.Items(), (std::vector<std::string>{"[QV_SUBJECT]",
                                                                  "[QV_BODY]",
                                                                  "[QV_TO]",
                                                                  "[QV_CC]",
                                                                  "[QV_TOorCC]",
                                                                  "[QV_SPF]",
                                                                  "[QV_PRIORITY]",
                                                                  "[QV_FROM]",
                                                                  "[QV_SIZE]",
                                                                  "[QV_HASATTACHMENTSMATCHING]",
                                                                  "[QV_HASANATTACHMENT]",
                                                                  "[QV_SECURE]",
                                                                  "[QV_HEADERS_CONTAIN]",
                                                                  "[QV_SPAM_PROBABILITY]",
                                                                  "[QV_HASVIRUS]",
                                                                  "[QV_ALLMESSAGES]",
                                                                  "[QV_SENDERAUTH]",
                                                                  "[QV_IPADDRESS]",
                                                                  "[QV_ACCOUNT]",
                                                                  "[QV_CONNECTOR]",
                                                                  "[QV_DKIM]"}));
  });
}

TEST_F(ScriptEditor, ShowsTheScriptOfTheFilter) {
  t.files.Put(kOff, "off");
  Visit([this](Person&) { EXPECT_EQ(editor.txtCondition.Text(), "off"); });
  t.files.Put(kActive, "active");
  Visit([this](Person&) { EXPECT_EQ(editor.txtCondition.Text(), "active"); });
  t.files.fail = "ReadAll";
  Visit([this](Person&) { EXPECT_EQ(editor.txtCondition.Text(), ""); });
  EXPECT_TRUE(t.desktop.messages.empty());
}

TEST_F(ScriptEditor, ShowsTheScriptOfAPostofficesFilter) {
  t.files.Put("C:\\Config\\postoffices\\abc\\rules\\Criteria\\CRT1.QVS", "theirs");
  editor.Postoffice = "abc";
  Visit([this](Person&) { EXPECT_EQ(editor.txtCondition.Text(), "theirs"); });
}

TEST_F(ScriptEditor, ATokenInAnEmptyBoxIsTheInsertionAlone) {
  EXPECT_EQ(Inserted("", 0), "\r\nCriteriaMet([QV_BODY],\"Value\")\r\n");
}

TEST_F(ScriptEditor, ATokenAtTheVeryStartStandsFirst) {
  EXPECT_EQ(Inserted("abc", 0), "\r\nCriteriaMet([QV_BODY],\"Value\")\r\nabc");
}

TEST_F(ScriptEditor, TheCharacterBeforeTheCaretStandsTwice) {
  EXPECT_EQ(Inserted("abc", 2), "ab\r\nCriteriaMet([QV_BODY],\"Value\")\r\nbc");
  EXPECT_EQ(Inserted("abc", 3), "abc\r\nCriteriaMet([QV_BODY],\"Value\")\r\nc");
  EXPECT_EQ(Inserted("\u00e4\u00f6\u00fc", 2), "\u00e4\u00f6\r\nCriteriaMet([QV_BODY],\"Value\")\r\n\u00f6\u00fc");
}

TEST_F(ScriptEditor, ALineEndCountsAsTwoCharacters) {
  EXPECT_EQ(Inserted("a\r\nb", 3), "a\r\n\r\nCriteriaMet([QV_BODY],\"Value\")\r\n\nb");
}

TEST_F(ScriptEditor, ASelectionIsNotReplacedByAToken) {
  Visit([this](Person& person) {
    person.Set("txtCondition", "abcd");
    editor.txtCondition.Select(1, 2);
    person.Open("lstTokens", Token("[QV_DKIM]"));
    EXPECT_EQ(editor.txtCondition.Text(), "a\r\nCriteriaMet([QV_DKIM],\"Value\")\r\nabcd");
  });
}

TEST_F(ScriptEditor, OpenedAgainShowsTheFileAndNotWhatWasTyped) {
  t.files.Put(kOff, "file");
  Visit([](Person& person) {
    person.Set("txtCondition", "typed");
    person.Click("cmdCancel");
  });
  Visit([this](Person&) {
    EXPECT_EQ(editor.txtCondition.Text(), "file");
    EXPECT_EQ(editor.lstTokens.ListCount(), 21);
  });
}

TEST_F(ScriptEditor, TheEmptySpaceOfTheTokensInsertsNothing) {
  Visit([this](Person& person) {
    person.Set("txtCondition", "abc");
    person.Open("lstTokens", -1);
    EXPECT_EQ(editor.txtCondition.Text(), "abc");
  });
}

TEST_F(ScriptEditor, TheTrialRunReplacesTokensAndAppendsTheFrame) {
  Visit([](Person& person) {
    person.Set("txtCondition", "If CriteriaMet([QV_TO],\"a\") Or CriteriaMet([QV_TO],\"[QV_TOorCC]\") Then");
    person.Click("cmdCheck");
  });
  EXPECT_EQ(
      t.scripts.codes,
      (std::vector<std::string>{"If CriteriaMet(QV_VARIABLE,\"a\") Or CriteriaMet(QV_VARIABLE,\"QV_VARIABLE\") Then\r\n"
                                "Function CriteriaMet(InVal1,InVal2)\r\nEnd Function\r\n"}));
}

TEST_F(ScriptEditor, ATokenInAnotherCaseIsNotReplaced) {
  Visit([](Person& person) {
    person.Set("txtCondition", "x = [qv_subject]");
    person.Click("cmdCheck");
  });
  EXPECT_EQ(t.scripts.codes.front(), "x = [qv_subject]\r\nFunction CriteriaMet(InVal1,InVal2)\r\nEnd Function\r\n");
}

TEST_F(ScriptEditor, ACheckThatPassesIsTold) {
  Visit([](Person& person) {
    person.Set("txtCondition", "' only a comment: FILTERresult");
    person.Click("cmdCheck");
  });
  EXPECT_EQ(t.desktop.messages, (std::vector<ShownMessage>{{"Script Enumeration Successful", "Quillvane Scripting",
                                                            MessageIcon::Information, MessageButtons::Ok}}));
  EXPECT_TRUE(t.files.writes.empty());
  EXPECT_EQ(t.registry.TakeReloads(), 0);
}

TEST_F(ScriptEditor, AMissingResultIsAWarning) {
  Visit([](Person& person) {
    person.Set("txtCondition", "x = 1");
    person.Click("cmdCheck");
  });
  EXPECT_EQ(
      t.desktop.messages,
      (std::vector<ShownMessage>{{"Script Enumeration Completed with Warnings\r\n\r\nWARNING: FilterResult was not "
                                  "specified for this script. Please see examples by pressing the Help button.",
                                  "Quillvane Scripting", MessageIcon::Exclamation, MessageButtons::Ok}}));
}

TEST_F(ScriptEditor, AFaultIsToldPieceByPiece) {
  t.scripts.fault = ScriptFault{3, 7, 1014, "Microsoft VBScript compilation error", "Expected 'End'", "the line"};
  Visit([this](Person& person) {
    person.Set("txtCondition", "If x Then FilterResult = 1");
    person.Click("cmdCheck");
    EXPECT_TRUE(editor.Loaded());
  });
  EXPECT_EQ(
      t.desktop.messages,
      (std::vector<ShownMessage>{{"Line: 3, Column: 7. Description: Expected 'End'.\r\nError Number: 1014. Microsoft "
                                  "VBScript compilation error.\r\nError Text: the line\r\nError: 1014 Expected 'End'",
                                  "Script Compilation Error", MessageIcon::Critical, MessageButtons::Ok}}));
}

TEST_F(ScriptEditor, SavingWritesSignalsAndCloses) {
  Visit([this](Person& person) {
    person.Set("txtCondition", "x = 1\r\n");
    person.Click("cmdExit");
    EXPECT_FALSE(editor.Loaded());
  });
  EXPECT_EQ(t.files.Get(kOff), "x = 1\r\n");
  EXPECT_EQ(t.files.Get(kActive), std::nullopt);
  EXPECT_EQ(t.registry.TakeReloads(), 1);
  EXPECT_TRUE(t.desktop.messages.empty());
}

TEST_F(ScriptEditor, SavingAnActiveScriptWritesTheSpareCopyFirst) {
  t.files.Put(kActive, "old");
  Visit([](Person& person) {
    person.Set("txtCondition", "new");
    person.Click("cmdExit");
  });
  EXPECT_EQ(t.files.writes, (std::vector<std::string>{kOff, kActive}));
  EXPECT_EQ(t.files.Get(kActive), "new");
}

TEST_F(ScriptEditor, AnEmptyTextIsSaved) {
  t.files.Put(kOff, "old");
  Visit([](Person& person) {
    person.Set("txtCondition", "");
    person.Click("cmdExit");
  });
  EXPECT_EQ(t.files.Get(kOff), "");
}

TEST_F(ScriptEditor, AFaultKeepsTheDialogAndWritesNothing) {
  t.scripts.fault = ScriptFault{1, 0, 1002, "s", "d", "t"};
  Visit([this](Person& person) {
    person.Set("txtCondition", "(");
    person.Click("cmdExit");
    EXPECT_TRUE(editor.Loaded());
    EXPECT_EQ(editor.txtCondition.Text(), "(");
  });
  EXPECT_EQ(t.files.Get(kOff), std::nullopt);
  EXPECT_EQ(t.registry.TakeReloads(), 0);
}

TEST_F(ScriptEditor, AWriteThatFailsIsSilentAndCloses) {
  t.files.fail = "Write";
  Visit([this](Person& person) {
    person.Set("txtCondition", "x");
    person.Click("cmdExit");
    EXPECT_FALSE(editor.Loaded());
  });
  EXPECT_TRUE(t.desktop.messages.empty());
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_F(ScriptEditor, CancelWritesNothing) {
  Visit([](Person& person) {
    person.Set("txtCondition", "x");
    person.Click("cmdCancel");
  });
  EXPECT_TRUE(t.files.writes.empty());
  EXPECT_TRUE(t.scripts.codes.empty());
}

TEST_F(ScriptEditor, HelpOpensItsPage) {
  Visit([](Person& person) { person.Click("cmdSyntax"); });
  EXPECT_EQ(t.desktop.addresses, (std::vector<std::string>{"/quillvane/help/filtering_scripting.asp"}));
}

}  // namespace
}  // namespace qv
