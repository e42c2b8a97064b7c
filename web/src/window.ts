import { html, nothing, type TemplateResult } from "lit/html.js";
import { DragWindow } from "./drag.ts";
import { Icon } from "./icons.ts";
import { AsModal } from "./modal.ts";

export interface WindowParts {
  id: string;
  kind: string;
  title: string;
  // A message box is an alert: its text is read out when it opens.
  alert?: string;
  body: unknown;
  foot: unknown;
  // What its close box and Esc do; null for none.
  Close: (() => void) | null;
  Key(event: KeyboardEvent): void;
  Opened(dialog: HTMLDialogElement): void;
}

export function Window(parts: WindowParts): TemplateResult {
  const { id, kind, title, body, foot, Close } = parts;
  const alert = parts.alert !== undefined;
  return html`<dialog
    class="window ${kind}"
    id=${id}
    role=${alert ? "alertdialog" : nothing}
    aria-labelledby="${id}-title"
    aria-describedby=${parts.alert ?? nothing}
    ${AsModal((dialog) => parts.Opened(dialog))}
    @cancel=${(e: Event) => e.preventDefault()}
    @keydown=${(e: KeyboardEvent) => {
      if (e.defaultPrevented || (e.target as Element).closest(".text-windows")) return;
      parts.Key(e);
    }}
  >
    <div class="title" @pointerdown=${(e: PointerEvent) => DragWindow(e, (e.currentTarget as Element).closest("dialog"))}>
      <h2 id="${id}-title" title=${title}>${title}</h2>
      ${Close
        ? html`<button class="plain" tabindex="-1" aria-label="Close" title="Close" @click=${Close}>${Icon("close")}</button>`
        : nothing}
    </div>
    <div class="inside">${body}</div>
    ${foot === nothing ? nothing : html`<div class="foot">${foot}</div>`}
  </dialog>`;
}

// The next stop of the Tab key; one that the browser would leave out is skipped.
export function Step(stops: (HTMLElement | null)[], back: boolean): HTMLElement | null {
  const open = stops.filter((stop): stop is HTMLElement => stop !== null && Focusable(stop));
  const at = open.findIndex((stop) => stop.contains(document.activeElement));
  const to = at < 0 ? (back ? -1 : 0) : (at + (back ? -1 : 1) + open.length) % open.length;
  return open.at(to) ?? null;
}

export function Focusable(element: HTMLElement): boolean {
  return !element.matches(":disabled, .off") && element.getClientRects().length > 0;
}
