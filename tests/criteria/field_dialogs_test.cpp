#include "criteria/field_dialogs.h"

#include "tests/criteria/criteria_test.h"

namespace qv::test {
namespace {

ShownMessage Warn(const std::string& text, const std::string& title = "Warning!") {
  return {text, title, MessageIcon::Exclamation};
}

struct FieldDialogs : CriteriaTest {
  // Ticks the status, puts the text into the field and clicks OK; whether it was saved.
  bool Saves(CriterionDialog& dialog, const std::string& rule, const std::string& field, const std::string& text) {
    bool saved = false;
    Put(rule);
    Open(dialog, rule, [&](Form& form) {
      Person person(form);
      person.Click("chkStatus");
      person.Set(field, text);
      form.SetFocus(Get<Control>(form, "cmdOK"));
      person.Click("cmdOK");
      saved = !form.Loaded();
      if (saved) return;
      EXPECT_EQ(form.Focus(), form.Find(field));
      person.Click("cmdCancel");
    });
    if (saved) {
      EXPECT_EQ(Row(rule).Values, text);
      EXPECT_EQ(Row(rule).Status, 1);
    } else {
      EXPECT_EQ(Row(rule).Status, 0);
    }
    return saved;
  }
  bool Saves(const std::string& rule, const std::string& field, const std::string& text) {
    return Saves(*DialogForRule(run, rule), rule, field, text);
  }
};

TEST_F(FieldDialogs, TheStatusEnablesTheField) {
  const std::pair<const char*, const char*> fields[] = {{"8", "txtSize"}, {"13", "txtProb"}, {"18", "txtIP"}};
  for (const auto& [rule, field] : fields) {
    const std::string name = field;
    Put(rule, 0, "12");
    Open(rule, [&](Form& form) {
      EXPECT_FALSE(IsOn(form, name));
      EXPECT_EQ(TextOf(form, name), "12");
      Person(form).Click("chkStatus");
      EXPECT_TRUE(IsOn(form, name));
      Person(form).Click("chkStatus");
      EXPECT_FALSE(IsOn(form, name));
      form.Unload();
    });
    Put(rule, 1, "12");
    Open(rule, [&](Form& form) {
      EXPECT_TRUE(IsOn(form, name));
      form.Unload();
    });
  }
}

TEST_F(FieldDialogs, ADisabledFieldIsSavedAsItIs) {
  const std::pair<const char*, const char*> fields[] = {{"8", "txtSize"}, {"13", "txtProb"}, {"18", "txtIP"}};
  for (const auto& [rule, field] : fields) {
    for (const char* text : {"", "not valid", " 1.5 "}) {
      Put(rule, 1, "5");
      EXPECT_EQ(Open(rule,
                     [name = std::string(field), text](Form& form) {
                       Person(form).Set(name, text);
                       Person(form).Click("chkStatus");
                       Person(form).Click("cmdOK");
                     }),
                2);
      EXPECT_EQ(Row(rule).Values, text);
      EXPECT_EQ(Row(rule).Status, 0);
    }
  }
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(FieldDialogs, WhatADisabledFieldHeldCountsWhenItIsTicked) {
  Put("8", 0, "many");
  Open("8", [](Form& form) {
    Person(form).Click("chkStatus");
    Person(form).Click("cmdOK");
    Person(form).Click("cmdCancel");
  });
  EXPECT_EQ(desktop.messages, std::vector{Warn("You need to enter a size.")});
}

TEST_F(FieldDialogs, ARowThatCannotBeLoadedTakesWhatIsTyped) {
  const std::pair<const char*, const char*> fields[] = {{"8", "txtSize"}, {"13", "txtProb"}, {"18", "txtIP"}};
  for (const auto& [rule, field] : fields) {
    // What the last row left in the shared dialog is gone.
    Put(rule, 0, "77");
    Open(rule, [](Form& form) { Person(form).Click("cmdCancel"); });
    store.server().criteria.clear();
    Open(rule, [name = std::string(field)](Form& form) {
      EXPECT_EQ(TextOf(form, name), "");
      EXPECT_TRUE(IsOn(form, name));
      EXPECT_EQ(Get<TextBox>(form, name).Back(), BackColor::Window);
      Person(form).Set(name, "not valid");
      Person(form).Click("cmdOK");
    });
    EXPECT_EQ(store.calls.back(), "Criteria.EditCriteria@(" + std::string(rule) + ",0,,,,not valid,0)");
  }
}

TEST_F(FieldDialogs, TheTabKeySelectsTheWholeText) {
  const std::pair<const char*, const char*> fields[] = {{"8", "txtSize"}, {"13", "txtProb"}, {"18", "txtIP"}};
  for (const auto& [rule, field] : fields) {
    const std::string name = field;
    Put(rule, 1, "1234");
    Open(rule, [&](Form& form) {
      TextBox& box = Get<TextBox>(form, name);
      form.SetFocus(box);
      EXPECT_EQ(box.SelLength(), 0u);
      Person(form).Tab(desktop, name);
      EXPECT_EQ(box.SelStart(), 0u);
      EXPECT_EQ(box.SelLength(), 4u);
      form.Unload();
    });
  }
}

TEST_F(FieldDialogs, HaveNoMaximumLength) {
  Put("8", 1, "");
  Open("8", [](Form& form) {
    EXPECT_EQ(Get<TextBox>(form, "txtSize").MaxLength(), 0u);
    form.Unload();
  });
  EXPECT_EQ(Get<TextBox>(*DialogForRule(run, "13"), "txtProb").MaxLength(), 0u);
}

TEST_F(FieldDialogs, SizeTakesAnyNumericText) {
  for (const char* text : {"0", "5000", "99999999999", "-1", "1.5", "1,000", " 7 ", "1e3"}) {
    EXPECT_TRUE(Saves("8", "txtSize", text)) << text;
  }
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(FieldDialogs, DigitsHaveNoMaximumNumber) {
  EXPECT_TRUE(Saves("8", "txtSize", std::string(5000, '9')));
  EXPECT_FALSE(Saves("13", "txtProb", std::string(5000, '9')));
  EXPECT_EQ(desktop.TakeMessages(), std::vector{Warn("You need to enter a probability less than 100%.")});
  EXPECT_FALSE(Saves("13", "txtProb", "0." + std::string(5000, '0') + "1"));
  EXPECT_EQ(desktop.TakeMessages(), std::vector{Warn("You need to enter a probability greater than zero.")});
}

TEST_F(FieldDialogs, SizeWarnsOfAnythingElse) {
  for (const char* text : {"", " ", "x", "5 kB", "1.2.3"}) {
    EXPECT_FALSE(Saves("8", "txtSize", text)) << text;
    EXPECT_EQ(desktop.TakeMessages(), std::vector{Warn("You need to enter a size.")}) << text;
  }
}

TEST_F(FieldDialogs, SizeLetsDigitsThrough) {
  Put("8", 1, "");
  Open("8", [](Form& form) {
    Person person(form);
    person.Type("txtSize", "a1-2.3 b\r");
    EXPECT_EQ(TextOf(form, "txtSize"), "123");
    person.Type("txtSize", "\b4");
    EXPECT_EQ(TextOf(form, "txtSize"), "124");
    person.Set("txtSize", "x y");
    EXPECT_EQ(TextOf(form, "txtSize"), "x y");
    form.Unload();
  });
}

TEST_F(FieldDialogs, ProbabilityIsAbove0AndUpTo100) {
  for (const char* text : {"0.01", "1", "90", "99.99", "100", "100.0", "1e2", ".5"}) {
    EXPECT_TRUE(Saves("13", "txtProb", text)) << text;
  }
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(FieldDialogs, ProbabilityTellsWhatIsWrong) {
  for (const char* text : {"", "x", "9..5", "1.2.3", "50%"}) {
    EXPECT_FALSE(Saves("13", "txtProb", text)) << text;
    EXPECT_EQ(desktop.TakeMessages(), std::vector{Warn("You need to enter a probability.")}) << text;
  }
  for (const char* text : {"0", "0.0", "-1", "(5)"}) {
    EXPECT_FALSE(Saves("13", "txtProb", text)) << text;
    EXPECT_EQ(desktop.TakeMessages(), std::vector{Warn("You need to enter a probability greater than zero.")}) << text;
  }
  for (const char* text : {"100.5", "101", "100.0001", "1,000"}) {
    EXPECT_FALSE(Saves("13", "txtProb", text)) << text;
    EXPECT_EQ(desktop.TakeMessages(), std::vector{Warn("You need to enter a probability less than 100%.")}) << text;
  }
}

TEST_F(FieldDialogs, ProbabilityLetsDigitsAndPointsThrough) {
  Put("13", 1, "");
  Open("13", [&](Form& form) {
    EXPECT_EQ(Get<Label>(form, "Label1").Caption(), "%");
    EXPECT_EQ(Get<Label>(form, "Label2").Caption(), "(values over 90% recommended)");
    Person person(form);
    person.Type("txtProb", "-9x9..5%\r");
    EXPECT_EQ(TextOf(form, "txtProb"), "99..5");
    person.Click("cmdOK");
    EXPECT_EQ(desktop.TakeMessages(), std::vector{Warn("You need to enter a probability.")});
    form.Unload();
  });
  EXPECT_EQ(Get<Label>(*DialogForRule(run, "8"), "Label1").Caption(), "bytes");
}

TEST_F(FieldDialogs, AnAddressMayHaveWildcardsAndBlanksAround) {
  for (const char* text : {"1.2.3.4", "*.*.*.*", "10.*.0.255", " 1.2.3.4 ", "  *.1.1.1"}) {
    EXPECT_TRUE(Saves("18", "txtIP", text)) << text;
  }
  EXPECT_TRUE(desktop.messages.empty());
  EXPECT_EQ(Get<Label>(*DialogForRule(run, "18"), "Label1").Caption(), "IP address:");
}

TEST_F(FieldDialogs, AnAddressIsOneWholeAddress) {
  for (const char* text : {"", " ", "1.2.3", "1.2.3.256", "1.2.3.4,5.6.7.8", "1.2.3.4.5", "::1", "host"}) {
    EXPECT_FALSE(Saves("18", "txtIP", text)) << text;
    EXPECT_EQ(desktop.TakeMessages(), std::vector{Warn("You must enter a valid IP address.", "Error")}) << text;
  }
}

TEST_F(FieldDialogs, AnAddressMayBeOfIPv6WhereTheServerHasItOnForAll) {
  registry.SetWord("SOFTWARE\\quillvane\\quillvane", "IPv6 Status", 1);
  for (const char* text : {"::1", " 2001:db8::* ", "1.2.3.4"}) EXPECT_TRUE(Saves("18", "txtIP", text)) << text;
  for (const char* text : {"", "1.2.3", "256.1.1.1"}) EXPECT_FALSE(Saves("18", "txtIP", text)) << text;
  // No connector is asked for.
  registry.SetWord("SOFTWARE\\quillvane\\quillvane", "IPv6 Status", 2);
  registry.SetWord("SOFTWARE\\quillvane\\quillvane\\Connectors\\SMTP", "IPv6 Status", 1);
  EXPECT_FALSE(Saves("18", "txtIP", "::1"));
}

TEST_F(FieldDialogs, TheAddressChangesColourWithTheStatus) {
  Put("18", 0, "1.2.3.4");
  Open("18", [](Form& form) {
    const TextBox& box = Get<TextBox>(form, "txtIP");
    EXPECT_EQ(box.Back(), BackColor::ButtonFace);
    Person(form).Click("chkStatus");
    EXPECT_EQ(box.Back(), BackColor::Window);
    Person(form).Click("chkStatus");
    EXPECT_EQ(box.Back(), BackColor::ButtonFace);
    form.Unload();
  });
  Put("18", 1, "1.2.3.4");
  Open("18", [](Form& form) {
    EXPECT_EQ(Get<TextBox>(form, "txtIP").Back(), BackColor::Window);
    form.Unload();
  });
  Put("8", 0, "");
  Open("8", [](Form& form) {
    EXPECT_EQ(Get<TextBox>(form, "txtSize").Back(), BackColor::Window);
    form.Unload();
  });
}

TEST_F(FieldDialogs, TheAddressHasNoKeyFilter) {
  Put("18", 1, "");
  Open("18", [](Form& form) {
    Person(form).Type("txtIP", "a:*.1 b");
    EXPECT_EQ(TextOf(form, "txtIP"), "a:*.1 b");
    form.Unload();
  });
}

TEST_F(FieldDialogs, AHeaderStringMayNotBeBlank) {
  auto& dialog = run.The<frmCriteriaHeader>();
  for (const char* text : {"", " ", "   "}) {
    EXPECT_FALSE(Saves(dialog, "12", "txtString", text));
    EXPECT_EQ(desktop.TakeMessages(), std::vector{Warn("You need to enter a string to search for.")});
  }
  EXPECT_TRUE(Saves(dialog, "12", "txtString", " X-Spam: yes "));
  EXPECT_EQ(Get<Label>(dialog, "Label1").Caption(), "String to search for:");
}

TEST_F(FieldDialogs, AHeaderStringHasNeitherColourNorFilterNorFocusRule) {
  auto& dialog = run.The<frmCriteriaHeader>();
  Put("12", 0, "abc");
  Open(dialog, "12", [&](Form& form) {
    TextBox& box = Get<TextBox>(form, "txtString");
    EXPECT_FALSE(box.Usable());
    EXPECT_EQ(box.Back(), BackColor::Window);
    Person(form).Click("chkStatus");
    EXPECT_TRUE(box.Usable());
    Person(form).Tab(desktop, "txtString");
    EXPECT_EQ(box.SelLength(), 0u);
    Person(form).Type("txtString", "ü-");
    EXPECT_EQ(box.Text(), "ü-abc");
    form.Unload();
  });
}

}  // namespace
}  // namespace qv::test
