import { html, nothing, type TemplateResult } from "lit/html.js";
import { ref } from "lit/directives/ref.js";
import { AccessKey, Caption, Plain } from "./captions.ts";
import { Icon } from "./icons.ts";
import type { Menu, MenuItem, Verb } from "./protocol.ts";
import type { Session, Target } from "./session.ts";

export const kVerbs: Record<Verb, { caption: string; keys: string }> = {
  delete: { caption: "&Delete", keys: "Del" },
  properties: { caption: "P&roperties", keys: "Alt+Enter" },
  refresh: { caption: "Re&fresh", keys: "F5" },
};

interface Choice {
  caption: string;
  keys: string;
  enabled: boolean;
  Do: () => void;
}

function Choices(session: Session, on: Target, menu: Menu): Choice[][] {
  const item = ({ name, caption, enabled }: MenuItem): Choice => ({
    caption,
    keys: "",
    enabled,
    Do: () => session.Choose(on, name),
  });
  const verb = (name: Verb): Choice => ({ ...kVerbs[name], enabled: true, Do: () => session.Select({ do: "verb", name }) });
  const groups = [menu.new.map(item), menu.top.map(item), menu.verbs.map(verb)];
  return groups.filter((group) => group.length > 0);
}

function Key(event: KeyboardEvent): void {
  const menu = event.currentTarget as HTMLElement;
  const items = [...menu.querySelectorAll<HTMLElement>("[role=menuitem]")];
  const at = items.indexOf(document.activeElement as HTMLElement);
  const count = items.length;
  const letter = event.key.toLowerCase();
  event.stopPropagation();
  if (event.key === "ArrowDown") items[(at + 1) % count]?.focus();
  else if (event.key === "ArrowUp") items[(at - 1 + count) % count]?.focus();
  else if (event.key === "Home") items[0]?.focus();
  else if (event.key === "End") items[count - 1]?.focus();
  else if (event.key === "Tab") menu.hidePopover();
  else if (event.key === " " || event.key === "Enter") items[at]?.click();
  else if (event.key.length === 1 && !event.ctrlKey) {
    const turned = [...items.slice(at + 1), ...items.slice(0, at + 1)];
    const meant = turned.filter((item) => item.dataset.access === letter);
    const first = meant[0] ?? turned.find((item) => item.textContent.trim().toLowerCase().startsWith(letter));
    if (meant.length === 1) meant[0]?.click();
    else first?.focus();
  } else return;
  event.preventDefault();
}

// Menus that have been opened once; one that is on its way out is drawn again and must not come back.
const shown = new WeakSet<Element>();

function Open(element: Element | undefined, x: number, y: number): void {
  const menu = element as HTMLElement | undefined;
  if (!menu || shown.has(menu)) return;
  shown.add(menu);
  queueMicrotask(() => {
    if (!menu.isConnected) return;
    menu.showPopover();
    const { width, height } = menu.getBoundingClientRect();
    menu.style.left = `${Math.max(4, Math.min(x, innerWidth - width - 4))}px`;
    menu.style.top = `${y + height > innerHeight - 4 ? Math.max(4, y - height) : y}px`;
    menu.querySelector<HTMLElement>("[role=menuitem]:not([aria-disabled])")?.focus();
  });
}

// The context menu at a place of the window. It goes away by itself when the person looks elsewhere.
export function PopupMenu(session: Session, on: Target, x: number, y: number, onClose: () => void): TemplateResult {
  const menu = session.menus[on];
  if (!menu) return html``;
  return html`<div
    class="menu"
    role="menu"
    aria-label="Actions"
    popover="auto"
    ${ref((element) => Open(element, x, y))}
    @toggle=${(e: ToggleEvent) => {
      if (e.newState === "closed") onClose();
    }}
    @keydown=${Key}
    @contextmenu=${(e: Event) => e.preventDefault()}
  >
    ${Choices(session, on, menu).map(
      (group, n) => html`${n > 0 ? html`<div role="separator"></div>` : nothing}
      ${group.map(
        (choice) =>
          html`<div
            role="menuitem"
            tabindex="-1"
            aria-disabled=${choice.enabled ? nothing : "true"}
            data-access=${AccessKey(choice.caption)}
            @click=${(e: MouseEvent) => {
              if (!choice.enabled) return;
              (e.currentTarget as HTMLElement).closest<HTMLElement>(".menu")?.hidePopover();
              choice.Do();
            }}
            @pointerenter=${(e: Event) => (e.currentTarget as HTMLElement).focus()}
          >
            <span>${Caption(choice.caption)}</span><span class="keys">${choice.keys}</span>
          </div>`,
      )}`,
    )}
  </div>`;
}

interface BarButton extends Choice {
  icon: string;
  name: string;
}

function BarButtons(session: Session): BarButton[][] {
  const { menus, state } = session;
  if (!state) return [];
  const on = session.target;
  const node = menus.node ?? { new: [], top: [], verbs: [] };
  const rows = on === "items" ? menus.items : null;
  const button = (target: Target, icon: string) => (item: MenuItem) => ({
    name: item.name,
    caption: item.caption,
    keys: "",
    enabled: item.enabled,
    icon,
    Do: () => session.Choose(target, item.name),
  });
  const verbs = (["delete", "properties", "refresh"] as const).map((name) => ({
    ...kVerbs[name],
    name,
    icon: name,
    enabled: state.verbs[name],
    Do: () => session.Select({ do: "verb", name }),
  }));
  const ofRows = [...(rows?.new ?? []), ...(rows?.top ?? [])].map(button("items", ""));
  const ofNode = node.top.filter((item) => !ofRows.some((other) => other.name === item.name)).map(button("node", ""));
  return [node.new.map(button("node", "add")), [...ofRows, ...ofNode], verbs].filter((group) => group.length > 0);
}

// One tab stop; the arrow keys go along the buttons.
function BarKey(event: KeyboardEvent): void {
  const step = event.key === "ArrowRight" ? 1 : event.key === "ArrowLeft" ? -1 : 0;
  if (step === 0) return;
  const buttons = [...(event.currentTarget as HTMLElement).querySelectorAll<HTMLElement>("button:not([disabled])")];
  const at = buttons.indexOf(document.activeElement as HTMLElement);
  buttons[(at + step + buttons.length) % buttons.length]?.focus();
  event.preventDefault();
}

export function ActionBar(session: Session): TemplateResult {
  const groups = BarButtons(session);
  const first = groups.flat().find((button) => button.enabled);
  return html`<div class="bar" role="toolbar" aria-label="Actions" @keydown=${BarKey}>
    ${groups.map(
      (group) =>
        html`<div class="group">
          ${group.map(
            (button) =>
              html`<button
                data-action=${button.name}
                ?disabled=${!button.enabled}
                tabindex=${button === first ? 0 : -1}
                title=${button.keys ? `${Plain(button.caption)} (${button.keys})` : nothing}
                @click=${button.Do}
              >
                ${button.icon ? Icon(button.icon) : nothing}<span>${Plain(button.caption)}</span>
              </button>`,
          )}
        </div>`,
    )}
  </div>`;
}
