import type { Control, QvEvent, Form, State, TreeNode } from "./protocol.ts";

// What the person has done and the server has not yet answered, laid over the state that came back. Text is not
// here: a text box keeps its own (textbox.ts).
export function Overlay(state: State, events: readonly QvEvent[]): State {
  return events.reduce(Apply, state);
}

function Apply(state: State, event: QvEvent): State {
  switch (event.do) {
    case "click":
      return OnControl(state, event.control, (control, form) => Clicked(control, form));
    case "select":
      if ("node" in event) return { ...state, tree: MapTree(state.tree, (n) => ({ ...n, selected: n.id === event.node })) };
      return OnControl(state, event.control, (control) => Picked(control, event.index));
    case "doubleClick":
      if ("item" in event) return Select(state, [event.item]);
      return OnControl(state, event.control, (control) => Picked(control, event.index));
    case "check":
      return OnControl(state, event.control, (control) => {
        if (control.kind !== "listview") return control;
        const rows = control.rows.map((row, n) => (n === event.index ? { ...row, checked: event.checked } : row));
        return { ...control, rows };
      });
    case "selectItems":
      return Select(state, event.keys);
    case "collapse":
      return {
        ...state,
        tree: MapTree(state.tree, (n) => (n.id === event.node ? { ...n, expanded: false } : n)),
      };
    default:
      return state;
  }
}

function Select(state: State, keys: string[]): State {
  if (!state.view) return state;
  const chosen = new Set(keys);
  const items = state.view.items.map((item) =>
    item.selected === chosen.has(item.key) ? item : { ...item, selected: !item.selected },
  );
  return { ...state, view: { ...state.view, items } };
}

function MapTree(node: TreeNode, change: (node: TreeNode) => TreeNode): TreeNode {
  return change({ ...node, children: node.children.map((child) => MapTree(child, change)) });
}

// An option clears its fellows in the same frame; a check box turns over; a button shows nothing.
function Clicked(control: Control, form: Form): Control | Control[] {
  if (control.kind === "check") return { ...control, checked: !control.checked };
  if (control.kind !== "option") return control;
  return form.controls.map((other) =>
    other.kind === "option" && other.parent === control.parent ? { ...other, checked: other === control } : other,
  );
}

function Picked(control: Control, index: number): Control {
  if (index < 0 || !("selected" in control)) return control;
  return { ...control, selected: index };
}

// The form that events go to: the topmost dialog, or the page of the sheet.
function OnControl(state: State, name: string, change: (control: Control, form: Form) => Control | Control[]): State {
  const onForm = (form: Form): Form => {
    const control = form.controls.find((c) => c.name === name);
    if (!control) return form;
    const next = change(control, form);
    if (Array.isArray(next)) return { ...form, controls: next };
    return { ...form, controls: form.controls.map((c) => (c === control ? next : c)) };
  };
  const top = state.dialogs.at(-1);
  if (top) return { ...state, dialogs: [...state.dialogs.slice(0, -1), onForm(top)] };
  if (state.sheet) return { ...state, sheet: { ...state.sheet, form: onForm(state.sheet.form) } };
  return state;
}
