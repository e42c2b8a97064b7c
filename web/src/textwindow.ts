import { html, nothing, render, type TemplateResult } from "lit/html.js";
import { live } from "lit/directives/live.js";
import { repeat } from "lit/directives/repeat.js";
import { Dragging, DragWindow } from "./drag.ts";
import { Icon } from "./icons.ts";
import type { Answer, FileRequest } from "./protocol.ts";
import { Questions, type SheetPort } from "./textquestions.ts";
import { Lines, LoadSheet, NameOf, NewSheet, type TextSheet } from "./textsheet.ts";

export interface FilePort {
  // Sends a request and returns its number, or 0 when there is no connection.
  Send(request: FileRequest): number;
  connected(): boolean;
}

// Plain text windows on files of the configuration directory. They stand in front of everything and hold up nothing.
export class TextWindows implements SheetPort {
  readonly element = document.createElement("div");
  private sheets: TextSheet[] = [];
  private waiting = new Map<number, { sheet: TextSheet; sent: string }>();
  private count = 0;

  constructor(private readonly port: FilePort) {
    this.element.className = "text-windows";
    addEventListener("beforeunload", (event) => {
      if (this.sheets.some((sheet) => sheet.text !== sheet.saved)) event.preventDefault();
    });
  }

  Open(path: string): void {
    let sheet = this.sheets.find((s) => s.path.toLowerCase() === path.toLowerCase());
    if (sheet) this.sheets = [...this.sheets.filter((s) => s !== sheet), sheet];
    else {
      sheet = NewSheet(path, ++this.count);
      this.sheets.push(sheet);
      this.Request(sheet, { file: "read", path });
    }
    this.Draw();
    this.Focus(sheet);
  }

  // Whether the answer was one to a request of these windows.
  Take(answer: Answer): boolean {
    const request = this.waiting.get(answer.id ?? 0);
    if (!request) return false;
    this.waiting.delete(answer.id ?? 0);
    const { sheet, sent } = request;
    sheet.busy = false;
    sheet.problem = answer.error ?? "";
    const { file } = answer;
    if (file && "text" in file) LoadSheet(sheet, file.text, file.version, !file.exists);
    else if (file && "conflict" in file) sheet.theirs = { ...file.conflict, viewed: false };
    else if (file && "version" in file) {
      sheet.version = file.version;
      sheet.saved = sent;
      sheet.fresh = false;
      sheet.theirs = null;
      if (sheet.asking) this.Remove(sheet);
    }
    this.Draw();
    return true;
  }

  // The connection has come or gone: what was asked of the old one gets no answer.
  Relink(): void {
    for (const { sheet } of this.waiting.values()) sheet.busy = false;
    this.waiting.clear();
    for (const sheet of this.sheets) {
      if (!sheet.loaded && this.port.connected()) this.Request(sheet, { file: "read", path: sheet.path });
    }
    this.Draw();
  }

  // Stands in the window in front, since all else is out of reach while a modal window is open.
  Place(host: Element): void {
    if (this.element.parentElement === host) return;
    const active = document.activeElement;
    const focused = this.element.contains(active) ? (active as HTMLElement) : null;
    if ("moveBefore" in host && this.element.isConnected) {
      (host as Element & { moveBefore(node: Node, child: Node | null): void }).moveBefore(this.element, null);
    } else host.append(this.element);
    this.Show();
    focused?.focus();
  }

  private Request(sheet: TextSheet, request: FileRequest): void {
    const id = this.port.Send(request);
    if (id === 0) return;
    sheet.busy = true;
    sheet.problem = "";
    this.waiting.set(id, { sheet, sent: sheet.text });
  }

  Save(sheet: TextSheet, version = sheet.version): void {
    if (sheet.busy || !sheet.loaded) return;
    const text = sheet.text.replace(/\n/g, sheet.ends);
    this.Request(sheet, { file: "write", path: sheet.path, text, version });
    this.Draw();
  }

  TakeTheirs(sheet: TextSheet): void {
    if (!sheet.theirs) return;
    sheet.aside = sheet.text;
    LoadSheet(sheet, sheet.theirs.text, sheet.theirs.version, false);
    sheet.theirs = null;
    this.Draw();
    this.Focus(sheet);
  }

  private Close(sheet: TextSheet): void {
    if (sheet.text !== sheet.saved) {
      sheet.asking = true;
      this.Draw();
      this.Box(sheet)?.querySelector<HTMLElement>(".ask button")?.focus();
    } else {
      this.Remove(sheet);
      this.Draw();
    }
  }

  Remove(sheet: TextSheet): void {
    this.sheets = this.sheets.filter((s) => s !== sheet);
  }

  private Box(sheet: TextSheet): HTMLElement | null {
    return this.element.querySelector(`#text-window-${sheet.number}`);
  }

  Focus(sheet: TextSheet): void {
    queueMicrotask(() => this.Box(sheet)?.querySelector<HTMLElement>("textarea.mine")?.focus());
  }

  private Key(event: KeyboardEvent, sheet: TextSheet): void {
    event.stopPropagation();
    if (event.key === "s" && (event.ctrlKey || event.metaKey)) this.Save(sheet);
    else if (event.key === "Escape") {
      if (sheet.asking) {
        sheet.asking = false;
        this.Draw();
        this.Focus(sheet);
      } else this.Close(sheet);
    } else if (event.key !== "F5") return;
    event.preventDefault();
  }

  Draw(): void {
    render(
      repeat(
        this.sheets,
        (sheet) => sheet.number,
        (sheet) => this.Window(sheet),
      ),
      this.element,
    );
    this.Show();
  }

  private Show(): void {
    for (const box of this.element.querySelectorAll<HTMLElement>("[popover]")) {
      if (!box.matches(":popover-open")) box.showPopover();
    }
  }

  private Status(sheet: TextSheet): string {
    if (sheet.problem) return sheet.problem;
    if (!this.port.connected()) return "Not connected. Your text is kept in this window.";
    if (sheet.busy) return sheet.loaded ? "Saving…" : "Opening…";
    if (sheet.text !== sheet.saved) return "Unsaved changes";
    return sheet.fresh ? "New file" : "Saved";
  }

  private Window(sheet: TextSheet): TemplateResult {
    const id = `text-window-${sheet.number}`;
    const shift = ((sheet.number - 1) % 5) * 28;
    const viewed = sheet.theirs?.viewed ? sheet.theirs : null;
    return html`<div
      class="text-window"
      id=${id}
      popover="manual"
      role="dialog"
      aria-labelledby="${id}-title"
      style="--shift:${shift}px"
      @keydown=${(e: KeyboardEvent) => this.Key(e, sheet)}
    >
      <div class="title" @pointerdown=${(e: PointerEvent) => DragWindow(e, this.Box(sheet))}>
        <h2 id="${id}-title" title=${sheet.path}>${NameOf(sheet.path)}</h2>
        <button class="plain" aria-label="Close" title="Close" @click=${() => this.Close(sheet)}>${Icon("close")}</button>
      </div>
      ${Questions(sheet, this)}
      <div class="texts">
        <div>
          ${viewed ? html`<span class="what">Your text</span>` : nothing}
          <textarea
            class="mine"
            aria-label="Text of ${NameOf(sheet.path)}"
            spellcheck="false"
            ?readonly=${!sheet.loaded}
            .value=${live(sheet.text)}
            @input=${(e: Event) => {
              sheet.text = (e.target as HTMLTextAreaElement).value;
              this.Draw();
            }}
          ></textarea>
        </div>
        ${viewed
          ? html`<div>
              <span class="what">Text on the disk</span>
              <textarea class="theirs" readonly aria-label="Text on the disk" .value=${Lines(viewed.text)}></textarea>
            </div>`
          : nothing}
      </div>
      <div class="foot">
        <span class="status ${sheet.problem ? "problem" : ""}" role="status">${this.Status(sheet)}</span>
        <div class="buttons">
          <button
            class="primary"
            ?disabled=${!sheet.loaded || sheet.busy || !this.port.connected() || (sheet.text === sheet.saved && !sheet.fresh)}
            @click=${() => this.Save(sheet)}
          >
            Save
          </button>
          <button @click=${() => this.Close(sheet)}>Close</button>
        </div>
      </div>
      <span class="corner" @pointerdown=${(e: PointerEvent) => this.Resize(e, sheet)}></span>
    </div>`;
  }

  private Resize(event: PointerEvent, sheet: TextSheet): void {
    const box = this.Box(sheet);
    const size = box?.getBoundingClientRect();
    if (!box || !size) return;
    Dragging(event, (dx, dy) => {
      box.style.width = `${Math.max(280, size.width + dx)}px`;
      box.style.height = `${Math.max(200, size.height + dy)}px`;
    });
  }
}
