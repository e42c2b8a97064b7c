// Canned states of the console, in the shape the console speaks.
export * from "./controls.mjs";
export * from "./forms.mjs";

export function Node(id, name, image, more = {}) {
  return { id, name, image, selected: false, expandable: false, expanded: false, children: [], ...more };
}

function Server(name, selected, more = []) {
  return Node(`server:${name}`, name, 101, {
    expandable: true,
    expanded: true,
    selected: selected === `server:${name}`,
    children: [
      Node(`server:${name}/postoffices`, "Postoffices", 103, { expandable: true, children: more, expanded: more.length > 0 }),
      Node(`server:${name}/filters`, "Filters", 1, { selected: selected === `server:${name}/filters` }),
      Node(`server:${name}/spam`, "Spam Protection", 8, { selected: selected === `server:${name}/spam` }),
    ],
  });
}

export function Tree(selected = "server:LOCALHOST/filters") {
  const postoffices = ["north", "south"].map((name) =>
    Node(`server:LOCALHOST/postoffice:${name}`, name, 104, { selected: selected === `server:LOCALHOST/postoffice:${name}` }),
  );
  return Node("servers", "Servers", 100, {
    expandable: true,
    expanded: true,
    selected: selected === "servers",
    children: [
      Server("LOCALHOST", selected, postoffices),
      Node("server:MAIL2", "MAIL2", 101, { expandable: true, selected: selected === "server:MAIL2" }),
    ],
  });
}

export function Filter(name, enabled = true, selected = false) {
  const key = `FILTER-FLT${name.replace(/\W/g, "")}`;
  const cells = [name, enabled ? "Enabled" : "Disabled"];
  return { key, tag: key, text: name, icon: enabled ? "7" : "6", cells, selected };
}

export function Filters(items, more = {}) {
  return {
    name: "lvwFilters",
    tag: "filter",
    host: "LOCALHOST",
    columns: [
      { key: "1", caption: "Filter", width: 300 },
      { key: "2", caption: "Status", width: 300 },
    ],
    sort: null,
    total: items.length,
    offset: 0,
    items,
    ...more,
  };
}

export function State(more = {}) {
  return {
    tree: Tree(),
    view: Filters([
      Filter("Invoices to accounting"),
      Filter("Large attachments", false),
      Filter("Newsletters"),
      Filter("Out of office loops", false),
      Filter("Press enquiries"),
    ]),
    verbs: { delete: false, properties: false, refresh: true },
    menu: null,
    sheet: null,
    dialogs: [],
    message: null,
    started: [],
    ...more,
  };
}

export const nodeMenu = {
  new: [{ name: "mnuFilterAdd", caption: "New Filter...", enabled: true }],
  top: [{ name: "mnuOrderFilters", caption: "Order Filters...", enabled: true }],
  verbs: ["refresh"],
};

export function RowMenu(enabled) {
  return {
    new: [],
    top: [
      { name: "mnuFilterEnable", caption: "Enable", enabled: !enabled },
      { name: "mnuFilterDisable", caption: "Disable", enabled },
      { name: "mnuManage", caption: "Manage...", enabled: true },
      { name: "mnuRename", caption: "Rename...", enabled: true },
      { name: "mnuOrderFilters", caption: "Order Filters...", enabled: true },
    ],
    verbs: ["delete", "refresh"],
  };
}

export function Message(text, more = {}) {
  return { title: "Warning", text, icon: "exclamation", buttons: ["ok"], ...more };
}
