#include "hosts/console/form_events.h"

#include <gtest/gtest.h>

#include "hosts/console/form_writer.h"
#include "tests/support/memory_platform.h"

namespace qv {
namespace {

class Sample : public Form {
 public:
  explicit Sample(Toolkit& toolkit) : Form(toolkit, "frmSample", "Sample") {
    list.AddItem("one");
    list.AddItem("two");
    combo.AddItem("three");
    off.SetEnabled(false);
    hidden.SetVisible(false);
    digits.SetKeys("0123456789");
    digits.SetMaxLength(4);
    ok.Click = [this] { log += "ok;"; };
    list.Click = [this] { log += "list;"; };
    list.DblClick = [this] { log += "list twice;"; };
    text.GotFocus = [this] { log += this->toolkit().TabKeyDown() ? "by tab;" : "focus;"; };
  }
  void Form_Load() override { rows.AddRow({"k", "row", {"cell"}, false}); }
  Layout Arrange() const override {
    using namespace layout;
    return Column({Noted(Field(label, text, 0, {&hint}), "What it is"),
                   Framed(frame, {Item(option), Indent({Item(list, 4)})}), Side(Grow(Item(rows)), {&up}),
                   Buttons({&ok})});
  }

  Label label{*this, "label", "&Label:"};
  TextBox text{*this, "text"};
  Label hint{*this, "hint", "Hint", Label::Look::Help};
  TextBox digits{*this, "digits"};
  Frame frame{*this, "frame", "Frame"};
  OptionButton option{*this, "option(0)", "Option", false, &frame};
  CheckBox check{*this, "check", "Check"};
  ListBox list{*this, "list"};
  ComboBox combo{*this, "combo"};
  RowList rows{*this, "rows", {{"c", "Column", 1000}}, true};
  RowList plain{*this, "plain", {}};
  Button off{*this, "off", "Off"};
  Button hidden{*this, "hidden", "Hidden"};
  Button up{*this, "up", Button::Picture::Up, "Move up"};
  Button ok{*this, "ok", "OK", Button::Role::Default};
  std::string log;
};

class FormEvents : public ::testing::Test {
 protected:
  FormEvents() { form.Load(); }

  void Do(const std::string& line) {
    const boost::json::object fields = boost::json::parse(line).as_object();
    const Event event(fields);
    const Action action = ReadFormEvent(event.Text("do"), event, form, desktop.tab);
    ASSERT_TRUE(action) << line;
    action();
  }
  std::string Refused(const std::string& line) {
    const boost::json::object fields = boost::json::parse(line).as_object();
    const Event event(fields);
    try {
      ReadFormEvent(event.Text("do"), event, form, desktop.tab);
    } catch (const EventError& error) {
      return error.what();
    }
    ADD_FAILURE() << "taken: " << line;
    return "";
  }

  test::TestDesktop desktop;
  Sample form{desktop};
};

TEST_F(FormEvents, AClickBringsTheFocusAndRunsTheHandler) {
  Do(R"({"do":"click","control":"ok"})");
  EXPECT_EQ(form.Focus(), &form.ok);
  EXPECT_EQ(form.log, "ok;");
  Do(R"({"do":"click","control":"check"})");
  EXPECT_TRUE(form.check.Checked());
  Do(R"({"do":"click","control":"check"})");
  EXPECT_FALSE(form.check.Checked());
  Do(R"-({"do":"click","control":"option(0)"})-");
  EXPECT_TRUE(form.option.Checked());
}

TEST_F(FormEvents, TheTabKeyIsDownWhileItBringsTheFocus) {
  Do(R"({"do":"focus","control":"text","tab":true})");
  Do(R"({"do":"focus","control":"text"})");
  EXPECT_EQ(form.log, "by tab;focus;");
  EXPECT_FALSE(desktop.tab);
}

TEST_F(FormEvents, TextIsPastedAndTyped) {
  Do(R"({"do":"set","control":"digits","text":"12ab56"})");
  EXPECT_EQ(form.digits.Text(), "12ab");
  Do(R"({"do":"caret","control":"digits","start":2,"length":2})");
  Do(R"({"do":"type","control":"digits","text":"x7\b89"})");
  EXPECT_EQ(form.digits.Text(), "1289");
  EXPECT_NE(Refused(R"({"do":"caret","control":"digits","start":-1})"), "");
}

TEST_F(FormEvents, RowsAreSelectedByIndex) {
  Do(R"({"do":"select","control":"list","index":1})");
  EXPECT_EQ(form.list.ListIndex(), 1);
  Do(R"({"do":"doubleClick","control":"list","index":-1})");
  EXPECT_EQ(form.list.ListIndex(), 1);
  EXPECT_EQ(form.log, "list;list;list twice;");
  Do(R"({"do":"select","control":"rows","index":0})");
  EXPECT_EQ(form.rows.Selected(), 0);
  Do(R"({"do":"select","control":"combo","index":0})");
  EXPECT_EQ(form.combo.ListIndex(), 0);
  EXPECT_EQ(Refused(R"({"do":"select","control":"list","index":2})"), "There is no row 2.");
  EXPECT_EQ(Refused(R"({"do":"select","control":"list","index":-2})"), "There is no row -2.");
}

TEST_F(FormEvents, AnEmptyListTakesTheEmptySpace) {
  form.list.Clear();
  Do(R"({"do":"doubleClick","control":"list","index":-1})");
  EXPECT_EQ(form.log, "list;list twice;");
}

TEST_F(FormEvents, ARowIsCheckedWithoutBeingSelected) {
  Do(R"({"do":"check","control":"rows","index":0,"checked":true})");
  EXPECT_TRUE(form.rows.Row(0).Checked);
  EXPECT_EQ(form.rows.Selected(), -1);
  EXPECT_EQ(Refused(R"({"do":"check","control":"rows","index":-1,"checked":true})"), "There is no row -1.");
  EXPECT_EQ(Refused(R"({"do":"check","control":"plain","index":0,"checked":true})"),
            "The control \"plain\" has no check boxes.");
}

TEST_F(FormEvents, AControlThatCantTakeTheEventRefusesIt) {
  EXPECT_EQ(Refused(R"({"do":"click","control":"none"})"), "There is no control \"none\" in frmSample.");
  EXPECT_EQ(Refused(R"({"do":"click","control":"off"})"), "The control \"off\" is disabled.");
  EXPECT_EQ(Refused(R"({"do":"click","control":"hidden"})"), "The control \"hidden\" is not visible.");
  for (const char* line : {R"({"do":"set","control":"list","text":"x"})", R"({"do":"click","control":"label"})",
                           R"({"do":"click","control":"text"})", R"({"do":"select","control":"text","index":0})",
                           R"({"do":"focus","control":"label"})", R"({"do":"doubleClick","control":"combo","index":0})",
                           R"({"do":"type","control":"check","text":"x"})"}) {
    EXPECT_NE(Refused(line).find("does not take that event"), std::string::npos) << line;
  }
  EXPECT_EQ(Refused(R"({"do":"set","control":"text"})"), "The field \"text\" is missing.");
  EXPECT_EQ(Refused(R"({"do":"select","control":"list","index":"0"})"), "The field \"index\" must be a whole number.");
  EXPECT_EQ(Refused(R"({"do":"check","control":"rows","index":0,"checked":1})"),
            "The field \"checked\" must be true or false.");
}

TEST_F(FormEvents, AnotherEventIsNone) {
  const boost::json::object fields = boost::json::parse(R"({"do":"expand","node":"servers"})").as_object();
  EXPECT_FALSE(ReadFormEvent("expand", Event(fields), form, desktop.tab));
}

TEST_F(FormEvents, TheFormIsWrittenWhole) {
  Do(R"({"do":"focus","control":"digits"})");
  JsonWriter writer(0);
  WriteForm(form, writer);
  const boost::json::value value = boost::json::parse(writer.Take());
  EXPECT_EQ(value.at("name"), "frmSample");
  EXPECT_EQ(value.at("caption"), "Sample");
  EXPECT_EQ(value.at("height"), 0);
  EXPECT_EQ(value.at("size"), "small");
  const auto& controls = value.at("controls").as_array();
  ASSERT_EQ(controls.size(), 15u);
  EXPECT_EQ(boost::json::serialize(controls[0]),
            R"({"name":"label","kind":"label","enabled":true,"visible":true,"caption":"&Label:"})");
  EXPECT_EQ(boost::json::serialize(controls[3]),
            R"({"name":"digits","kind":"text","enabled":true,"visible":true,"focus":true,"text":"","multiline":false,)"
            R"("maxLength":4,"selStart":0,"selLength":0,"back":"window","keys":"0123456789"})");
  EXPECT_EQ(boost::json::serialize(controls[5]),
            R"-({"name":"option(0)","kind":"option","enabled":true,"visible":true,"parent":"frame","focus":false,)-"
            R"("caption":"Option","checked":false})");
  EXPECT_EQ(boost::json::serialize(controls[7]),
            R"({"name":"list","kind":"list","enabled":true,"visible":true,"focus":false,"items":["one","two"],)"
            R"("selected":-1})");
  EXPECT_EQ(boost::json::serialize(controls[9]),
            R"({"name":"rows","kind":"listview","enabled":true,"visible":true,"focus":false,)"
            R"("columns":[{"key":"c","caption":"Column","width":1000}],"checkboxes":true,)"
            R"("rows":[{"key":"k","text":"row","cells":["cell"],"checked":false}],"selected":-1})");
  EXPECT_EQ(boost::json::serialize(controls[13]),
            R"({"name":"up","kind":"button","enabled":true,"visible":true,"focus":false,"caption":"","default":false,)"
            R"("cancel":false,"tip":"Move up","picture":"up"})");
  EXPECT_EQ(boost::json::serialize(value.at("layout")),
            R"({"kind":"column","items":[{"kind":"field","label":"label","control":"text","hints":["hint"],)"
            R"("note":"What it is"},)"
            R"-({"kind":"frame","control":"frame","items":[{"kind":"control","control":"option(0)"},)-"
            R"({"kind":"indent","items":[{"kind":"control","control":"list","lines":4}]}]},)"
            R"({"kind":"side","main":{"kind":"control","control":"rows","grow":true},"buttons":["up"]},)"
            R"({"kind":"buttons","items":["ok"]}]})");
}

}  // namespace
}  // namespace qv
