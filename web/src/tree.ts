import { html, nothing, type TemplateResult } from "lit/html.js";
import { repeat } from "lit/directives/repeat.js";
import { ref } from "lit/directives/ref.js";
import { TypeAhead } from "./captions.ts";
import { Icon } from "./icons.ts";
import type { TreeNode } from "./protocol.ts";
import type { Session } from "./session.ts";

interface Line {
  node: TreeNode;
  parent: TreeNode | null;
  level: number;
  position: number;
  siblings: number;
}

function Lines(node: TreeNode, parent: TreeNode | null = null, level = 1, position = 1, siblings = 1): Line[] {
  const children = node.expanded ? node.children : [];
  const below = children.flatMap((child, n) => Lines(child, node, level + 1, n + 1, children.length));
  return [{ node, parent, level, position, siblings }, ...below];
}

// The server a node stands under, or an empty text.
export function ServerOf(id: string): string {
  return /^server:([^/]*)/.exec(id)?.[1] ?? "";
}

const words = new TypeAhead();
let revealed = "";

// A node that has just been selected is brought into sight.
function Reveal(tree: Element | undefined, id: string): void {
  if (!tree || id === revealed) return;
  revealed = id;
  queueMicrotask(() => tree.querySelector(".selected")?.scrollIntoView({ block: "nearest" }));
}

export interface TreePort {
  session: Session;
  PopUp: (on: "node", x: number, y: number) => void;
}

function Identifier(index: number): string {
  return `node-${index}`;
}

function Toggle(session: Session, node: TreeNode): void {
  if (node.expandable) session.Select({ do: node.expanded ? "collapse" : "expand", node: node.id });
}

function Key(event: KeyboardEvent, lines: Line[], { session, PopUp }: TreePort): void {
  if (event.altKey || event.metaKey) return;
  const at = lines.findIndex((line) => line.node.selected);
  const line = lines[at];
  const go = (index: number): void => {
    const to = lines[index];
    if (to) session.Select({ do: "select", node: to.node.id });
  };
  const box = document.getElementById(Identifier(at))?.getBoundingClientRect();
  if (event.key === "ArrowDown") go(at + 1);
  else if (event.key === "ArrowUp") go(at - 1);
  else if (event.key === "Home") go(0);
  else if (event.key === "End") go(lines.length - 1);
  else if (event.key === "Enter" && line) Toggle(session, line.node);
  else if (event.key === "ArrowRight" && line?.node.expanded) go(at + 1);
  else if (event.key === "ArrowRight" && line) Toggle(session, line.node);
  else if (event.key === "ArrowLeft" && line) {
    if (line.node.expanded && line.node.expandable) Toggle(session, line.node);
    else if (line.parent) session.Select({ do: "select", node: line.parent.id });
  } else if (((event.key === "F10" && event.shiftKey) || event.key === "ContextMenu") && box) {
    PopUp("node", box.left + 40, box.bottom);
  } else if (event.key.length === 1 && event.key !== " " && !event.ctrlKey) {
    go(words.Find(event.key, lines.length, at, (n) => lines[n]?.node.name ?? ""));
  } else return;
  event.preventDefault();
}

export function Tree(root: TreeNode, port: TreePort): TemplateResult {
  const lines = Lines(root);
  const { session } = port;
  const at = lines.findIndex((line) => line.node.selected);
  return html`<div
    class="tree"
    role="tree"
    aria-label=${root.name}
    tabindex="0"
    aria-activedescendant=${at >= 0 ? Identifier(at) : nothing}
    ${ref((element) => Reveal(element, lines[at]?.node.id ?? ""))}
    @keydown=${(e: KeyboardEvent) => Key(e, lines, port)}
  >
    ${repeat(
      lines,
      (line) => line.node.id,
      ({ node, level, position, siblings }, n) =>
        html`<div
          id=${Identifier(n)}
          class="node ${node.selected ? "selected" : ""}"
          role="treeitem"
          aria-level=${level}
          aria-posinset=${position}
          aria-setsize=${siblings}
          aria-selected=${node.selected ? "true" : "false"}
          aria-expanded=${node.expandable ? (node.expanded ? "true" : "false") : nothing}
          style="--level:${level - 1}"
          title=${node.name}
          @click=${(e: MouseEvent) => {
            if (e.detail <= 1) session.Select({ do: "select", node: node.id });
          }}
          @dblclick=${() => Toggle(session, node)}
          @contextmenu=${(e: MouseEvent) => {
            e.preventDefault();
            if (!node.selected || session.target !== "node") session.Select({ do: "select", node: node.id });
            port.PopUp("node", e.clientX, e.clientY);
          }}
        >
          <span
            class="twisty ${node.expandable ? "" : "none"} ${node.expanded ? "open" : ""}"
            @click=${(e: MouseEvent) => {
              e.stopPropagation();
              Toggle(session, node);
            }}
            @dblclick=${(e: MouseEvent) => e.stopPropagation()}
            >${Icon("twisty")}</span
          >${Icon(node.image)}<span class="name">${node.name}</span>
        </div>`,
    )}
  </div>`;
}
