#pragma once

#include <string>
#include <utility>
#include <vector>

namespace qv {

class Control;

// How a form wants its controls laid out, for any front end: rows, columns and frames of controls. Controls that are
// not showing take no room.
struct Layout {
  enum class Kind {
    Column,   // items below each other
    Row,      // items beside each other
    Control,  // one control as it stands
    Field,    // a label with its control, and what stands behind it as a unit or a hint
    Frame,    // a frame with its caption around items
    Indent,   // what belongs to the option above
    Side,     // one item with a column of buttons at its right
    Buttons   // the button row
  };

  Kind kind = Kind::Column;
  const Control* control = nullptr;      // of Control, Field and Frame
  const Control* label = nullptr;        // of Field
  std::vector<const Control*> controls;  // the hints of a Field, the buttons of Side and Buttons
  std::vector<Layout> items;
  bool grow = false;      // takes what room is left
  int lines = 0;          // the wanted height of a list or a text box in lines; 0 as the front end sees fit
  std::string note = {};  // of a Field: what its value means, shown with it

  bool empty() const { return items.empty() && !control && controls.empty(); }
};

namespace layout {

inline Layout Column(std::vector<Layout> items) {
  return {Layout::Kind::Column, nullptr, nullptr, {}, std::move(items)};
}
inline Layout Row(std::vector<Layout> items) { return {Layout::Kind::Row, nullptr, nullptr, {}, std::move(items)}; }
inline Layout Indent(std::vector<Layout> items) {
  return {Layout::Kind::Indent, nullptr, nullptr, {}, std::move(items)};
}
inline Layout Item(const Control& control, int lines = 0) {
  return {Layout::Kind::Control, &control, nullptr, {}, {}, false, lines};
}
inline Layout Field(const Control& label, const Control& control, int lines = 0,
                    std::vector<const Control*> hints = {}) {
  return {Layout::Kind::Field, &control, &label, std::move(hints), {}, false, lines};
}
inline Layout Framed(const Control& frame, std::vector<Layout> items) {
  return {Layout::Kind::Frame, &frame, nullptr, {}, std::move(items)};
}
inline Layout Side(Layout main, std::vector<const Control*> buttons) {
  return {Layout::Kind::Side, nullptr, nullptr, std::move(buttons), {std::move(main)}};
}
inline Layout Buttons(std::vector<const Control*> buttons) {
  return {Layout::Kind::Buttons, nullptr, nullptr, std::move(buttons), {}};
}
inline Layout Noted(Layout field, std::string note) {
  field.note = std::move(note);
  return field;
}
inline Layout Grow(Layout item) {
  item.grow = true;
  return item;
}

}  // namespace layout
}  // namespace qv
