import { html, noChange, type TemplateResult } from "lit/html.js";
import { directive, Directive, type ElementPart } from "lit/directive.js";
import { Icon } from "./icons.ts";
import type { View } from "./protocol.ts";
import type { Session } from "./session.ts";

// How long typing has to rest before the rows are asked for.
const kRest = 150;

// Keeps the box and the pane's filter in step; what has been typed and is not answered wins.
class FilterSync extends Directive {
  private box: HTMLInputElement | null = null;
  private session!: Session;
  private pane = "";
  private unsent = false;
  private lastEdit = 0;
  private timer = 0;

  override render(_text: string, _pane: string, _session: Session): unknown {
    return noChange;
  }

  override update(part: ElementPart, [text, pane, session]: [string, string, Session]): unknown {
    this.session = session;
    const box = (this.box ??= this.Listen(part.element as HTMLInputElement));
    if (pane !== this.pane) this.unsent = false;
    this.pane = pane;
    if (this.unsent) this.Later();
    else if (!session.Pending(this.lastEdit) && box.value !== text) box.value = text;
    return noChange;
  }

  private Listen(box: HTMLInputElement): HTMLInputElement {
    box.addEventListener("input", (event) => {
      if (!(event as InputEvent).isComposing) this.Changed();
    });
    box.addEventListener("compositionend", () => this.Changed());
    box.addEventListener("keydown", (event) => this.Key(box, event));
    return box;
  }

  private Key(box: HTMLInputElement, event: KeyboardEvent): void {
    if (event.isComposing) return;
    if (event.key === "Escape" && box.value !== "") {
      box.value = "";
      this.unsent = true;
      this.Send();
    } else if (event.key === "Enter") this.Send();
    else if (event.key === "ArrowDown") {
      this.Send();
      document.querySelector<HTMLElement>(".pane-list")?.focus();
    } else return;
    event.preventDefault();
  }

  private Changed(): void {
    this.unsent = true;
    this.Later();
  }

  private Later(): void {
    clearTimeout(this.timer);
    this.timer = setTimeout(() => this.Send(), kRest);
  }

  private Send(): void {
    clearTimeout(this.timer);
    const { state } = this.session;
    if (!this.unsent || !this.box || !state || state.message || state.sheet || state.dialogs.length > 0) return;
    this.unsent = false;
    this.lastEdit = this.session.Edit({ do: "filter", text: this.box.value });
  }
}

const Filtering = directive(FilterSync);

// What the pane's rows are called: its own name without what stands for its kind, in words.
function Rows(view: View): string {
  const words = view.name.replace(/^lvw/, "").replace(/(?<=[a-z])(?=[A-Z])/g, " ");
  return words.replace(/\b[A-Z](?=[a-z])/g, (letter) => letter.toLowerCase()) || "the list";
}

// The box that filters the pane's rows; `pane` changes when the rows are others.
export function FilterBox(view: View, pane: string, session: Session): TemplateResult {
  return html`<div class="find">
    ${Icon("find")}
    <input
      type="search"
      class="text"
      placeholder="Find"
      aria-label="Filter ${Rows(view)}"
      title="Filter ${Rows(view)} (Ctrl+F)"
      spellcheck="false"
      autocomplete="off"
      ${Filtering(view.filter ?? "", pane, session)}
    />
  </div>`;
}
