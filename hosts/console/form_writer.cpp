#include "hosts/console/form_writer.h"

namespace qv {

namespace json = boost::json;

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

json::array Texts(const std::vector<std::string>& texts, const json::storage_ptr& memory) {
  json::array array(memory);
  array.reserve(texts.size());
  for (const std::string& text : texts) array.emplace_back(text);
  return array;
}

void WriteButton(const Button& button, json::object& to) {
  to["caption"] = button.Caption();
  to["default"] = button.role() == Button::Role::Default;
  to["cancel"] = button.role() == Button::Role::Cancel;
  to["tip"] = button.tip();
  if (button.picture() != Button::Picture::None)
    to["picture"] = button.picture() == Button::Picture::Up ? "up" : "down";
}

void WriteText(const TextBox& box, json::object& to) {
  to["text"] = box.Text();
  to["multiline"] = box.MultiLine();
  to["maxLength"] = box.MaxLength();
  to["selStart"] = box.SelStart();
  to["selLength"] = box.SelLength();
  to["back"] = box.Back() == BackColor::Window ? "window" : "buttonface";
  if (!box.Keys().empty()) to["keys"] = box.Keys();
  if (box.Code()) to["code"] = true;
}

void WriteRowList(const RowList& list, json::object& to) {
  json::array columns(to.storage());
  for (const RowList::Column& column : list.Columns()) {
    json::object& at = columns.emplace_back(json::object(to.storage())).get_object();
    at["key"] = column.Key;
    at["caption"] = column.Header;
    at["width"] = column.Width;
  }
  to["columns"] = std::move(columns);
  to["checkboxes"] = list.CheckBoxes();
  json::array rows(to.storage());
  rows.reserve(list.Rows().size());
  for (const ListRow& row : list.Rows()) {
    json::object& at = rows.emplace_back(json::object(to.storage())).get_object();
    at["key"] = row.Key;
    at["text"] = row.Text;
    at["cells"] = Texts(row.SubItems, to.storage());
    at["checked"] = row.Checked;
  }
  to["rows"] = std::move(rows);
  to["selected"] = list.Selected();
}

json::object WriteControl(const Control& control, const json::storage_ptr& memory) {
  json::object to(memory);
  to["name"] = control.name();
  to["kind"] = NameOf(control.kind());
  to["enabled"] = control.Usable();
  to["visible"] = control.Showing();
  if (control.parent()) to["parent"] = control.parent()->name();
  if (control.TakesFocus()) to["focus"] = control.form().Focus() == &control;
  switch (control.kind()) {
    case Kind::Label:
      to["caption"] = static_cast<const Label&>(control).Caption();
      if (const char* look = NameOf(static_cast<const Label&>(control).look())) to["look"] = look;
      break;
    case Kind::Frame:
      to["caption"] = static_cast<const Frame&>(control).Caption();
      break;
    case Kind::Button:
      WriteButton(static_cast<const Button&>(control), to);
      break;
    case Kind::Check:
    case Kind::Option:
      to["caption"] = static_cast<const ToggleControl&>(control).Caption();
      to["checked"] = static_cast<const ToggleControl&>(control).Checked();
      break;
    case Kind::Text:
      WriteText(static_cast<const TextBox&>(control), to);
      break;
    case Kind::List:
    case Kind::Combo:
      to["items"] = Texts(static_cast<const ListControl&>(control).Items(), memory);
      to["selected"] = static_cast<const ListControl&>(control).ListIndex();
      break;
    case Kind::ListView:
      WriteRowList(static_cast<const RowList&>(control), to);
      break;
  }
  return to;
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

json::object WriteLayout(const Layout& layout, const json::storage_ptr& memory) {
  json::object to(memory);
  to["kind"] = NameOf(layout.kind);
  if (layout.label) to["label"] = layout.label->name();
  if (layout.control) to["control"] = layout.control->name();
  json::array names(memory);
  for (const Control* control : layout.controls) names.emplace_back(control->name());
  if (layout.kind == Layout::Kind::Buttons) {
    to["items"] = std::move(names);
    return to;
  }
  if (layout.kind == Layout::Kind::Side) {
    to["main"] = WriteLayout(layout.items.front(), memory);
    to["buttons"] = std::move(names);
  } else if (!names.empty()) {
    to["hints"] = std::move(names);
  }
  if (layout.kind != Layout::Kind::Side && !layout.items.empty()) {
    json::array items(memory);
    for (const Layout& item : layout.items) items.emplace_back(WriteLayout(item, memory));
    to["items"] = std::move(items);
  }
  if (layout.grow) to["grow"] = true;
  if (layout.lines > 0) to["lines"] = layout.lines;
  return to;
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

json::object WriteForm(const Form& form, const json::storage_ptr& memory) {
  json::object to(memory);
  to["name"] = form.name();
  to["caption"] = form.Caption();
  to["height"] = form.Height();
  json::array controls(memory);
  for (const Control* control : form.controls()) controls.emplace_back(WriteControl(*control, memory));
  to["controls"] = std::move(controls);
  to["size"] = NameOf(form.size());
  const Layout layout = form.Arrange();
  if (!layout.empty()) to["layout"] = WriteLayout(layout, memory);
  return to;
}

}  // namespace qv
