// Controls of a form, as the console tells them.

function Control(kind, name, more) {
  return { name, kind, enabled: true, visible: true, ...more };
}

export const Label = (name, caption, more = {}) => Control("label", name, { caption, ...more });
export const Frame = (name, caption, more = {}) => Control("frame", name, { caption, ...more });
export const Button = (name, caption, more = {}) =>
  Control("button", name, { caption, default: false, cancel: false, tip: "", ...more });
export const Check = (name, caption, checked, more = {}) => Control("check", name, { caption, checked, ...more });
export const Option = (name, caption, checked, more = {}) => Control("option", name, { caption, checked, ...more });
export const Text = (name, text, more = {}) =>
  Control("text", name, {
    text,
    multiline: false,
    maxLength: 0,
    selStart: 0,
    selLength: 0,
    back: "window",
    focus: false,
    ...more,
  });
export const List = (name, items, selected, more = {}) => Control("list", name, { items, selected, ...more });
export const Combo = (name, items, selected, more = {}) => Control("combo", name, { items, selected, ...more });
export const ListView = (name, columns, rows, more = {}) =>
  Control("listview", name, { columns, checkboxes: false, rows, selected: -1, ...more });
