import { Overlay } from "./overlay.ts";
import { FaultIn, type Fault } from "./fault.ts";
import type { Answer, ConsoleEvent, FormEvent, Item, Menu, QvEvent, State, TreeNode } from "./protocol.ts";

interface Entry {
  id: number;
  event: QvEvent;
  // A command may open or close a window. What is asked after it waits for its answer, and goes on only if the
  // windows are still those that the person saw: a hasty second click must not hit what lies beneath.
  command: boolean;
  context: string;
  sent: boolean;
  sentAt: number;
  // Asked by the front end itself, to know what the action bar offers.
  quiet: boolean;
}

export type Target = "node" | "items";

function Context(state: State): string {
  const { message, dialogs, sheet } = state;
  return JSON.stringify([
    message && [message.title, message.text],
    dialogs.map((d) => d.name),
    sheet && [sheet.title, sheet.active],
  ]);
}

export function SelectedNode(node: TreeNode): TreeNode | null {
  if (node.selected) return node;
  for (const child of node.children) {
    const found = SelectedNode(child);
    if (found) return found;
  }
  return null;
}

export function SelectedItems(state: State): Item[] {
  return state.view?.items.filter((item) => item.selected) ?? [];
}

// One run of the console as the front end sees it: the state, what is under way, and the menus of the selection.
export class Session {
  // The state with what is under way laid over it.
  state: State | null = null;
  menus: Record<Target, Menu | null> = { node: null, items: null };
  // The id of the event whose menu is to pop up, 0 for none; set to -1 once it is there.
  popup: { on: Target; id: number } | null = null;
  // Whether the selection that verbs act on is the node or the rows.
  target: Target = "node";

  private base: State | null = null;
  private entries: Entry[] = [];
  private nextId = 1;
  // Whose menu the server holds open, if that is still sure.
  private openMenu: Target | null = null;
  private asked: Record<Target, string> = { node: "", items: "" };
  // What was never sent, because the windows were no longer those it was meant for.
  private dropped = new Set<number>();

  constructor(
    private readonly transmit: (message: object) => boolean,
    private readonly onChange: () => void,
    private readonly onRefused: (text: string) => void,
  ) {}

  Reset(): void {
    this.state = null;
    this.base = null;
    this.entries = [];
    this.dropped.clear();
    this.openMenu = null;
    this.popup = null;
    this.target = "node";
    this.menus = { node: null, items: null };
    this.asked = { node: "", items: "" };
  }

  // A number for a message that is not an event, so that no two messages have the same.
  NewId(): number {
    return this.nextId++;
  }

  // Something that changes what stands in a window; returns its number.
  Edit(event: QvEvent): number {
    return this.Enter(event, false);
  }

  Command(event: QvEvent): number {
    return this.Enter(event, true);
  }

  // An event to the console itself, with what it says about the target of verbs.
  Select(event: ConsoleEvent): void {
    if (event.do === "selectItems") this.target = event.keys.length > 0 ? "items" : "node";
    else if (event.do === "doubleClick") this.target = "items";
    else if (event.do === "select") this.target = "node";
    if (event.do === "doubleClick" || event.do === "verb") this.Command(event);
    else this.Edit(event);
  }

  Choose(on: Target, name: string): void {
    if (this.openMenu !== on || this.entries.length > 0) this.Edit({ do: "menu", on });
    this.Command({ do: "choose", name });
  }

  AskPopup(on: Target): void {
    this.popup = { on, id: this.Edit({ do: "menu", on }) };
  }

  // Whether an event of this number has not been answered yet.
  Pending(id: number): boolean {
    const first = this.entries.find((entry) => !entry.quiet);
    return first !== undefined && id >= first.id;
  }

  Dropped(id: number): boolean {
    return this.dropped.delete(id);
  }

  // Whether a command is under way or a message box stands before the forms.
  Blocked(): boolean {
    return (this.base?.message ?? null) !== null || this.entries.some((entry) => entry.command);
  }

  // The fault that the message box in front tells.
  Fault(): Fault | null {
    return FaultIn(this.state?.message ?? null);
  }

  // Ends the script that runs on the server. Not an event: the answer to what started it comes as usual.
  Stop(): void {
    this.transmit({ stop: true });
  }

  get idle(): boolean {
    return !this.entries.some((entry) => !entry.quiet);
  }

  // When the oldest unanswered event went out, or 0.
  get waitingSince(): number {
    return this.entries.find((entry) => entry.sent)?.sentAt ?? 0;
  }

  Take(answer: Answer): void {
    const entry = this.entries.find((e) => e.id === answer.id);
    if (answer.id !== undefined) this.entries = this.entries.filter((e) => e.id > (answer.id ?? 0));
    if (answer.error !== undefined && !entry?.quiet) {
      if (this.popup?.id === answer.id) this.popup = null;
      this.onRefused(answer.error);
    }
    if (answer.state) this.TakeState(answer.state, entry);
    this.Pump();
    this.Settle();
  }

  private TakeState(state: State, entry: Entry | undefined): void {
    if (!this.base) this.target = "items";
    this.base = state;
    if (SelectedItems(state).length === 0) this.target = "node";
    if (entry?.event.do !== "menu") return;
    const { on } = entry.event;
    this.menus[on] = state.menu;
    if (this.entries.length === 0) this.openMenu = on;
    if (this.popup?.id === entry.id) {
      const menu = state.menu;
      const empty = !menu || menu.new.length + menu.top.length + menu.verbs.length === 0;
      this.popup = empty ? null : { on, id: -1 };
    }
  }

  private Enter(event: QvEvent, command: boolean, quiet = false): number {
    const id = this.nextId++;
    if (!this.base) return id;
    const context = Context(this.base);
    this.entries.push({ id, event, command, context, sent: false, sentAt: 0, quiet });
    this.Pump();
    this.Settle();
    return id;
  }

  // Sends what may go: everything up to and with the first unanswered command.
  private Pump(): void {
    if (!this.base) return;
    const context = Context(this.base);
    const waiting = this.entries.some((entry) => entry.sent && entry.command);
    if (waiting) return;
    if (this.entries.some((entry) => !entry.sent && entry.context !== context)) {
      const stays = (entry: Entry): boolean => entry.sent || entry.context === context;
      for (const entry of this.entries) if (!stays(entry)) this.dropped.add(entry.id);
      this.entries = this.entries.filter(stays);
    }
    if (this.entries[0] && this.Spent(this.entries[0])) this.entries.shift();
    for (const entry of this.entries) {
      if (entry.sent) continue;
      if (entry.event.do !== "menu") this.openMenu = null;
      if (!this.transmit({ ...entry.event, id: entry.id })) return;
      entry.sent = true;
      entry.sentAt = performance.now();
      if (entry.command) return;
    }
  }

  // The second press of a double click on Apply finds nothing left to apply.
  private Spent({ event, sent }: Entry): boolean {
    return !sent && event.do === "sheet" && event.button === "apply" && this.base?.sheet?.changed === false;
  }

  private Settle(): void {
    const events = this.entries.filter((entry) => !entry.quiet).map((entry) => entry.event);
    this.state = this.base && Overlay(this.base, events);
    this.AskMenus();
    this.onChange();
  }

  // The action bar shows what the selection's context menu holds; it is asked for when the selection has changed
  // and nothing else is under way.
  private AskMenus(): void {
    const { base } = this;
    if (!base || this.entries.length > 0 || base.message || base.sheet || base.dialogs.length > 0) return;
    const node = SelectedNode(base.tree)?.id ?? "";
    const rows = SelectedItems(base).map((item) => [item.key, ...item.cells]);
    const items = rows.length > 0 ? JSON.stringify([node, rows]) : "";
    if (node !== this.asked.node) {
      this.asked = { node, items: "" };
      this.menus = { node: null, items: null };
      if (node) this.Enter({ do: "menu", on: "node" }, false, true);
    } else if (items !== this.asked.items) {
      this.asked.items = items;
      if (items) this.Enter({ do: "menu", on: "items" }, false, true);
      else this.menus.items = null;
    }
  }
}

// What a form needs of its session: its events in the two manners, and what is still under way.
export interface FormPort {
  Edit(event: FormEvent): number;
  Command(event: FormEvent): number;
  Pending(id: number): boolean;
  // Whether an event of this number was given up unsent; asked once.
  Dropped(id: number): boolean;
  Blocked(): boolean;
  Fault(): Fault | null;
}
