// A small console that keeps its form as a real one does: text boxes with a caret, check boxes, lists.

function Top(state) {
  return state.dialogs.at(-1) ?? state.sheet?.form;
}

export function Find(state, name) {
  return Top(state)?.controls.find((control) => control.name === name);
}

function Type(box, keys) {
  for (const key of keys) {
    const chars = [...box.text];
    let { selStart: start, selLength: length } = box;
    let typed = [key];
    if (key === "\b") {
      typed = [];
      if (length === 0 && start > 0) {
        length = chars[start - 1] === "\n" && chars[start - 2] === "\r" ? 2 : 1;
        start -= length;
      }
    } else if (key === "\r") {
      if (!box.multiline) continue;
      typed = ["\r", "\n"];
    } else if (box.keys && !box.keys.includes(key)) continue;
    if (box.maxLength && chars.length - length + typed.length > box.maxLength) continue;
    chars.splice(start, length, ...typed);
    box.text = chars.join("");
    box.selStart = start + typed.length;
    box.selLength = 0;
  }
}

function Focus(state, box) {
  for (const control of Top(state).controls) if (control.kind === "text") control.focus = control === box;
}

export function Form(event, state) {
  const control = event.control === undefined ? undefined : Find(state, event.control);
  if (event.control !== undefined && !control) return { error: `there is no control ${event.control}` };
  if (["click", "set", "type", "caret", "select", "focus"].includes(event.do) && control) Focus(state, control);
  if (event.do === "type") Type(control, event.text);
  if (event.do === "caret") [control.selStart, control.selLength] = [event.start, event.length];
  if (event.do === "set") {
    control.text = control.maxLength ? [...event.text].slice(0, control.maxLength).join("") : event.text;
    [control.selStart, control.selLength] = [0, 0];
  }
  if (event.do === "focus" && event.tab && control.kind === "text") {
    [control.selStart, control.selLength] = [0, [...control.text].length];
  }
  if (event.do === "click" && control.kind === "check") control.checked = !control.checked;
  if (event.do === "click" && control.kind === "option") {
    for (const other of Top(state).controls) {
      if (other.kind === "option" && other.parent === control.parent) other.checked = other === control;
    }
  }
  if ((event.do === "select" || event.do === "doubleClick") && event.index >= 0) control.selected = event.index;
  if (event.do === "check") control.rows[event.index].checked = event.checked;
  return undefined;
}
