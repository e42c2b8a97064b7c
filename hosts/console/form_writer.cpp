#include "hosts/console/form_writer.h"

namespace qv {

namespace {

using Kind = Control::Kind;

const char* NameOf(Kind kind) {
  switch (kind) {
    case Kind::Label:
      return "label";
    case Kind::Frame:
      return "frame";
    case Kind::Button:
      return "button";
    case Kind::Check:
      return "check";
    case Kind::Option:
      return "option";
    case Kind::Text:
      return "text";
    case Kind::List:
      return "list";
    case Kind::Combo:
      return "combo";
    case Kind::ListView:
      return "listview";
  }
  return "";
}

const char* NameOf(Label::Look look) {
  switch (look) {
    case Label::Look::Heading:
      return "heading";
    case Label::Look::Help:
      return "help";
    case Label::Look::Notice:
      return "notice";
    case Label::Look::Plain:
      break;
  }
  return nullptr;
}

void WriteTexts(const char* key, const std::vector<std::string>& texts, JsonWriter& to) {
  to.Array(key, texts, [&to](const std::string& text) { to.Value(text); });
}

void WriteButton(const Button& button, JsonWriter& to) {
  to.Field("caption", button.Caption());
  to.Field("default", button.role() == Button::Role::Default);
  to.Field("cancel", button.role() == Button::Role::Cancel);
  to.Field("tip", button.tip());
  if (button.picture() != Button::Picture::None) {
    to.Field("picture", button.picture() == Button::Picture::Up ? "up" : "down");
  }
}

void WriteText(const TextBox& box, JsonWriter& to) {
  to.Field("text", box.Text());
  to.Field("multiline", box.MultiLine());
  to.Field("maxLength", box.MaxLength());
  to.Field("selStart", box.SelStart());
  to.Field("selLength", box.SelLength());
  to.Field("back", box.Back() == BackColor::Window ? "window" : "buttonface");
  if (!box.Keys().empty()) to.Field("keys", box.Keys());
  if (box.Code()) to.Field("code", true);
}

void WriteRowList(const RowList& list, JsonWriter& to) {
  to.Array("columns", list.Columns(), [&to](const RowList::Column& column) {
    to.Object([&] {
      to.Field("key", column.Key);
      to.Field("caption", column.Header);
      to.Field("width", column.Width);
    });
  });
  to.Field("checkboxes", list.CheckBoxes());
  to.Array("rows", list.Rows(), [&to](const ListRow& row) {
    to.Object([&] {
      to.Field("key", row.Key);
      to.Field("text", row.Text);
      WriteTexts("cells", row.SubItems, to);
      to.Field("checked", row.Checked);
    });
  });
  to.Field("selected", list.Selected());
}

void WriteKind(const Control& control, JsonWriter& to) {
  switch (control.kind()) {
    case Kind::Label:
      to.Field("caption", static_cast<const Label&>(control).Caption());
      if (const char* look = NameOf(static_cast<const Label&>(control).look())) to.Field("look", look);
      break;
    case Kind::Frame:
      to.Field("caption", static_cast<const Frame&>(control).Caption());
      break;
    case Kind::Button:
      WriteButton(static_cast<const Button&>(control), to);
      break;
    case Kind::Check:
    case Kind::Option:
      to.Field("caption", static_cast<const ToggleControl&>(control).Caption());
      to.Field("checked", static_cast<const ToggleControl&>(control).Checked());
      break;
    case Kind::Text:
      WriteText(static_cast<const TextBox&>(control), to);
      break;
    case Kind::List:
    case Kind::Combo:
      WriteTexts("items", static_cast<const ListControl&>(control).Items(), to);
      to.Field("selected", static_cast<const ListControl&>(control).ListIndex());
      break;
    case Kind::ListView:
      WriteRowList(static_cast<const RowList&>(control), to);
      break;
  }
}

void WriteControl(const Control& control, JsonWriter& to) {
  to.Object([&] {
    to.Field("name", control.name());
    to.Field("kind", NameOf(control.kind()));
    to.Field("enabled", control.Usable());
    to.Field("visible", control.Showing());
    if (control.parent()) to.Field("parent", control.parent()->name());
    if (control.TakesFocus()) to.Field("focus", control.form().Focus() == &control);
    WriteKind(control, to);
  });
}

const char* NameOf(Layout::Kind kind) {
  switch (kind) {
    case Layout::Kind::Column:
      return "column";
    case Layout::Kind::Row:
      return "row";
    case Layout::Kind::Control:
      return "control";
    case Layout::Kind::Field:
      return "field";
    case Layout::Kind::Frame:
      return "frame";
    case Layout::Kind::Indent:
      return "indent";
    case Layout::Kind::Side:
      return "side";
    case Layout::Kind::Buttons:
      return "buttons";
  }
  return "";
}

void WriteLayout(const Layout& layout, JsonWriter& to) {
  const auto write_names = [&](const char* key) {
    to.Array(key, layout.controls, [&to](const Control* control) { to.Value(control->name()); });
  };
  to.Object([&] {
    to.Field("kind", NameOf(layout.kind));
    if (layout.label) to.Field("label", layout.label->name());
    if (layout.control) to.Field("control", layout.control->name());
    if (layout.kind == Layout::Kind::Buttons) {
      write_names("items");
      return;
    }
    if (layout.kind == Layout::Kind::Side) {
      to.Key("main");
      WriteLayout(layout.items.front(), to);
      write_names("buttons");
    } else {
      if (!layout.controls.empty()) write_names("hints");
      if (!layout.items.empty()) {
        to.Array("items", layout.items, [&to](const Layout& item) { WriteLayout(item, to); });
      }
    }
    if (layout.grow) to.Field("grow", true);
    if (layout.lines > 0) to.Field("lines", layout.lines);
    if (!layout.note.empty()) to.Field("note", layout.note);
  });
}

const char* NameOf(Form::Size size) {
  switch (size) {
    case Form::Size::Small:
      return "small";
    case Form::Size::Medium:
      return "medium";
    case Form::Size::Large:
      return "large";
  }
  return "";
}

}  // namespace

void WriteForm(const Form& form, JsonWriter& to) {
  to.Object([&] {
    to.Field("name", form.name());
    to.Field("caption", form.Caption());
    to.Field("height", form.Height());
    to.Array("controls", form.controls(), [&to](const Control* control) { WriteControl(*control, to); });
    to.Field("size", NameOf(form.size()));
    const Layout layout = form.Arrange();
    if (layout.empty()) return;
    to.Key("layout");
    WriteLayout(layout, to);
  });
}

}  // namespace qv
