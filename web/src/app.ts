import { html, nothing, render, type TemplateResult } from "lit/html.js";
import { keyed } from "lit/directives/keyed.js";
import { repeat } from "lit/directives/repeat.js";
import { Connection } from "./connection.ts";
import { Dialog, FocusKeeper, SheetWindow } from "./form.ts";
import { Icon } from "./icons.ts";
import { LinkWindow } from "./link.ts";
import { PopupMenu } from "./menu.ts";
import { MessageBox } from "./message.ts";
import { Pane } from "./pane.ts";
import type { Answer, Form, Start, State } from "./protocol.ts";
import { SelectedNode, Session, type Target } from "./session.ts";
import { Splitter } from "./splitter.ts";
import { TextWindows } from "./textwindow.ts";
import { ServerOf, Tree } from "./tree.ts";

const kProduct = "Quillvane Filtering Administration";
// In milliseconds: when an answer counts as slow, and when what runs may be stopped.
const kSlow = 300;
const kLong = 1000;

interface Notice {
  text: string;
  link?: { address: string; text: string };
}

class App {
  private readonly root: HTMLElement;
  private readonly focus = new FocusKeeper();
  private readonly connection = new Connection(
    (answer) => this.Take(answer),
    () => this.Linked(),
  );
  private readonly session = new Session(
    (message) => this.connection.send(message),
    () => this.Schedule(),
    (text) => this.Tell({ text: `That was not possible: ${text}` }),
  );
  private readonly files = new TextWindows({
    Send: (request) => {
      const id = this.session.NewId();
      return this.connection.send({ ...request, id }) ? id : 0;
    },
    connected: () => this.connection.link.at === "open",
  });
  private scheduled = false;
  private notice: Notice | null = null;
  private noticeTimer = 0;
  private busyTimer = 0;
  private busy = false;
  private long = false;
  private resumed = false;
  private menuAt = { x: 0, y: 0 };
  private treeWidth = 288;
  private started = false;

  constructor(root: HTMLElement) {
    this.root = root;
    document.addEventListener("keydown", (event) => this.Key(event));
    setInterval(() => {
      if (this.connection.link.at === "unreachable") this.Schedule();
    }, 1000);
    this.connection.open();
  }

  private Take(answer: Answer): void {
    if (this.files.Take(answer)) return;
    this.session.Take(answer);
    for (const start of answer.state?.started ?? []) this.Start(start);
  }

  private Linked(): void {
    const { link, sessions } = this.connection;
    if (link.at === "open") {
      this.session.Reset();
      this.resumed = sessions > 1;
    }
    this.files.Relink();
    this.Schedule();
  }

  private Start(start: Start): void {
    if (start.kind === "program") {
      // The system's text editor on a file: the console has a window of its own for that.
      const path = /^notepad "(.*)"$/.exec(start.command)?.[1];
      if (path !== undefined) this.files.Open(path);
      else this.Tell({ text: `The console asked to start: ${start.command}` });
      return;
    }
    const page = start.kind === "help" ? /([\w-]+)\.html?$/i.exec(start.topic)?.[1] : undefined;
    const address = start.kind === "url" ? start.address : page ? `/help/${page}.html` : "/help/";
    if (!/^https?:$/.test(new URL(address, location.href).protocol)) return;
    window.open(address, "_blank", "noopener");
    const text = start.kind === "help" ? "Help has been opened in a new tab." : "A page has been opened in a new tab.";
    this.Tell({ text, link: { address, text: "Open it again" } });
  }

  private Tell(notice: Notice): void {
    clearTimeout(this.noticeTimer);
    this.notice = notice;
    this.noticeTimer = setTimeout(() => {
      this.notice = null;
      this.Schedule();
    }, 8000);
    this.Schedule();
  }

  private Schedule(): void {
    if (this.scheduled) return;
    this.scheduled = true;
    queueMicrotask(() => {
      this.scheduled = false;
      this.Draw();
    });
  }

  private PopUp(on: Target, x: number, y: number): void {
    this.menuAt = { x, y };
    this.session.AskPopup(on);
  }

  // Keys that act wherever the focus is in the console itself.
  private Key(event: KeyboardEvent): void {
    const { state } = this.session;
    if (event.key === "F5" && !event.ctrlKey) event.preventDefault();
    if (!state || event.defaultPrevented !== (event.key === "F5") || this.Covered(state)) return;
    if (event.key.toLowerCase() === "f" && event.ctrlKey && !event.altKey && !event.shiftKey) this.Find(event);
    if (event.key === "F5" && state.verbs.refresh) this.session.Select({ do: "verb", name: "refresh" });
    if (!(event.target as Element).closest(".tree, .rows")) return;
    if (event.key === "Enter" && event.altKey && state.verbs.properties) {
      this.session.Select({ do: "verb", name: "properties" });
    } else if (event.key === "Delete" && state.verbs.delete) {
      this.session.Select({ do: "verb", name: "delete" });
    } else return;
    event.preventDefault();
  }

  // Ctrl+F, where the pane can be filtered; elsewhere it is the browser's own.
  private Find(event: KeyboardEvent): void {
    const box = this.root.querySelector<HTMLInputElement>(".find input");
    if (!box || (event.target as Element).closest(".text-windows")) return;
    event.preventDefault();
    box.focus();
    box.select();
  }

  private Covered(state: State): boolean {
    return state.message !== null || state.sheet !== null || state.dialogs.length > 0 || this.connection.link.at !== "open";
  }

  // An answer that takes longer than a moment shows that the console is busy.
  private WatchBusy(): void {
    clearTimeout(this.busyTimer);
    const since = this.session.waitingSince;
    const waited = since === 0 ? -1 : performance.now() - since;
    this.busy = waited >= kSlow;
    this.long = waited >= kLong;
    if (since === 0 || this.long) return;
    this.busyTimer = setTimeout(() => this.Schedule(), (this.busy ? kLong : kSlow) - waited + 1);
  }

  private Draw(): void {
    this.WatchBusy();
    const { state } = this.session;
    const { link } = this.connection;
    const node = state && SelectedNode(state.tree);
    const server = state?.view?.host ?? (node ? ServerOf(node.id) : "");
    document.title = node ? `${node.name}${server && node.id.includes("/") ? ` on ${server}` : ""} - ${kProduct}` : kProduct;
    render(html`${this.Shell(state)}${state ? this.Windows(state) : nothing}${this.LinkState()}`, this.root);
    const dialogs = [...this.root.querySelectorAll<HTMLDialogElement>("dialog")];
    const top = dialogs.at(-1);
    queueMicrotask(() => {
      if (state && !this.started) {
        this.started = true;
        this.root.querySelector<HTMLElement>(".tree")?.focus({ preventScroll: true });
      }
      this.files.Place(top ?? this.root);
      const form = state && !state.message && link.at === "open" ? (state.dialogs.at(-1) ?? state.sheet?.form ?? null) : null;
      this.focus.Keep(form, top ?? null, this.session.idle);
    });
  }

  private Shell(state: State | null): TemplateResult {
    const covered = state ? this.Covered(state) : true;
    return html`<div class="shell" aria-busy=${this.busy ? "true" : "false"} style="--tree:${this.treeWidth}px">
      <header class="app">
        <span class="brand">${Icon("8")}</span>
        <h1>${kProduct}</h1>
        <span class="working" role="status">${this.busy ? "Working…" : ""}</span>
      </header>
      ${this.busy && !covered ? html`<div class="progress"></div>` : nothing}
      ${this.resumed ? this.Resumed() : nothing}
      <main class="split">
        ${state
          ? html`<nav aria-label=${state.tree.name}>
                ${Tree(state.tree, { session: this.session, PopUp: (on, x, y) => this.PopUp(on, x, y) })}
              </nav>
              ${Splitter(this.treeWidth, (width) => this.SetTreeWidth(width))} ${Pane(state, { session: this.session, PopUp: (on, x, y) => this.PopUp(on, x, y) })}`
          : nothing}
      ${state ? this.Popup() : nothing}
      </main>
      ${covered ? nothing : this.NoticeBox()}
    </div>`;
  }

  // The browser tells late that a menu has closed: by then the next one may have been asked for, and it stays.
  private Popup(): unknown {
    const { popup } = this.session;
    if (popup?.id !== -1) return nothing;
    const Closed = (): void => {
      if (this.session.popup === popup) this.session.popup = null;
      this.Schedule();
    };
    return keyed(popup, PopupMenu(this.session, popup.on, this.menuAt.x, this.menuAt.y, Closed));
  }

  private Resumed(): TemplateResult {
    const close = (): void => {
      this.resumed = false;
      this.Schedule();
    };
    return html`<div class="strip" role="status">
      ${Icon("information")}
      <span>The earlier session ended, and this is a new one. What was saved is kept; a dialog that was open then was
        closed without saving.</span>
      <button class="plain" aria-label="Dismiss" title="Dismiss" @click=${close}>${Icon("close")}</button>
    </div>`;
  }

  private SetTreeWidth(width: number): void {
    this.treeWidth = width;
    this.Schedule();
  }

  private Windows(state: State): TemplateResult {
    const { session } = this;
    const ended = this.connection.link.at !== "open";
    const windows: { key: string; draw: (extra: unknown) => TemplateResult }[] = [];
    const { sheet, message } = state;
    if (sheet) windows.push({ key: `sheet/${sheet.title}`, draw: (extra) => SheetWindow(session, sheet, extra) });
    state.dialogs.forEach((form: Form, depth) => {
      windows.push({ key: `${depth}/${form.name}`, draw: (extra) => Dialog(session, form, depth, extra) });
    });
    if (message) {
      windows.push({ key: `message/${message.title}/${message.text}`, draw: (extra) => MessageBox(session, message, extra) });
    }
    const form = message ? null : (state.dialogs.at(-1) ?? sheet?.form);
    const stops = this.long && !ended && form?.controls.some((c) => c.kind === "text" && c.code === true);
    const bar = html`<div class="progress" role="progressbar" aria-label="Working"></div>`;
    const extra = html`${this.busy ? bar : nothing}${stops ? this.StopButton() : nothing}
    ${ended ? nothing : this.NoticeBox()}`;
    return html`${repeat(
      windows,
      (window) => window.key,
      (window, n) => window.draw(n === windows.length - 1 ? extra : nothing),
    )}`;
  }

  // Code may run for ever; this ends it. A press leaves the focus where it is, for the button goes with the answer.
  private StopButton(): TemplateResult {
    return html`<div class="stop">
      <span role="status">Working…</span>
      <button data-stop @mousedown=${(e: Event) => e.preventDefault()} @click=${() => this.session.Stop()}>Stop</button>
    </div>`;
  }

  private NoticeBox(): TemplateResult | typeof nothing {
    const { notice } = this;
    if (!notice) return nothing;
    const close = (): void => {
      this.notice = null;
      this.Schedule();
    };
    return html`<div class="notice" role="status">
      ${Icon("information")}<span>${notice.text}</span>
      ${notice.link
        ? html`<a href=${notice.link.address} target="_blank" rel="noopener">${notice.link.text}</a>`
        : nothing}
      <button class="plain" aria-label="Dismiss" title="Dismiss" @click=${close}>${Icon("close")}</button>
    </div>`;
  }

  private LinkState(): TemplateResult | typeof nothing {
    const { link, sessions } = this.connection;
    if (link.at === "open" || (link.at === "opening" && sessions === 0)) return nothing;
    return LinkWindow(link, sessions > 0, () => this.connection.open());
  }
}

const root = document.getElementById("app");
if (root) new App(root);
