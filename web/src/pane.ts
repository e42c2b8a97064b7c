import { html, nothing, type TemplateResult } from "lit/html.js";
import { FilterBox } from "./filter.ts";
import { Icon } from "./icons.ts";
import type { ListModel } from "./listmodel.ts";
import "./list.ts";
import { ActionBar } from "./menu.ts";
import type { Item, State, TreeNode, View } from "./protocol.ts";
import { SelectedNode, type Session } from "./session.ts";
import { ServerOf } from "./tree.ts";

export interface PanePort {
  session: Session;
  PopUp: (on: "items", x: number, y: number) => void;
}

function Same(a: string, b: string): boolean {
  return a.toUpperCase() === b.toUpperCase();
}

function PaneId(view: View, node: TreeNode): string {
  return `${node.id}/${view.name}`;
}

function CellsOf(item: Item, view: View): string[] {
  return view.columns.length > 0 ? item.cells : [item.text];
}

// Widths are given for the letters of a desktop, which are smaller than these.
const kScale = 1.25;

let wanted = -1;

function Model(view: View, node: TreeNode, { session, PopUp }: PanePort): ListModel {
  const busy = (): boolean => !session.state || session.state.dialogs.length > 0 || session.state.sheet !== null;
  return {
    id: "pane",
    label: node.name,
    columns: view.columns.length > 0 ? view.columns.map((c) => ({ ...c, width: Math.round(c.width * kScale), numeric: c.key.startsWith("n") })) : null,
    fit: false,
    sort: view.sort,
    rows: view.items.map((item) => ({
      key: item.key,
      icon: item.icon,
      cells: CellsOf(item, view),
      ...(item.emphasis ? { emphasis: item.emphasis } : {}),
      selected: item.selected,
      checked: false,
    })),
    offset: view.offset,
    total: view.total,
    enabled: true,
    multiple: true,
    checkboxes: false,
    identity: PaneId(view, node),
    filter: view.filter ?? "",
    OnSelect: (_index, keys) => session.Select({ do: "selectItems", keys }),
    OnOpen: (index) => {
      const item = session.state?.view?.items[index - (session.state.view.offset)];
      if (item) session.Select({ do: "doubleClick", item: item.key });
    },
    ...(view.columns.length > 0 ? { OnSort: (column: number) => session.Select({ do: "sort", column }) } : {}),
    OnMenu: (x, y) => PopUp("items", x, y),
    OnNeed: (offset) => {
      if (busy() || !session.idle || wanted === offset) return;
      wanted = offset;
      session.Select({ do: "scroll", offset });
    },
  };
}

// Rows of another server than the one the node stands under: the server opened last has taken the pane over.
function HostNotice(view: View, node: TreeNode, session: Session): TemplateResult | typeof nothing {
  const server = ServerOf(node.id);
  if (!view.host || !server || Same(view.host, server)) return nothing;
  const turn = (): void => {
    session.Select({ do: "expand", node: `server:${server}` });
    session.Select({ do: "select", node: node.id });
  };
  return html`<div class="strip warning" role="status">
    ${Icon("exclamation")}
    <span>You selected ${node.name} of ${server}, but this list and its actions belong to <b>${view.host}</b>, the
      server that was opened last.</span>
    <button @click=${turn}>Switch to ${server}</button>
  </div>`;
}

// A node without rows of its own shows what stands under it.
function Children(node: TreeNode, session: Session): TemplateResult {
  if (node.children.length === 0) {
    const open = (): void => session.Select({ do: "expand", node: node.id });
    return html`<div class="empty">
      ${Icon(node.image)}
      <p>${node.expandable ? `Open ${node.name} to see what it holds.` : "There is nothing to show here."}</p>
      ${node.expandable ? html`<button @click=${open}>Open</button>` : nothing}
    </div>`;
  }
  const go = (child: TreeNode): void => {
    if (!node.expanded) session.Select({ do: "expand", node: node.id });
    if (child.expandable && !child.expanded) session.Select({ do: "expand", node: child.id });
    session.Select({ do: "select", node: child.id });
  };
  return html`<div class="tiles">
    ${node.children.map((child) => html`<button @click=${() => go(child)}>${Icon(child.image)}${child.name}</button>`)}
  </div>`;
}

function Count(view: View): string {
  const chosen = view.items.filter((item) => item.selected).length;
  const all = view.filter ? `${view.total} found` : `${view.total} ${view.total === 1 ? "item" : "items"}`;
  return chosen > 0 ? `${all}, ${chosen} selected` : all;
}

function Rows(view: View, node: TreeNode, port: PanePort): TemplateResult {
  wanted = view.offset === wanted ? -1 : wanted;
  const list = html`<qv-list class="pane-list" opens .model=${Model(view, node, port)}></qv-list>`;
  if (view.total > 0) return list;
  const why = view.filter ? `Nothing in this list holds “${view.filter}”.` : "There are no items in this list.";
  return html`${list}<div class="empty over"><p>${why}</p></div>`;
}

export function Pane(state: State, port: PanePort): TemplateResult {
  const node = SelectedNode(state.tree);
  const { session } = port;
  if (!node) {
    return html`<section class="pane" aria-labelledby="pane-title">
      <header><h2 id="pane-title">${Icon(state.tree.image)}${state.tree.name}</h2></header>
      <div class="content">${Children(state.tree, session)}</div>
    </section>`;
  }
  const { view } = state;
  const server = view?.host ?? "";
  const listed = view !== null && (view.columns.length > 0 || view.total > 0 || Boolean(view.filter));
  const where = ServerOf(node.id) && node.id.includes("/") ? server || ServerOf(node.id) : "";
  const on = where ? html` <span class="on">on ${where}</span>` : nothing;
  return html`<section class="pane" aria-labelledby="pane-title">
    <header>
      <h2 id="pane-title">${Icon(node.image)}<span>${node.name}</span>${on}</h2>
      <span class="count" role="status">${listed ? Count(view) : ""}</span>
      ${listed && view.filter !== undefined ? FilterBox(view, PaneId(view, node), session) : nothing}
    </header>
    ${ActionBar(session)} ${listed ? HostNotice(view, node, session) : nothing}
    <div class="content">${listed ? Rows(view, node, port) : Children(node, session)}</div>
  </section>`;
}
