#include "hosts/console/form_events.h"

#include <initializer_list>

namespace qv {

namespace {

using Kind = Control::Kind;

// The control that the event names, in a state to take it.
Control& Wanted(const Event& event, Form& form, std::initializer_list<Kind> kinds) {
  const std::string name = event.Text("control");
  Control* control = form.Find(name);
  if (!control) throw EventError("There is no control \"" + name + "\" in " + form.name() + ".");
  if (!control->Showing()) throw EventError("The control \"" + name + "\" is not visible.");
  if (!control->Usable()) throw EventError("The control \"" + name + "\" is disabled.");
  for (const Kind kind : kinds) {
    if (control->kind() == kind) return *control;
  }
  throw EventError("The control \"" + name + "\" does not take that event.");
}

void MoveFocus(Form& form, Control& control) {
  if (form.Focus() != &control) form.SetFocus(control);
}

void PressControl(Control& control) {
  switch (control.kind()) {
    case Kind::Button:
      return static_cast<Button&>(control).Press();
    case Kind::Check:
      return static_cast<CheckBox&>(control).Press();
    case Kind::Option:
      return static_cast<OptionButton&>(control).Press();
    default:
      return;
  }
}

// The row of an event to a list: one of the list, or -1 for the empty space.
long RowOf(const Event& event, long count) {
  const long index = event.Number("index");
  if (index < -1 || index >= count) throw EventError("There is no row " + std::to_string(index) + ".");
  return index;
}

std::size_t Position(const Event& event, const char* field, long otherwise) {
  const long position = otherwise < 0 ? event.Number(field) : event.NumberOr(field, otherwise);
  if (position < 0) throw EventError(std::string("The field \"") + field + "\" counts from 0.");
  return static_cast<std::size_t>(position);
}

Action ReadListEvent(const Event& event, Form& form, bool twice) {
  Control& control = twice ? Wanted(event, form, {Kind::List, Kind::ListView})
                           : Wanted(event, form, {Kind::List, Kind::Combo, Kind::ListView});
  if (control.kind() == Kind::ListView) {
    auto& list = static_cast<RowList&>(control);
    const long index = RowOf(event, list.Count());
    return [&form, &list, index, twice] {
      MoveFocus(form, list);
      twice ? list.PressTwice(index) : list.Press(index);
    };
  }
  auto& list = static_cast<ListControl&>(control);
  const long index = RowOf(event, list.ListCount());
  return [&form, &list, index, twice] {
    MoveFocus(form, list);
    twice ? list.PressTwice(index) : list.Press(index);
  };
}

Action ReadFocusEvent(const Event& event, Form& form, bool& tab) {
  Control& control = Wanted(
      event, form, {Kind::Button, Kind::Check, Kind::Option, Kind::Text, Kind::List, Kind::Combo, Kind::ListView});
  const bool by_tab = event.FlagOr("tab", false);
  return [&form, &control, by_tab, &tab] {
    struct Hold {  // the key is up again whatever the handler does
      bool& key;
      ~Hold() { key = false; }
    } hold{tab};
    tab = by_tab;
    form.SetFocus(control);
  };
}

Action ReadCheckEvent(const Event& event, Form& form) {
  auto& list = static_cast<RowList&>(Wanted(event, form, {Kind::ListView}));
  if (!list.CheckBoxes()) throw EventError("The control \"" + list.name() + "\" has no check boxes.");
  const long index = RowOf(event, list.Count());
  if (index < 0) throw EventError("There is no row -1.");
  const bool checked = event.Flag("checked");
  return [&list, index, checked] { list.Check(index, checked); };
}

}  // namespace

Action ReadFormEvent(const std::string& what, const Event& event, Form& form, bool& tab) {
  if (what == "click") {
    Control& control = Wanted(event, form, {Kind::Button, Kind::Check, Kind::Option});
    return [&form, &control] {
      MoveFocus(form, control);
      PressControl(control);
    };
  }
  if (what == "set" || what == "type") {
    auto& box = static_cast<TextBox&>(Wanted(event, form, {Kind::Text}));
    const bool typed = what == "type";
    return [&form, &box, typed, text = event.Text("text")] {
      MoveFocus(form, box);
      typed ? box.Type(text) : box.Paste(text);
    };
  }
  if (what == "caret") {
    auto& box = static_cast<TextBox&>(Wanted(event, form, {Kind::Text}));
    const std::size_t start = Position(event, "start", -1), length = Position(event, "length", 0);
    return [&form, &box, start, length] {
      MoveFocus(form, box);
      box.Select(start, length);
    };
  }
  if (what == "select") return ReadListEvent(event, form, false);
  if (what == "doubleClick") return ReadListEvent(event, form, true);
  if (what == "focus") return ReadFocusEvent(event, form, tab);
  if (what == "check") return ReadCheckEvent(event, form);
  return nullptr;
}

}  // namespace qv
