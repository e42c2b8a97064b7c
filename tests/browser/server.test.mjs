// A user's way through the program itself: two servers, their filters, enable, disable, add, rename, delete.
import assert from "node:assert/strict";
import { execFileSync, spawn } from "node:child_process";
import { existsSync } from "node:fs";
import { mkdtemp, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import { dirname, join } from "node:path";
import { after, before, test } from "node:test";
import { fileURLToPath } from "node:url";
import { LaunchBrowser, Until, Watch } from "./support.mjs";

const root = join(dirname(fileURLToPath(import.meta.url)), "..", "..");
const program = process.env.QVADMIN ?? join(root, "build", "qvadmin");
if (!existsSync(program)) throw new Error(`there is no ${program}; build it, or name another with QVADMIN`);

let browser;
before(async () => {
  browser = await LaunchBrowser();
});
after(() => browser?.close());

function Run(...args) {
  return execFileSync(program, args, { encoding: "utf8" });
}

function Filters(data) {
  return JSON.parse(Run("data", "export", "--data", data)).filters.filter((f) => f.Postoffice === "");
}

async function Directory(t) {
  const data = await mkdtemp(join(tmpdir(), "server-"));
  t.after(() => rm(data, { recursive: true, force: true }));
  Run("init", "--data", data, "--demo");
  return data;
}

async function Serve(t, local, far) {
  const server = spawn(program, ["serve", "--data", local, "--server", `MAIL2=${far}`, "--port", "0"]);
  t.after(() => server.kill());
  let complaints = "";
  server.stderr.on("data", (text) => (complaints += text));
  t.after(() => assert.equal(complaints, "", "the program complained"));
  let said = "";
  const address = await new Promise((done, fail) => {
    server.stdout.on("data", (text) => {
      said += text;
      const found = /http:\S+/.exec(said);
      if (found && said.includes("\n")) done(found[0]);
    });
    server.on("exit", (code) => fail(new Error(`the program ended with ${code}: ${complaints}`)));
  });
  return { server, address };
}

async function OpenServer(t, expected = []) {
  const local = await Directory(t);
  const far = await Directory(t);
  const { server, address } = await Serve(t, local, far);
  const context = await browser.newContext({ viewport: { width: 1280, height: 800 } });
  t.after(() => context.close());
  const page = await context.newPage();
  page.setDefaultTimeout(5000);
  Watch(t, page, expected);
  await page.goto(address);
  await page.locator(".tree").waitFor();
  return { page, local, far, server };
}

const Node = (page, name, nth = 0) => page.locator(".node", { hasText: name }).nth(nth);
const Row = (page, name) => page.locator(".pane-list .row", { hasText: name });
const Bar = (page, name) => page.getByRole("toolbar").getByRole("button", { name, exact: true });

async function Status(page, name, status) {
  await Until(async () => (await Row(page, name).locator(".cell").nth(1).innerText()).trim() === status, `${name} ${status}`);
}

function Find(data, name) {
  return Filters(data).find((filter) => filter.Description === name);
}

async function UserPath(page, data) {
  const names = Filters(data).map((f) => f.Description);
  await Row(page, names[0]).waitFor();
  // The generated spam filter is not listed.
  const shown = names.filter((_, n) => Filters(data)[n].FilterEntryID !== "{SPAM_FILTER}");
  assert.equal(await page.locator(".count").innerText(), `${shown.length} items`);

  await Bar(page, "New Filter...").click();
  const dialog = page.getByRole("dialog", { name: "Add New Filter Item" });
  await dialog.waitFor();
  await page.keyboard.type("Quarterly reports");
  await page.keyboard.press("Enter");
  await dialog.waitFor({ state: "detached" });
  await Status(page, "Quarterly reports", "Enabled");
  assert.equal(Find(data, "Quarterly reports").Status, 1);

  await Row(page, "Quarterly reports").click();
  await Bar(page, "Disable").click();
  await Status(page, "Quarterly reports", "Disabled");
  assert.equal(Find(data, "Quarterly reports").Status, 0);

  await Row(page, "Quarterly reports").click({ button: "right" });
  await page.getByRole("menuitem", { name: "Enable" }).click();
  await Status(page, "Quarterly reports", "Enabled");
  assert.equal(Find(data, "Quarterly reports").Status, 1);

  await Row(page, "Quarterly reports").click();
  await page.keyboard.press("Delete");
  const question = page.getByRole("alertdialog", { name: "Delete" });
  await question.getByText("Are you sure you wish to delete the filter 'Quarterly reports'?").waitFor();
  await question.getByRole("button", { name: "No" }).click();
  await question.waitFor({ state: "detached" });
  assert.notEqual(Find(data, "Quarterly reports"), undefined);
  await Row(page, "Quarterly reports").click();
  await page.keyboard.press("Delete");
  await question.waitFor();
  await page.keyboard.press("y");
  await Until(async () => (await Row(page, "Quarterly reports").count()) === 0);
  assert.equal(Find(data, "Quarterly reports"), undefined);
  assert.deepEqual(Filters(data).map((f) => f.Description), names);
}

test("a user's way on the local server", async (t) => {
  const { page, local, far } = await OpenServer(t);
  const before = Filters(far);
  await Node(page, "LOCALHOST").locator(".twisty").click();
  await Node(page, "Filters").click();
  await page.getByRole("heading", { name: "Filters on LOCALHOST" }).waitFor();
  await UserPath(page, local);
  assert.deepEqual(Filters(far), before);
});

test("a user's way on the other server", async (t) => {
  const { page, local, far } = await OpenServer(t);
  const before = Filters(local);
  await Node(page, "LOCALHOST").locator(".twisty").click();
  await Node(page, "MAIL2").locator(".twisty").click();
  await Node(page, "Filters", 1).click();
  await page.getByRole("heading", { name: "Filters on MAIL2" }).waitFor();
  await UserPath(page, far);
  assert.deepEqual(Filters(local), before);
  // The local server's branch now shows the other server's rows; that is told, and the way back leads there.
  await Node(page, "Filters", 0).click();
  await page.getByText("the server that was opened last").waitFor();
  await page.getByRole("button", { name: "Switch to LOCALHOST" }).click();
  await page.getByRole("heading", { name: "Filters on LOCALHOST" }).waitFor();
});

test("a server that ends is told and found again", async (t) => {
  const { page, server } = await OpenServer(t, [/WebSocket/, /ERR_CONNECTION/, /request failed/, /40[13]/]);
  server.removeAllListeners("exit");
  server.kill();
  await page.getByRole("alertdialog", { name: "The session has ended" }).getByText("does not answer").waitFor();
});
