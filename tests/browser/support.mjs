// A page of the front end with a console behind it that the test plays, and everything unexpected made a failure.
import assert from "node:assert/strict";
import { mkdir, mkdtemp, readFile, rm } from "node:fs/promises";
import { execFileSync } from "node:child_process";
import { createServer } from "node:http";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { dirname, join } from "node:path";
import { after, before } from "node:test";
import { fileURLToPath } from "node:url";
import { chromium } from "playwright-core";
import { State, RowMenu, nodeMenu } from "./states.mjs";

const root = join(dirname(fileURLToPath(import.meta.url)), "..", "..");
const kTypes = { ".html": "text/html; charset=utf-8", ".js": "text/javascript", ".css": "text/css" };
export const kPolicy =
  "default-src 'none'; script-src 'self'; style-src 'self'; style-src-attr 'unsafe-inline'; connect-src 'self'; " +
  "img-src 'self' data:; font-src 'self'; base-uri 'none'; form-action 'self'; frame-ancestors 'none'; " +
  "require-trusted-types-for 'script'";
const kFlags = [
  "--headless=new",
  "--no-sandbox",
  "--disable-gpu",
  "--disable-quic",
  "--no-first-run",
  "--disable-background-networking",
  "--disable-component-update",
  "--disable-sync",
];

let browser;
let server;
let built = "";
export let address = "";
// What the server says to a plain request for the socket's address.
export const consoleAnswer = { status: 426 };

function LaunchBrowser() {
  return chromium.launch({ executablePath: "/usr/bin/chromium", headless: false, args: kFlags });
}

before(async () => {
  built = await mkdtemp(join(tmpdir(), "front-end-"));
  execFileSync(process.execPath, [join(root, "web", "build.mjs"), "--out", built]);
  server = createServer(async (request, response) => {
    const path = new URL(request.url, "http://localhost").pathname;
    if (path === "/console") return response.writeHead(consoleAnswer.status).end();
    if (path.startsWith("/help/")) return response.writeHead(200, { "content-type": "text/html" }).end("<title>Help</title>");
    const name = path === "/" ? "/index.html" : path;
    const type = kTypes[name.slice(name.lastIndexOf("."))];
    try {
      const body = await readFile(join(built, name));
      response.writeHead(200, { "content-type": type, "content-security-policy": kPolicy }).end(body);
    } catch {
      response.writeHead(404).end();
    }
  });
  await new Promise((done) => server.listen(0, "127.0.0.1", done));
  address = `http://127.0.0.1:${server.address().port}/`;
  browser = await LaunchBrowser();
});

after(async () => {
  await browser?.close();
  server?.close();
  await rm(built, { recursive: true, force: true });
});

// Fails the test on whatever the page says or loses, apart from what it is told to expect.
export function Watch(t, page, expected = []) {
  const seen = [];
  const note = (text) => {
    if (!expected.some((pattern) => pattern.test(text))) seen.push(text);
  };
  page.on("console", (message) => note(`console ${message.type()}: ${message.text()}`));
  page.on("pageerror", (error) => note(`page error: ${error.message}`));
  page.on("requestfailed", (request) => note(`request failed: ${request.url()}`));
  page.on("response", (response) => {
    if (response.status() >= 400) note(`response ${response.status()}: ${response.url()}`);
  });
  t.after(() => {
    if (seen.length > 0) throw new Error(`the page said:\n${seen.join("\n")}`);
  });
}

// The console of a test: keeps a state, answers menus, and lets the test answer the rest. `react` gets the event and
// the state to change; what it returns, if anything, is the answer instead of the state.
export class Console {
  constructor(state, react = () => undefined, delay = 0) {
    this.state = state;
    this.react = react;
    this.delay = delay;
    this.events = [];
    this.sockets = [];
  }

  Attach(socket) {
    this.sockets.push(socket);
    this.socket = socket;
    socket.onMessage((text) => this.Receive(socket, JSON.parse(text)));
    this.Send(socket, { state: this.state });
  }

  Receive(socket, event) {
    this.events.push(event);
    const arrive = () => this.Send(socket, this.Answer(event));
    if (this.delay > 0) setTimeout(arrive, this.delay);
    else arrive();
  }

  // The state is taken as it stands now, whatever the test changes before it is sent.
  Answer(event) {
    this.state.started = [];
    this.state.menu = event.do === "menu" ? this.Menu(event.on) : null;
    const own = this.react(event, this.state, this);
    if (own === null) return null;
    return structuredClone({ ...(own ?? { state: this.state }), id: event.id });
  }

  Menu(on) {
    if (on === "node") return nodeMenu;
    const row = this.state.view.items.find((item) => item.selected);
    return row ? RowMenu(row.cells[1] === "Enabled") : { new: [], top: [], verbs: [] };
  }

  Send(socket, answer) {
    if (answer !== null && socket === this.socket) socket.send(JSON.stringify(answer));
  }

  // The events apart from the menus that the action bar asks for.
  get told() {
    return this.events.filter((event) => event.do !== "menu").map(({ id: _, ...event }) => event);
  }
}

// Selection and focus as a console would do it, for tests that look at something else.
export function Ordinary(event, state) {
  if (event.do === "selectItems") {
    for (const item of state.view.items) item.selected = event.keys.includes(item.key);
    state.verbs.delete = event.keys.length > 0;
  }
  if (event.do === "select" && event.node) SelectNode(state.tree, event.node);
  if (event.do === "expand" || event.do === "collapse") ExpandNode(state.tree, event.node, event.do === "expand");
}

function SelectNode(node, id) {
  node.selected = node.id === id;
  node.children.forEach((child) => SelectNode(child, id));
}

function ExpandNode(node, id, expanded) {
  if (node.id === id) node.expanded = expanded;
  node.children.forEach((child) => ExpandNode(child, id, expanded));
}

export async function NewContext(t, options = {}) {
  const context = await browser.newContext({ viewport: { width: 1280, height: 800 }, ...options });
  context.setDefaultTimeout(5000);
  t.after(() => context.close());
  return context;
}

// Takes a picture of the page where SCREENSHOTS names a folder for them.
export async function Picture(page, name) {
  const folder = process.env.SCREENSHOTS;
  if (!folder) return;
  await mkdir(folder, { recursive: true });
  await page.screenshot({ path: join(folder, `${name}.png`) });
}

// What axe finds wrong on the page.
export async function Axe(page) {
  const source = await readFile(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
  await page.evaluate((text) => (0, eval)(text), source);
  const { violations } = await page.evaluate(() => globalThis.axe.run(document, { resultTypes: ["violations"] }));
  return violations.flatMap((v) => v.nodes.map((n) => `${v.id}: ${n.target.join(" ")} ${n.failureSummary}`));
}

export async function Open(t, { state = State(), react = Ordinary, delay = 0, expected = [], ...options } = {}) {
  const context = await NewContext(t, options);
  const page = await context.newPage();
  Watch(t, page, expected);
  const console_ = new Console(state, react, delay);
  await page.routeWebSocket(/\/console$/, (socket) => console_.Attach(socket));
  await page.goto(address);
  await page.locator(".tree").waitFor();
  return { page, console: console_, context };
}

// The console has been told these events and no others.
export async function Told(c, events) {
  await Until(() => c.told.length >= events.length, JSON.stringify(events));
  assert.deepEqual(c.told, events);
}

// Waits until no event has come for a while.
export async function Settled(page, c, milliseconds) {
  for (let before = -1; before !== c.events.length; ) {
    before = c.events.length;
    await page.waitForTimeout(milliseconds);
  }
}

// Waits until it is so.
export async function Until(check, what = "what was expected") {
  const end = Date.now() + 5000;
  for (;;) {
    if (await check()) return;
    if (Date.now() > end) throw new Error(`${what} did not happen`);
    await new Promise((done) => setTimeout(done, 20));
  }
}
