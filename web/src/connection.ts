import type { Answer } from "./protocol.ts";

// Where the connection stands. "ended" is a session that was open and is no more; "refused" an address whose key
// the server does not know (any longer).
export type Link =
  | { at: "opening" }
  | { at: "open" }
  | { at: "ended" }
  | { at: "unreachable"; retryAt: number }
  | { at: "refused" };

const kDelays = [1, 2, 4, 8, 15, 30];

// The socket with its second tries. A session that ends while the server is still there waits for the person: a
// console that opens itself anew all night would keep sessions alive that nobody uses.
export class Connection {
  link: Link = { at: "opening" };
  // How many times a session has been opened.
  sessions = 0;
  private socket: WebSocket | null = null;
  private attempt = 0;
  private timer = 0;

  constructor(
    private readonly onAnswer: (answer: Answer) => void,
    private readonly onLink: () => void,
  ) {}

  open(): void {
    clearTimeout(this.timer);
    this.change({ at: "opening" });
    const address = new URL("/console", location.href);
    address.protocol = address.protocol.replace("http", "ws");
    const socket = new WebSocket(address);
    this.socket = socket;
    let opened = false;
    socket.onopen = () => {
      opened = true;
      this.attempt = 0;
      this.sessions++;
      this.change({ at: "open" });
    };
    socket.onmessage = (event) => {
      if (this.socket === socket) this.onAnswer(JSON.parse(String(event.data)) as Answer);
    };
    socket.onclose = () => {
      if (this.socket !== socket) return;
      this.socket = null;
      if (opened) this.change({ at: "ended" });
      void this.probe(opened);
    };
  }

  send(message: object): boolean {
    if (this.socket?.readyState !== WebSocket.OPEN) return false;
    this.socket.send(JSON.stringify(message));
    return true;
  }

  // A failed upgrade does not tell its status, a plain request does.
  private async probe(opened: boolean): Promise<void> {
    let status = 0;
    try {
      status = (await fetch("/console", { cache: "no-store", redirect: "manual" })).status;
    } catch {
      status = 0;
    }
    if (this.socket) return;
    if (status === 401 || status === 403) this.change({ at: "refused" });
    else if (status === 0 || !opened) this.retry();
  }

  private retry(): void {
    const seconds = kDelays[Math.min(this.attempt++, kDelays.length - 1)] ?? 30;
    this.change({ at: "unreachable", retryAt: Date.now() + seconds * 1000 });
    this.timer = setTimeout(() => this.open(), seconds * 1000);
  }

  private change(link: Link): void {
    this.link = link;
    this.onLink();
  }
}
