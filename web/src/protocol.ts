// What goes over the socket, as the console speaks it.

export interface TreeNode {
  id: string;
  name: string;
  image: number;
  selected: boolean;
  expandable: boolean;
  expanded: boolean;
  children: TreeNode[];
}

// Widths are pixels in the result pane, twips in a form.
export interface Column {
  key: string;
  caption: string;
  width: number;
}

export interface Item {
  key: string;
  tag: string;
  text: string;
  icon: string;
  cells: string[];
  // The cells that are set off from their like, where there are any.
  emphasis?: number[];
  selected: boolean;
}

export interface View {
  name: string;
  tag: string;
  host: string;
  columns: Column[];
  sort: { column: number; descending: boolean } | null;
  total: number;
  offset: number;
  // The text that the rows shown hold, where the pane can be filtered.
  filter?: string;
  items: Item[];
}

export type Verb = "delete" | "properties" | "refresh";

export interface MenuItem {
  name: string;
  caption: string;
  enabled: boolean;
}

export interface Menu {
  new: MenuItem[];
  top: MenuItem[];
  verbs: Verb[];
}

interface Common {
  name: string;
  enabled: boolean;
  visible: boolean;
  parent?: string;
  focus?: boolean;
}

export interface LabelControl extends Common {
  kind: "label";
  caption: string;
  look?: "heading" | "help" | "notice";
}

export interface FrameControl extends Common {
  kind: "frame";
  caption: string;
}

export interface ButtonControl extends Common {
  kind: "button";
  caption: string;
  default?: boolean;
  cancel?: boolean;
  tip?: string;
  picture?: "up" | "down";
}

export interface CheckControl extends Common {
  kind: "check" | "option";
  caption: string;
  checked: boolean;
}

export interface TextControl extends Common {
  kind: "text";
  text: string;
  multiline: boolean;
  maxLength: number;
  selStart: number;
  selLength: number;
  back: "window" | "buttonface";
  code?: boolean;
  keys?: string;
}

export interface ListControl extends Common {
  kind: "list" | "combo";
  items: string[];
  selected: number;
}

export interface Row {
  key: string;
  text: string;
  cells: string[];
  checked: boolean;
}

export interface ListViewControl extends Common {
  kind: "listview";
  columns: Column[];
  checkboxes: boolean;
  rows: Row[];
  selected: number;
}

export type Control =
  | LabelControl
  | FrameControl
  | ButtonControl
  | CheckControl
  | TextControl
  | ListControl
  | ListViewControl;

export type Layout =
  | { kind: "column" | "row" | "indent"; items: Layout[] }
  | { kind: "control"; control: string; grow?: boolean; lines?: number }
  | { kind: "field"; label: string; control: string; hints?: string[]; note?: string; grow?: boolean; lines?: number }
  | { kind: "frame"; control: string; items: Layout[] }
  | { kind: "buttons"; items: string[] }
  | { kind: "side"; main: Layout; buttons: string[] };

export interface Form {
  name: string;
  caption: string;
  height: number;
  controls: Control[];
  layout?: Layout;
  size?: "small" | "medium" | "large";
}

export interface Sheet {
  title: string;
  pages: { name: string; caption: string; help: boolean }[];
  active: number;
  changed: boolean;
  form: Form;
}

export interface Message {
  title: string;
  text: string;
  icon: "critical" | "question" | "exclamation" | "information" | "none";
  buttons: ("ok" | "yes" | "no")[];
}

export type Start =
  | { kind: "program"; command: string }
  | { kind: "url"; address: string }
  | { kind: "help"; topic: string };

export interface State {
  tree: TreeNode;
  view: View | null;
  verbs: Record<Verb, boolean>;
  menu: Menu | null;
  sheet: Sheet | null;
  dialogs: Form[];
  message: Message | null;
  started: Start[];
}

export type ConsoleEvent =
  | { do: "expand" | "collapse" | "select"; node: string }
  | { do: "selectItems"; keys: string[] }
  | { do: "doubleClick"; item: string }
  | { do: "menu"; on: "node" | "items" }
  | { do: "choose"; name: string }
  | { do: "verb"; name: Verb }
  | { do: "sort"; column: number }
  | { do: "scroll"; offset: number }
  | { do: "filter"; text: string };

export type FormEvent =
  | { do: "click"; control: string }
  | { do: "set" | "type"; control: string; text: string }
  | { do: "caret"; control: string; start: number; length: number }
  | { do: "focus"; control: string; tab: boolean }
  | { do: "select" | "doubleClick"; control: string; index: number }
  | { do: "check"; control: string; index: number; checked: boolean }
  | { do: "close" }
  | { do: "page"; index: number }
  | { do: "sheet"; button: "ok" | "cancel" | "apply" | "help" }
  | { do: "answer"; button: "ok" | "yes" | "no" };

export type QvEvent = ConsoleEvent | FormEvent;

export interface FileText {
  path: string;
  text: string;
  version: string | number;
  exists: boolean;
}

export interface FileSaved {
  path: string;
  version?: string | number;
  conflict?: { text: string; version: string | number };
}

export type FileRequest =
  | { file: "read"; path: string }
  | { file: "write"; path: string; text: string; version: string | number };

export interface Answer {
  id?: number;
  state?: State;
  error?: string;
  file?: FileText | FileSaved;
}
