// The code editor, a bundle of its own that is loaded when a form shows code.
import { isolateHistory } from "@codemirror/commands";
import { Annotation, Compartment, EditorState, type Extension } from "@codemirror/state";
import { EditorView } from "@codemirror/view";
import type { CodeModel } from "./codemodel.ts";
import { Extensions } from "./editorsetup.ts";
import type { Fault } from "./fault.ts";
import { FaultMark, MarkFault } from "./faultmark.ts";
import { Difference, Shown, Splice, ToBrowser, ToConsole } from "./textbox.ts";

export interface CodeEditor {
  Update(model: CodeModel): void;
  // Sends the text now, if it has been changed since it was sent last.
  Send(): void;
  // Sends the text and the caret, for what comes next may act at it.
  TellCaret(): void;
  focus(): void;
  Destroy(): void;
}

export type Mount = (root: ShadowRoot, model: CodeModel, caret: { start: number; end: number } | null) => CodeEditor;

// How long typing has to rest before the text goes out by itself.
const kRest = 400;

const fromConsole = Annotation.define<boolean>();

// Keeps an editor and its control in step. The text goes out whole when typing rests and before every command. While
// a change has not been sent or not been answered, the text that comes back does not touch the editor.
class Editor implements CodeEditor {
  private readonly view: EditorView;
  private readonly setup = new Compartment();
  private model: CodeModel;
  // The console's text, its line ends as they are, as far as it is known here.
  private raw: string;
  // Where the console has the caret, in its own count; null when that is not known.
  private known: { start: number; length: number } | null;
  private unsent = false;
  private lastEdit = 0;
  private timer = 0;
  private fault: Fault | null = null;

  constructor(root: ShadowRoot, model: CodeModel, caret: { start: number; end: number } | null) {
    const { text, selStart: start, selLength: length } = model.control;
    this.model = model;
    this.raw = text;
    this.known = { start, length };
    const selection = caret ? { anchor: caret.start, head: caret.end } : this.Place(this.known);
    const listen = EditorView.updateListener.of((update) => {
      if (update.docChanged && !update.transactions.some((tr) => tr.annotation(fromConsole))) this.Changed();
    });
    const extensions = [Extensions, FaultMark, listen, this.setup.of(this.Settings())];
    this.view = new EditorView({
      root,
      parent: root,
      state: EditorState.create({ doc: text, selection, extensions }),
    });
    root.addEventListener("keydown", (event) => this.PanelKey(event as KeyboardEvent));
    this.Update(model);
  }

  Update(model: CodeModel): void {
    const { label, control } = this.model;
    this.model = model;
    if (model.label !== label || model.control.enabled !== control.enabled) {
      this.view.dispatch({ effects: this.setup.reconfigure(this.Settings()) });
    }
    if (model.port.Dropped(this.lastEdit)) {
      this.lastEdit = 0;
      this.raw = model.control.text;
      this.known = null;
      this.unsent = true;
    }
    if (this.unsent) this.Later();
    else if (!this.view.composing && !model.port.Pending(this.lastEdit)) this.Show();
    this.WatchFault();
  }

  Send(): void {
    if (!this.unsent || this.view.composing) return;
    clearTimeout(this.timer);
    this.unsent = false;
    const text = Splice(this.raw, Shown(this.raw, true), this.view.state.doc.toString(), true);
    if (text === this.raw) return;
    this.raw = text;
    this.known = null;
    this.lastEdit = this.model.port.Edit({ do: "set", control: this.model.control.name, text });
  }

  TellCaret(): void {
    this.Send();
    if (this.unsent) return;
    const { from, to } = this.view.state.selection.main;
    const start = ToConsole(this.raw, from, true);
    const length = ToConsole(this.raw, to, true) - start;
    if (this.known?.start === start && this.known.length === length) return;
    this.known = { start, length };
    this.lastEdit = this.model.port.Edit({ do: "caret", control: this.model.control.name, start, length });
  }

  focus(): void {
    this.view.focus();
  }

  Destroy(): void {
    clearTimeout(this.timer);
    this.view.destroy();
  }

  private Settings(): Extension {
    const { label, control } = this.model;
    return [
      EditorView.contentAttributes.of({
        "aria-label": label,
        "aria-disabled": control.enabled ? "false" : "true",
        tabindex: "0",
      }),
      EditorView.editable.of(control.enabled),
      EditorState.readOnly.of(!control.enabled),
    ];
  }

  private Changed(): void {
    this.unsent = true;
    this.Later();
  }

  // A text that goes out while a command is under way would find the windows changed, so it waits for the answer.
  private Later(): void {
    clearTimeout(this.timer);
    this.timer = setTimeout(() => {
      if (this.view.composing) this.Later();
      else if (!this.model.port.Blocked()) this.Send();
    }, kRest);
  }

  private Place({ start, length }: { start: number; length: number }): { anchor: number; head: number } {
    return { anchor: ToBrowser(this.raw, start, true), head: ToBrowser(this.raw, start + length, true) };
  }

  // Takes over what the console has.
  private Show(): void {
    const { text, selStart: start, selLength: length } = this.model.control;
    const moved = this.known !== null && (this.known.start !== start || this.known.length !== length);
    this.known = { start, length };
    this.raw = text;
    const before = this.view.state.doc.toString();
    const after = Shown(text, true);
    if (before === after && !moved) return;
    const changes = Difference(before, after);
    const seen = before === after ? [] : EditorView.scrollIntoView(changes.from, { y: "center" });
    this.view.dispatch({
      changes,
      selection: this.Place(this.known),
      effects: seen,
      annotations: [fromConsole.of(true), isolateHistory.of("full")],
    });
  }

  // A check that failed names a line: it is marked at once, and the caret goes there when the box is answered.
  private WatchFault(): void {
    const { fault } = this;
    this.fault = this.model.port.Fault();
    if (this.fault && !fault) this.view.dispatch({ effects: MarkFault.of(this.fault) });
    if (!fault || this.fault) return;
    const { doc } = this.view.state;
    const line = doc.line(Math.max(1, Math.min(fault.line, doc.lines)));
    const anchor = Math.min(line.from + fault.column, line.to);
    this.view.dispatch({ selection: { anchor }, effects: EditorView.scrollIntoView(anchor, { y: "center" }) });
    // The box that closes gives the focus back to what had it before.
    queueMicrotask(() => {
      this.view.focus();
      this.TellCaret();
    });
  }

  // Within the find panel the Tab key goes from field to field, and back into the text before its first.
  private PanelKey(event: KeyboardEvent): void {
    const panel = (event.target as Element).closest(".cm-panel");
    if (!panel || event.defaultPrevented) return;
    if (event.key === "Enter" || event.key === " ") event.stopPropagation();
    if (event.key !== "Tab") return;
    const fields = [...panel.querySelectorAll<HTMLElement>("input, button")].filter((e) => e.getClientRects().length > 0);
    const at = fields.indexOf(event.target as HTMLElement);
    const next = event.shiftKey ? at - 1 : at + 1;
    if (next === fields.length) return;
    event.preventDefault();
    event.stopPropagation();
    if (next < 0) this.view.focus();
    else fields[next]?.focus();
  }
}

export const MountEditor: Mount = (root, model, caret) => new Editor(root, model, caret);
