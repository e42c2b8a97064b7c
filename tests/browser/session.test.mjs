// What the console starts, text windows, and the connection that goes away.
import assert from "node:assert/strict";
import { test } from "node:test";
import { address, consoleAnswer, Open, Ordinary, Until } from "./support.mjs";
import { Form } from "./model.mjs";
import * as s from "./states.mjs";

const kPath = "C:\\config\\Filters\\patterns\\QVFILTER-finance.TXT";

// Files as the server keeps them, with a version that counts up.
function Disk(files) {
  return (event, state) => {
    if (event.file === "read") {
      const file = files.get(event.path);
      return { file: { path: event.path, text: file?.text ?? "", version: file?.version ?? 0, exists: file !== undefined } };
    }
    if (event.file === "write") {
      const file = files.get(event.path) ?? { text: "", version: 0 };
      if (event.version !== file.version) return { file: { path: event.path, conflict: { ...file } } };
      files.set(event.path, { text: event.text, version: file.version + 1 });
      return { file: { path: event.path, version: file.version + 1 } };
    }
    if (event.do === "click" && event.control === "cmdEdit") {
      state.started = [{ kind: "program", command: `notepad "${kPath}"` }];
      return undefined;
    }
    if (event.do === "click" && event.control === "cmdCancel") return void state.dialogs.pop();
    return event.control === undefined ? Ordinary(event, state) : Form(event, state);
  };
}

async function OpenText(t, files = new Map([[kPath, { text: "one\r\ntwo\r\n", version: 7 }]]), expected = []) {
  const words = s.WordsForm();
  words.controls.find((control) => control.name === "cmdEdit").enabled = true;
  const opened = await Open(t, { state: s.State({ dialogs: [words] }), react: Disk(files), expected });
  await opened.page.locator("[data-control=cmdEdit]").click();
  const window = opened.page.getByRole("dialog", { name: "QVFILTER-finance.TXT" });
  await window.waitFor();
  return { ...opened, files, window, mine: window.locator("textarea.mine"), status: window.locator(".status") };
}

test("a text window edits a file while the dialog beneath goes on", async (t) => {
  const { page, console: c, files, window, mine, status } = await OpenText(t);
  assert.equal(await mine.inputValue(), "one\ntwo\n");
  await page.keyboard.press("Control+End");
  await page.keyboard.type("three\n");
  assert.equal(await status.innerText(), "Unsaved changes");
  await page.keyboard.press("Control+s");
  await Until(async () => (await status.innerText()) === "Saved");
  assert.deepEqual(files.get(kPath), { text: "one\r\ntwo\r\nthree\r\n", version: 8 });
  // The dialog beneath is not held up, and when it goes the window stays.
  const title = await window.getByRole("heading").boundingBox();
  await page.mouse.move(title.x + 8, title.y + 8);
  await page.mouse.down();
  await page.mouse.move(title.x + 208, title.y + 308, { steps: 4 });
  await page.mouse.up();
  await page.locator("[data-control=chkStatus]").click({ position: { x: 4, y: 4 } });
  await Until(() => c.told.some((event) => event.control === "chkStatus"));
  await mine.focus();
  await page.keyboard.type("x");
  await page.locator("[data-control=cmdCancel]").focus();
  await page.keyboard.press("Enter");
  await page.locator("dialog").waitFor({ state: "detached" });
  assert.equal(await window.isVisible(), true);
  assert.equal(await mine.inputValue(), "one\ntwo\nthree\nx");
  assert.ok(c.told.some((event) => event.control === "cmdCancel"));
});

test("unsaved text asks before its window closes", async (t) => {
  const { page, files, window, mine } = await OpenText(t);
  await mine.fill("changed");
  await page.keyboard.press("Escape");
  await window.getByRole("button", { name: "Keep editing" }).click();
  assert.equal(await mine.inputValue(), "changed");
  await window.getByRole("button", { name: "Close" }).first().click();
  await window.getByRole("alertdialog").getByRole("button", { name: "Save", exact: true }).click();
  await window.waitFor({ state: "detached" });
  assert.equal(files.get(kPath).text, "changed");
  assert.equal(await page.locator("dialog[open]").count(), 1);
});

test("unsaved text that is not wanted", async (t) => {
  const { files, window, mine } = await OpenText(t);
  await mine.fill("changed");
  await window.getByRole("button", { name: "Close" }).last().click();
  await window.getByRole("button", { name: "Don't save" }).click();
  await window.waitFor({ state: "detached" });
  assert.equal(files.get(kPath).text, "one\r\ntwo\r\n");
});

test("a file that was changed on the disk: nothing is lost", async (t) => {
  const { files, window, mine } = await OpenText(t);
  await mine.fill("mine");
  files.set(kPath, { text: "theirs\r\n", version: 9 });
  await window.getByRole("button", { name: "Save" }).click();
  await window.getByText("This file was changed on the disk").waitFor();
  assert.equal(files.get(kPath).text, "theirs\r\n");
  await window.getByRole("button", { name: "Show the disk's text" }).click();
  assert.equal(await window.locator("textarea.theirs").inputValue(), "theirs\n");
  assert.equal(await mine.inputValue(), "mine");
  await window.getByRole("button", { name: "Keep editing" }).click();
  await window.getByRole("button", { name: "Save" }).click();
  await window.getByRole("button", { name: "Use the disk's text" }).click();
  assert.equal(await mine.inputValue(), "theirs\n");
  await window.getByRole("button", { name: "Bring back my text" }).click();
  assert.equal(await mine.inputValue(), "mine");
  await window.getByRole("button", { name: "Save" }).click();
  await Until(() => files.get(kPath).text === "mine");
});

test("a file that was changed on the disk is overwritten when told so", async (t) => {
  const { files, window, mine, status } = await OpenText(t);
  await mine.fill("mine");
  files.set(kPath, { text: "theirs", version: 9 });
  await window.getByRole("button", { name: "Save" }).click();
  await window.getByRole("button", { name: "Overwrite the file" }).click();
  await Until(async () => (await status.innerText()) === "Saved");
  assert.deepEqual(files.get(kPath), { text: "mine", version: 10 });
});

test("a file that is not there yet", async (t) => {
  const { files, window, mine, status } = await OpenText(t, new Map());
  await Until(async () => (await status.innerText()) === "New file");
  await mine.fill("first");
  await window.getByRole("button", { name: "Save" }).click();
  await Until(() => files.get(kPath)?.text === "first");
});

test("help and pages open in a tab of their own", async (t) => {
  const { page, context } = await Open(t, {
    state: s.State({ sheet: s.MailboxSheet() }),
    react: (event, state) => {
      if (event.do === "sheet") state.started = [{ kind: "help", topic: "qvhelp.chm::/mailboxfilters.htm" }];
    },
  });
  const opened = context.waitForEvent("page");
  await page.getByRole("button", { name: "Help" }).click();
  const tab = await opened;
  await tab.waitForLoadState();
  assert.equal(new URL(tab.url()).pathname, "/help/mailboxfilters.html");
  assert.equal(await tab.evaluate(() => window.opener), null);
  await page.getByRole("link", { name: "Open it again" }).waitFor();
});

const kFailed = [/WebSocket/, /status of 4\d\d/, /response 4\d\d/, /ERR_CONNECTION_REFUSED/, /request failed/];

test("a session that ends waits for the person, and the next one says so", async (t) => {
  const { page, console: c } = await Open(t, { state: s.State({ dialogs: [s.NameForm()] }), expected: kFailed });
  await page.locator("dialog").waitFor();
  c.socket.close();
  const ended = page.getByRole("alertdialog", { name: "The session has ended" });
  await ended.waitFor();
  await page.waitForTimeout(1500);
  assert.equal(c.sockets.length, 1, "no session is opened that nobody asked for");
  c.state = s.State();
  await ended.getByRole("button", { name: "Start again" }).click();
  await ended.waitFor({ state: "detached" });
  await page.getByText("The earlier session ended").waitFor();
  assert.equal(await page.locator("dialog").count(), 0);
  await page.locator(".row", { hasText: "Newsletters" }).click();
  await Until(() => c.told.some((event) => event.do === "selectItems"));
  await page.getByRole("button", { name: "Dismiss" }).click();
  assert.equal(await page.getByText("The earlier session ended").count(), 0);
});

test("a server that is away is tried again until it is back", async (t) => {
  const { page, console: c } = await Open(t, { expected: kFailed });
  await page.route("**/console", (route) => route.abort("connectionrefused"));
  c.socket.close();
  const box = page.getByRole("alertdialog", { name: "The session has ended" });
  await box.getByText("The next try is in").waitFor();
  await Until(() => c.sockets.length === 2, "a second session");
  await box.waitFor({ state: "detached" });
  await page.getByText("The earlier session ended").waitFor();
});

test("an address whose key is no longer known", async (t) => {
  const { page, console: c } = await Open(t, { expected: kFailed });
  consoleAnswer.status = 403;
  t.after(() => (consoleAnswer.status = 426));
  c.socket.close();
  const box = page.getByRole("alertdialog", { name: "This address is no longer valid" });
  await box.getByText("Open the address that qvadmin serve prints").waitFor();
});

test("text that is not saved outlives the session", async (t) => {
  const { page, console: c, files, window, mine, status } = await OpenText(t, undefined, kFailed);
  await mine.fill("mine");
  c.socket.close();
  await page.getByRole("alertdialog", { name: "The session has ended" }).waitFor();
  assert.equal(await status.innerText(), "Not connected. Your text is kept in this window.");
  assert.equal(await mine.inputValue(), "mine");
  c.state = s.State();
  await page.getByRole("button", { name: "Start again" }).click();
  await window.getByRole("button", { name: "Save" }).click();
  await Until(() => files.get(kPath).text === "mine");
});

test("the page asks nothing of other hosts", async (t) => {
  const { page } = await Open(t);
  const urls = await page.evaluate(() => performance.getEntriesByType("resource").map((entry) => entry.name));
  assert.deepEqual(urls.map((url) => url.replace(address, "/")).sort(), ["/app.css", "/app.js"]);
});
