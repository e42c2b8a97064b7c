#include "criteria/criterion_dialog.h"

#include <algorithm>
#include <ostream>

#include "criteria/attachment_dialog.h"
#include "criteria/choice_dialogs.h"
#include "criteria/field_dialogs.h"
#include "criteria/flag_dialogs.h"
#include "criteria/postoffice_dialog.h"
#include "criteria/word_list_dialog.h"
#include "platform/runtime_error.h"
#include "tests/criteria/criteria_test.h"

namespace qv::test {
namespace {

template <class Dialog>
CriterionDialog& Of(Run& run) {
  return run.The<Dialog>();
}

struct Member {
  CriterionDialog& (*dialog)(Run& run);
  const char *rule, *name, *load_failure;
  int frequency;
  const char *caption, *description, *status;
};
std::ostream& operator<<(std::ostream& out, const Member& member) { return out << member.name; }

const Member kFamily[] = {
    {Of<frmCriteriaItem>, "10", "frmCriteriaItem", "Could not load", -1, "Filter Rule Criteria",
     "Description goes here", "Enabled"},
    {Of<frmCriteriaWordList>, "1", "frmCriteriaWordList", "Could not load", 0, "Word List Properties",
     "Description goes here", "Enabled"},
    {Of<frmCriteriaAttachment>, "9", "frmCriteriaAttachment", "Could not load", 0, "Attachment List",
     "Description goes here", "Enabled"},
    {Of<frmCriteriaSizeLimit>, "8", "frmCriteriaSizeLimit", "Could not load criteria", 0, "Message Size Criteria",
     "Description goes here", "Size of message is greater than"},
    {Of<frmCriteriaSpamProbability>, "13", "frmCriteriaSpamProbability", "Could not load criteria", 0,
     "Spam probability", "When the message is over a specified spam probability.", "Enabled"},
    {Of<frmCriteriaHeader>, "12", "frmCriteriaHeader", "Could not load criteria", 0, "Header line",
     "String exists in a header item.", "Enabled"},
    {Of<frmCriteriaSPFMatch>, "14", "frmCriteriaSPFMatch", "Could not load", -1, "SPF Result matches",
     "SPF result matches", "Enabled"},
    {Of<frmCriteriaDKIMMatch>, "24", "frmCriteriaDKIMMatch", "Could not load", -1, "DKIM Result matches",
     "DKIM result matches", "Enabled"},
    {Of<frmCriteriaContainsVirus>, "15", "frmCriteriaContainsVirus", "Could not load", 0, "Contains Virus",
     "Message contains virus", "Enabled"},
    {Of<frmCriteriaSenderAuthenticated>, "17", "frmCriteriaSenderAuthenticated", "Could not load", 0,
     "Sender authenticated", "Sender has authenticated", "Enabled"},
    {Of<frmCriteriaAllMessages>, "16", "frmCriteriaAllMessages", "Could not load", 0, "All messages", "All messages",
     "Enabled"},
    {Of<frmCriteriaIPMatch>, "18", "frmCriteriaIPMatch", "Could not load", 0, "Sending IP matches",
     "Matches IP address from where the message came from", "Enabled"},
    {Of<frmCriteriaForPostoffice>, "19", "frmCriteriaForPostoffice", "Could not load", 0, "For Postoffice",
     "Email going to postoffice", "Enabled"},
    {Of<frmCriteriaFromConnector>, "20", "frmCriteriaFromConnector", "Could not load", 0, "From connector",
     "Messages arriving from specific connector", "Enabled"},
};

struct Frame : CriteriaTest, ::testing::WithParamInterface<Member> {
  CriterionDialog& dialog() { return GetParam().dialog(run); }
  const std::string rule = GetParam().rule;

  int OpenIt(Visit visit) { return Open(dialog(), rule, std::move(visit)); }
  // The calls on criteria rows.
  Texts CriteriaCalls() {
    Texts calls;
    std::copy_if(store.calls.begin(), store.calls.end(), std::back_inserter(calls),
                 [](const std::string& call) { return call.rfind("Criteria.", 0) == 0; });
    return calls;
  }
  std::string EditCall(const std::string& status, const std::string& type, const std::string& description) {
    return "Criteria.EditCriteria@(" + rule + "," + status + ",," + type + "," + description + "," + dialog().Values +
           "," + std::to_string(GetParam().frequency) + ")";
  }
};
INSTANTIATE_TEST_SUITE_P(Family, Frame, ::testing::ValuesIn(kFamily),
                         [](const auto& member) { return std::string(member.param.name); });

TEST_P(Frame, IsDesignedAsItsFamilySays) {
  CriterionDialog& form = dialog();
  EXPECT_EQ(form.name(), GetParam().name);
  EXPECT_EQ(form.Caption(), GetParam().caption);
  EXPECT_EQ(Get<Label>(form, "lblH1").Caption(), "Criteria:");
  EXPECT_EQ(Get<Label>(form, "lblDescription").Caption(), GetParam().description);
  EXPECT_EQ(Get<CheckBox>(form, "chkStatus").Caption(), GetParam().status);
  EXPECT_EQ(Get<Button>(form, "cmdOK").Caption(), "OK");
  EXPECT_EQ(Get<Button>(form, "cmdOK").role(), Button::Role::Default);
  EXPECT_EQ(Get<Button>(form, "cmdCancel").Caption(), "&Cancel");
  EXPECT_EQ(Get<Button>(form, "cmdCancel").role(), Button::Role::Cancel);
}

TEST_P(Frame, ShowsTheRow) {
  Put(rule).Description = "Where it is so";
  EXPECT_EQ(OpenIt([&](Form& form) {
              EXPECT_EQ(form.Caption(), "Criteria Properties - Where it is so");
              EXPECT_EQ(Get<Label>(form, "lblDescription").Caption(), "Where it is so");
              EXPECT_FALSE(Ticked(form));
              EXPECT_TRUE(IsOn(form, "chkStatus"));
              Person(form).Click("cmdCancel");
            }),
            0);
  EXPECT_TRUE(desktop.messages.empty());
  EXPECT_TRUE(desktop.AllVisited());
}

TEST_P(Frame, TicksTheStatusForOneAlone) {
  for (int status : {0, 1, 2, -1}) {
    Put(rule, status, "1");
    OpenIt([&](Form& form) {
      EXPECT_EQ(Ticked(form), status == 1) << status;
      form.Unload();
    });
  }
}

TEST_P(Frame, ReadsTheRowInOneWay) {
  Put(rule);
  OpenIt([](Form& form) { Person(form).Click("cmdCancel"); });
  EXPECT_EQ(CriteriaCalls(),
            Texts({"Criteria.Create", "Criteria.SetHost@", "Criteria.GetCriteria@(CRT1," + rule + ")"}));
}

TEST_P(Frame, SavesAnEnabledRow) {
  CriteriaRow& row = Put(rule, 1, "77");
  row.CriteriaType = "T";
  row.Description = "D";
  store.server().postoffices = {"abc"};
  EXPECT_EQ(OpenIt([&](Form& form) {
              if (rule == "18") Person(form).Set("txtIP", "1.2.3.4");
              store.calls.clear();
              Person(form).Click("cmdOK");
              EXPECT_FALSE(form.Loaded());
            }),
            1);
  EXPECT_EQ(CriteriaCalls(), Texts({"Criteria.Create", "Criteria.SetHost@", EditCall("1", "T", "D")}));
  EXPECT_EQ(Row(rule).Status, 1);
  EXPECT_EQ(Row(rule).Frequency, GetParam().frequency);
  EXPECT_EQ(registry.TakeReloads(), 1);
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_P(Frame, SavesADisabledRow) {
  Put(rule, 1, "77");
  EXPECT_EQ(OpenIt([&](Form& form) {
              Person(form).Click("chkStatus");
              Person(form).Click("cmdOK");
            }),
            2);
  EXPECT_EQ(Row(rule).Status, 0);
  EXPECT_EQ(registry.TakeReloads(), 1);
}

TEST_P(Frame, CancelSavesNothing) {
  Put(rule, 0, "77");
  EXPECT_EQ(OpenIt([&](Form& form) {
              Person(form).Click("chkStatus");
              Person(form).Click("cmdCancel");
              EXPECT_FALSE(form.Loaded());
            }),
            0);
  EXPECT_EQ(store.CountOf("Criteria.EditCriteria"), 0);
  EXPECT_EQ(Row(rule).Status, 0);
  EXPECT_EQ(Row(rule).Values, "77");
  EXPECT_EQ(registry.TakeReloads(), 0);
}

TEST_P(Frame, AnUpdateThatIsRefusedClosesAllTheSame) {
  Put(rule, 1, "77");
  for (int refused : {0, 2, -1}) {
    store.Refuse("Criteria.EditCriteria", refused);
    EXPECT_EQ(OpenIt([&](Form& form) {
                if (rule == "18") Person(form).Set("txtIP", "1.2.3.4");
                Person(form).Click("cmdOK");
              }),
              1);
    EXPECT_EQ(desktop.TakeMessages(), std::vector{kNotUpdated});
  }
  EXPECT_EQ(OpenIt([](Form& form) {
              Person(form).Click("chkStatus");
              Person(form).Click("cmdOK");
            }),
            2);
  EXPECT_EQ(desktop.TakeMessages(), std::vector{kNotUpdated});
  EXPECT_EQ(registry.TakeReloads(), 0);
  EXPECT_EQ(Row(rule).Status, 1);
}

TEST_P(Frame, ARowThatCannotBeLoadedOpensOnTheDesign) {
  OpenIt([&](Form& form) {
    EXPECT_EQ(form.Caption(), GetParam().caption);
    EXPECT_EQ(Get<Label>(form, "lblDescription").Caption(), GetParam().description);
    EXPECT_FALSE(Ticked(form));
    EXPECT_TRUE(IsOn(form, "chkStatus"));
    Person(form).Click("cmdOK");
  });
  EXPECT_EQ(desktop.TakeMessages(),
            (std::vector<ShownMessage>{{GetParam().load_failure, "Error", MessageIcon::Critical}, kNotUpdated}));
  EXPECT_EQ(store.CountOf("Criteria.EditCriteria"), 1);
  EXPECT_EQ(registry.TakeReloads(), 0);
}

TEST_P(Frame, AnyAnswerButZeroIsALoadedRow) {
  for (int answer : {2, -1}) {
    store.Refuse("Criteria.GetCriteria", answer);
    OpenIt([&](Form& form) {
      EXPECT_EQ(form.Caption(), "Criteria Properties - ");
      EXPECT_EQ(Get<Label>(form, "lblDescription").Caption(), "");
      EXPECT_FALSE(Ticked(form));
      Person(form).Click("cmdCancel");
    });
  }
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_P(Frame, TheFirstCaptionComesBackAfterALoadedRow) {
  Put(rule, 1, "77");
  OpenIt([](Form& form) { Person(form).Click("cmdCancel"); });
  store.server().criteria.clear();
  OpenIt([&](Form& form) {
    EXPECT_EQ(form.Caption(), GetParam().caption);
    EXPECT_FALSE(Ticked(form));
    Person(form).Click("cmdCancel");
  });
  // What the last row left in the fields takes no part in the search.
  EXPECT_EQ(dialog().Values, "");
  EXPECT_EQ(dialog().Description, "");
  EXPECT_EQ(dialog().Status, -1);
}

TEST_P(Frame, TheCloseBoxKeepsTheLastResult) {
  const auto close = [](Form& form) { Person(form).Close(); };
  Put(rule, 1, "77");
  store.server().postoffices = {"abc"};
  EXPECT_EQ(OpenIt(close), 0);
  OpenIt([&](Form& form) {
    if (rule == "18") Person(form).Set("txtIP", "1.2.3.4");
    Person(form).Click("cmdOK");
  });
  EXPECT_EQ(OpenIt(close), 1);
  OpenIt([](Form& form) {
    Person(form).Click("chkStatus");
    Person(form).Click("cmdOK");
  });
  EXPECT_EQ(OpenIt(close), 2);
  OpenIt([](Form& form) { Person(form).Click("cmdCancel"); });
  EXPECT_EQ(OpenIt(close), 0);
}

TEST_P(Frame, WorksInTheScopeAndOnTheServerThatItIsHanded) {
  Put(rule).Description = "of the system";
  host = "OTHER";
  postoffice = "abc";
  mailbox = "joe";
  Put(rule).Description = "of the mailbox";
  store.server(host).postoffices = {"abc"};
  EXPECT_EQ(OpenIt([](Form& form) {
              EXPECT_EQ(form.Caption(), "Criteria Properties - of the mailbox");
              Person(form).Click("cmdOK");
            }),
            2);
  EXPECT_EQ(store.CountOf("Criteria.SetHost@OTHER"), 2);
  EXPECT_EQ(Row(rule).Frequency, GetParam().frequency);
  EXPECT_EQ(store.server().criteria[0].Frequency, 1);
  // The signal goes to the local machine whatever the server.
  EXPECT_EQ(registry.TakeReloads(), 1);
}

TEST_P(Frame, AnErrorOfTheStoreIsNotTrapped) {
  Put(rule, 0, "77");
  store.Raise("Criteria.GetCriteria", "The store is away.");
  Hand(dialog(), rule);
  EXPECT_THROW(dialog().SetCriteria(), RuntimeError);
  EXPECT_FALSE(dialog().Loaded());
  store.Heal();
  store.Raise("Criteria.EditCriteria", "The store is away.");
  OpenIt([](Form& form) {
    EXPECT_THROW(Person(form).Click("cmdOK"), RuntimeError);
    EXPECT_TRUE(form.Loaded());
    Person(form).Click("cmdCancel");
  });
  EXPECT_TRUE(desktop.messages.empty());
  EXPECT_EQ(registry.TakeReloads(), 0);
}

TEST_P(Frame, ItsButtonsComeLastInTheTabOrder) {
  const std::vector<Control*>& controls = dialog().controls();
  EXPECT_EQ(controls[controls.size() - 2]->name(), "cmdOK");
  EXPECT_EQ(controls.back()->name(), "cmdCancel");
}

}  // namespace
}  // namespace qv::test
