import { noChange } from "lit/html.js";
import { directive, Directive, type ElementPart } from "lit/directive.js";
import type { TextControl } from "./protocol.ts";
import type { FormPort } from "./session.ts";

// Positions in the browser count UTF-16 units of a text whose line ends are one character (or none at all, in a box
// of one line); those of the console count characters of the text as it is.

interface Range {
  start: number;
  length: number;
}

// The text as the browser holds it.
export function Shown(raw: string, multiline: boolean): string {
  return multiline ? raw.replace(/\r\n?/g, "\n") : raw.replace(/[\r\n]/g, "");
}

// Walks over the text; returns the index in `raw` of the browser's position `units`.
function RawIndex(raw: string, units: number, multiline: boolean): number {
  let seen = 0;
  let at = 0;
  while (at < raw.length) {
    const c = raw[at];
    const end = c === "\r" || c === "\n";
    if (seen >= units && !(end && !multiline)) break;
    const pair = c === "\r" && raw[at + 1] === "\n";
    if (!end || multiline) seen++;
    at += pair ? 2 : 1;
  }
  return at;
}

export function CharCount(text: string): number {
  return Array.from(text).length;
}

export function ToConsole(raw: string, units: number, multiline: boolean): number {
  return CharCount(raw.slice(0, RawIndex(raw, units, multiline)));
}

export function ToBrowser(raw: string, chars: number, multiline: boolean): number {
  let at = 0;
  for (let n = 0; n < chars && at < raw.length; n++) at += (raw.codePointAt(at) ?? 0) > 0xffff ? 2 : 1;
  return Shown(raw.slice(0, at), multiline).length;
}

// The part of a text that another text has differently.
export function Difference(before: string, after: string): { from: number; to: number; insert: string } {
  let head = 0;
  const most = Math.min(before.length, after.length);
  while (head < most && before[head] === after[head]) head++;
  let tail = 0;
  while (tail < most - head && before.at(-1 - tail) === after.at(-1 - tail)) tail++;
  return { from: head, to: before.length - tail, insert: after.slice(head, after.length - tail) };
}

// The text as it is, after the browser has changed what it shows: the parts that are the same keep their line ends,
// new line ends are those of the console.
export function Splice(raw: string, before: string, after: string, multiline: boolean): string {
  const change = Difference(before, after);
  const from = RawIndex(raw, change.from, multiline);
  const to = RawIndex(raw, change.to, multiline);
  return raw.slice(0, from) + change.insert.replace(/\n/g, "\r\n") + raw.slice(Math.max(from, to));
}

type Box = HTMLInputElement | HTMLTextAreaElement;

// Keeps a text box and its control in step. What the person types stands at once and goes out as keys; while any of
// it is unanswered, the text that comes back does not touch the box.
class TextSync extends Directive {
  private box: Box | null = null;
  private control!: TextControl;
  private port!: FormPort;
  private raw = "";
  // Where the console has the caret, as far as it is known here.
  private known: Range | null = null;
  private lastEdit = 0;
  private composing = false;
  private before = { value: "", start: 0, end: 0 };
  private keys: string | null = null;

  override render(_control: TextControl, _port: FormPort): unknown {
    return noChange;
  }

  override update(part: ElementPart, [control, port]: [TextControl, FormPort]): unknown {
    this.control = control;
    this.port = port;
    if (!this.box) this.Listen((this.box = part.element as Box));
    this.Show(this.box);
    return noChange;
  }

  private Show(box: Box): void {
    if (this.composing || this.port.Pending(this.lastEdit)) return;
    const { text, multiline, selStart, selLength } = this.control;
    const shown = Shown(text, multiline);
    const server = { start: selStart, length: selLength };
    const moved = this.known !== null && (this.known.start !== selStart || this.known.length !== selLength);
    this.raw = text;
    this.known = server;
    const changed = box.value !== shown;
    if (changed) box.value = shown;
    if (changed || (moved && box.ownerDocument.activeElement === box)) this.Place(box);
  }

  // Puts the caret where the console has it.
  private Place(box: Box): void {
    if (!this.known) return;
    const { multiline } = this.control;
    const start = ToBrowser(this.raw, this.known.start, multiline);
    const end = ToBrowser(this.raw, this.known.start + this.known.length, multiline);
    if (box.ownerDocument.activeElement === box) box.setSelectionRange(start, end);
  }

  private Listen(box: Box): void {
    box.addEventListener("beforeinput", (event) => this.BeforeInput(box, event as InputEvent));
    box.addEventListener("input", () => this.Input(box));
    box.addEventListener("compositionstart", () => {
      this.composing = true;
    });
    box.addEventListener("compositionend", () => {
      this.composing = false;
      this.SendWhole(box);
    });
    // What comes next may act at the caret, so the console is told of it before.
    box.addEventListener("tell-caret", () => this.TellCaret(box));
    box.addEventListener("blur", (event) => {
      const to = (event as FocusEvent).relatedTarget;
      if (to instanceof Node && box.closest("dialog")?.contains(to)) this.TellCaret(box);
    });
    // The browser selects the whole text of a box that is reached by Tab; here the console decides that.
    box.addEventListener("tab-focus", () => {
      const edits = this.lastEdit;
      this.Place(box);
      setTimeout(() => {
        if (edits === this.lastEdit) this.Place(box);
      });
    });
  }

  private BeforeInput(box: Box, event: InputEvent): void {
    this.before = { value: box.value, start: box.selectionStart ?? 0, end: box.selectionEnd ?? 0 };
    this.keys = null;
    if (event.isComposing) return;
    if (event.inputType === "insertText" && event.data !== null) {
      const allowed = this.control.keys;
      if (allowed !== undefined && Array.from(event.data).some((c) => !allowed.includes(c))) event.preventDefault();
      this.keys = event.data;
    } else if (event.inputType === "insertLineBreak" || event.inputType === "insertParagraph") {
      this.keys = "\r";
    } else if (event.inputType === "deleteContentBackward") {
      this.keys = "\b";
    }
  }

  // What the box would hold if the keys did what the console does on them; anything else goes out as a whole text.
  private Expected(): string | null {
    const { value, start, end } = this.before;
    if (this.keys === null) return null;
    if (this.keys !== "\b") return value.slice(0, start) + this.keys.replace("\r", "\n") + value.slice(end);
    if (start !== end) return value.slice(0, start) + value.slice(end);
    const last = Array.from(value.slice(Math.max(0, start - 2), start)).at(-1) ?? "";
    return value.slice(0, start - last.length) + value.slice(end);
  }

  private Input(box: Box): void {
    if (this.composing) return;
    const { name: control, multiline } = this.control;
    if (this.keys === null || this.Expected() !== box.value) {
      this.SendWhole(box);
      return;
    }
    const start = ToConsole(this.raw, this.before.start, multiline);
    const length = ToConsole(this.raw, this.before.end, multiline) - start;
    this.raw = Splice(this.raw, this.before.value, box.value, multiline);
    if (this.known?.start !== start || this.known.length !== length) {
      this.port.Edit({ do: "caret", control, start, length });
    }
    this.known = { start: ToConsole(this.raw, box.selectionStart ?? 0, multiline), length: 0 };
    this.lastEdit = this.port.Edit({ do: "type", control, text: this.keys });
  }

  private TellCaret(box: Box): void {
    if (this.composing) return;
    const { name: control, multiline } = this.control;
    const start = ToConsole(this.raw, box.selectionStart ?? 0, multiline);
    const length = ToConsole(this.raw, box.selectionEnd ?? 0, multiline) - start;
    if (this.known?.start === start && this.known.length === length) return;
    this.known = { start, length };
    this.lastEdit = this.port.Edit({ do: "caret", control, start, length });
  }

  private SendWhole(box: Box): void {
    const { name: control, multiline } = this.control;
    const { raw } = this;
    this.raw = Splice(raw, Shown(raw, multiline), box.value, multiline);
    if (this.raw === raw) return;
    this.known = null;
    this.lastEdit = this.port.Edit({ do: "set", control, text: this.raw });
  }
}

export const Synchronized = directive(TextSync);
