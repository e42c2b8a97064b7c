import { html, nothing, type TemplateResult } from "lit/html.js";
import { AccessKey, AltLetter, Plain } from "./captions.ts";
import { FieldOf, FormParts } from "./layout.ts";
import type { Control, Form, Sheet } from "./protocol.ts";
import type { FormPort, Session } from "./session.ts";
import { Focusable, Step, Window } from "./window.ts";

function Element(root: ParentNode, name: string): HTMLElement | null {
  return root.querySelector<HTMLElement>(`[data-control="${CSS.escape(name)}"]`);
}

// The stops of the Tab key in the order of the controls; of the options of a frame only the chosen one.
function Stops(root: ParentNode, form: Form): (HTMLElement | null)[] {
  const fellows = (c: Control): Control[] =>
    form.controls.filter((o) => o.kind === "option" && o.parent === c.parent && o.visible && o.enabled);
  const reached = (c: Control): boolean => {
    if (c.kind !== "option") return true;
    const chosen = fellows(c).find((o) => o.kind === "option" && o.checked) ?? fellows(c)[0];
    return c === chosen;
  };
  return form.controls.filter((c) => c.visible && c.enabled && reached(c)).map((c) => Element(root, c.name));
}

// Brings the focus to a control as the Tab key does, and tells the console.
function TabTo(stop: HTMLElement | null, port: FormPort): void {
  if (!stop) return;
  stop.focus();
  stop.dispatchEvent(new CustomEvent("tab-focus"));
  const control = stop.dataset.control;
  if (control) port.Edit({ do: "focus", control, tab: true });
}

function Button(form: Form, which: "default" | "cancel"): Control | undefined {
  return form.controls.find((c) => c.kind === "button" && c[which] && c.visible && c.enabled);
}

// The button that moves the rows of the list that has the focus: the one in the same frame. The moving buttons have
// the focus themselves once they were used.
function MoveButton(target: HTMLElement, form: Form, picture: "up" | "down"): Control | undefined {
  const name = target.closest<HTMLElement>("[data-control]")?.dataset.control;
  const from = form.controls.find((c) => c.name === name);
  if (!from || (from.kind !== "listview" && !(from.kind === "button" && from.picture))) return undefined;
  return form.controls.find(
    (c) => c.kind === "button" && c.picture === picture && c.parent === from.parent && c.visible && c.enabled,
  );
}

// Alt and a letter: presses a button, turns a box over, or brings the focus to what a label or a frame names.
function Access(root: ParentNode, form: Form, letter: string, port: FormPort): boolean {
  const meant = form.controls.find((c) => "caption" in c && c.visible && c.enabled && AccessKey(c.caption) === letter);
  if (!meant) return false;
  if (meant.kind === "label" || meant.kind === "frame") {
    const after = form.controls.slice(form.controls.indexOf(meant) + 1);
    const field = FieldOf(form.layout, meant.name) ?? after.find((c) => c.kind !== "label" && c.visible)?.name;
    if (field) {
      Element(root, field)?.focus();
      port.Edit({ do: "focus", control: field, tab: false });
    }
    return true;
  }
  const element = Element(root, meant.name);
  element?.focus();
  element?.click();
  return true;
}

function FormKey(event: KeyboardEvent, form: Form, port: FormPort, after: () => (HTMLElement | null)[]): boolean {
  const root = event.currentTarget as HTMLElement;
  const target = event.target as HTMLElement;
  const letter = AltLetter(event);
  if (event.isComposing) return false;
  if (event.key === "Tab" && !event.ctrlKey && !event.altKey) {
    TabTo(Step([...Stops(root, form), ...after()], event.shiftKey), port);
  } else if (event.key === "Enter" && !event.altKey && !event.ctrlKey) {
    if (target.matches("textarea, button, qv-code")) return false;
    const button = Button(form, "default");
    if (!button) return false;
    port.Command({ do: "click", control: button.name });
  } else if (event.altKey && (event.key === "ArrowUp" || event.key === "ArrowDown")) {
    const button = MoveButton(target, form, event.key === "ArrowUp" ? "up" : "down");
    if (!button) return false;
    port.Command({ do: "click", control: button.name });
  } else if (letter && Access(root, form, letter, port)) {
    // Done.
  } else return false;
  event.preventDefault();
  return true;
}

// A form that opens: the focus goes to the control that the console says, or to the first.
function FirstFocus(dialog: HTMLElement, form: Form): void {
  const said = form.controls.find((c) => c.focus && c.enabled && c.visible);
  const stops = Stops(dialog, form).filter((stop) => stop !== null && Focusable(stop));
  const first = (said && Element(dialog, said.name)) ?? stops[0] ?? dialog.querySelector<HTMLElement>(".title button");
  first?.focus();
  first?.dispatchEvent(new CustomEvent("tab-focus"));
}

// A place in a form that the mouse goes to gets the console's focus as well.
function PointerFocus(event: PointerEvent, port: FormPort): void {
  const element = (event.target as HTMLElement).closest<HTMLElement>("input.text, textarea, select, qv-code");
  const control = element?.dataset.control;
  if (control && element !== document.activeElement) port.Edit({ do: "focus", control, tab: false });
}

// The session for the controls of a form: a command finds the caret told.
function PortOf(session: Session): FormPort {
  return {
    Edit: (event) => session.Edit(event),
    Command: (event) => {
      document.activeElement?.dispatchEvent(new CustomEvent("tell-caret"));
      return session.Command(event);
    },
    Pending: (id) => session.Pending(id),
    Dropped: (id) => session.Dropped(id),
    Blocked: () => session.Blocked(),
    Fault: () => session.Fault(),
  };
}

function Body(session: Session, form: Form, prefix: string): { body: unknown; foot: unknown } {
  const { body, foot } = FormParts({ form, port: PortOf(session), prefix });
  return {
    body: html`<div class="form" @pointerdown=${(e: PointerEvent) => PointerFocus(e, session)}>${body}</div>`,
    foot,
  };
}

// The stop button of the window, if it is there.
function Extra(event: KeyboardEvent): (HTMLElement | null)[] {
  return [(event.currentTarget as HTMLElement).querySelector<HTMLElement>("[data-stop]")];
}

export function Dialog(session: Session, form: Form, depth: number, extra: unknown): TemplateResult {
  const id = `dialog-${depth}`;
  const { body, foot } = Body(session, form, id);
  const close = (): void => void session.Command({ do: "close" });
  return Window({
    id,
    kind: form.size ?? "medium",
    title: Plain(form.caption),
    body: html`${body}${extra}`,
    foot,
    Close: close,
    Key(event) {
      if (FormKey(event, form, PortOf(session), () => Extra(event)) || event.key !== "Escape") return;
      event.preventDefault();
      const cancel = Button(form, "cancel");
      if (cancel) session.Command({ do: "click", control: cancel.name });
      else close();
    },
    Opened: (dialog) => FirstFocus(dialog, form),
  });
}

function TabKey(event: KeyboardEvent, sheet: Sheet, session: Session): void {
  const step = event.key === "ArrowRight" ? 1 : event.key === "ArrowLeft" ? -1 : 0;
  const count = sheet.pages.length;
  if (step === 0 || count < 2) return;
  event.preventDefault();
  const index = (sheet.active + step + count) % count;
  session.Command({ do: "page", index });
  (event.currentTarget as HTMLElement).querySelectorAll<HTMLElement>("[role=tab]")[index]?.focus();
}

export function SheetWindow(session: Session, sheet: Sheet, extra: unknown): TemplateResult {
  const { form } = sheet;
  const { body, foot } = Body(session, form, "sheet");
  const press = (button: "ok" | "cancel" | "apply" | "help") => () => void session.Command({ do: "sheet", button });
  const help = sheet.pages[sheet.active]?.help ?? false;
  const tabs = html`<div class="tabs" role="tablist" @keydown=${(e: KeyboardEvent) => TabKey(e, sheet, session)}>
    ${sheet.pages.map(
      (page, index) =>
        html`<button
          role="tab"
          id="tab-${index}"
          aria-selected=${index === sheet.active ? "true" : "false"}
          aria-controls="sheet-page"
          tabindex=${index === sheet.active ? 0 : -1}
          @click=${() => index !== sheet.active && session.Command({ do: "page", index })}
        >
          ${page.caption}
        </button>`,
    )}
  </div>`;
  return Window({
    id: "sheet",
    kind: `sheet ${form.size ?? "medium"}`,
    title: sheet.title,
    body: html`${tabs}
      <div id="sheet-page" class="page" role="tabpanel" aria-labelledby="tab-${sheet.active}">${body}${foot}</div>
      ${extra}`,
    foot: html`<div class="buttons">
      <button class="primary" data-sheet="ok" @click=${press("ok")}>OK</button>
      <button data-sheet="cancel" @click=${press("cancel")}>Cancel</button>
      <button data-sheet="apply" ?disabled=${!sheet.changed} @click=${press("apply")}>Apply</button>
      ${help ? html`<button data-sheet="help" @click=${press("help")}>Help</button>` : nothing}
    </div>`,
    Close: press("cancel"),
    Key(event) {
      const root = event.currentTarget as HTMLElement;
      const after = (): (HTMLElement | null)[] => [
        ...Extra(event),
        ...root.querySelectorAll<HTMLElement>("[data-sheet]"),
        root.querySelector<HTMLElement>("[role=tab][aria-selected=true]"),
      ];
      if (FormKey(event, form, PortOf(session), after)) return;
      if (event.key === "Escape") press("cancel")();
      else if (event.key === "Enter" && !(event.target as Element).matches("button, textarea, qv-code")) press("ok")();
      else return;
      event.preventDefault();
    },
    Opened: (dialog) => FirstFocus(dialog, form),
  });
}

// After a redraw: keeps the focus in the window in front, where the console or the person has it.
export class FocusKeeper {
  private said: string | null = null;
  private last: string | null = null;
  // The console doesn't know the sheet's own buttons: after a message box that one of them has brought up, the control
  // that has the console's focus is the one meant, also when it had it before.
  private boxed = false;

  constructor() {
    document.addEventListener("focusin", (event) => {
      const control = (event.target as Element).closest<HTMLElement>("[data-control]");
      if (control) this.last = control.dataset.control ?? null;
    });
  }

  // `form` is the form in front, or null when there is none or a message box stands before it.
  Keep(form: Form | null, dialog: HTMLElement | null, idle: boolean): void {
    if (!form) this.boxed = true;
    if (!form || !dialog?.matches(":modal")) return;
    if (idle) {
      if (this.boxed && document.activeElement?.matches("[data-sheet]")) this.said = null;
      this.boxed = false;
      const control = form.controls.find((c) => c.focus);
      const said = control ? `${form.name}/${control.name}` : null;
      if (said !== this.said && control) {
        const element = Element(dialog, control.name);
        if (element && !element.contains(document.activeElement) && !Away(dialog) && !Entered(control)) {
          element.focus();
          element.dispatchEvent(new CustomEvent("tab-focus"));
        }
      }
      this.said = said;
    }
    const active = document.activeElement as HTMLElement | null;
    if (active && active !== document.body && active !== dialog && !active.matches(":disabled")) return;
    const from = form.controls.findIndex((c) => c.name === this.last);
    const turned = [...form.controls.slice(from + 1), ...form.controls.slice(0, from + 1)];
    const stop = turned
      .filter((c) => c.visible && c.enabled)
      .map((c) => Element(dialog, c.name))
      .find((element) => element !== null && Focusable(element));
    stop?.focus();
  }
}

// Whether Enter may have pressed this button from a box that still takes text: the person goes on there.
function Entered(control: Control): boolean {
  if (control.kind !== "button" || !control.default) return false;
  return document.activeElement?.matches("input.text:enabled") ?? false;
}

// Whether the person is in one of the text windows that stand before the dialog.
function Away(dialog: HTMLElement): boolean {
  return dialog.querySelector(".text-windows")?.contains(document.activeElement) ?? false;
}
