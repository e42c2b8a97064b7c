// A user's way through the program itself: two servers, their filters, enable, disable, add, rename, delete.
import assert from "node:assert/strict";
import { test } from "node:test";
import { Bar, Node, Row } from "./person.mjs";
import { Data, OpenServer } from "./program.mjs";
import { Until } from "./support.mjs";

function Filters(data) {
  return Data(data).filters.filter((f) => f.Postoffice === "");
}

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
  const { page, server } = await OpenServer(t, { expected: [/WebSocket/, /ERR_CONNECTION/, /request failed/] });
  server.removeAllListeners("exit");
  server.kill();
  await page.getByRole("alertdialog", { name: "The session has ended" }).getByText("does not answer").waitFor();
});

test("typing on a slow line, into the program itself", async (t) => {
  const { page, local } = await OpenServer(t, {
    before: (p) =>
      p.routeWebSocket(/\/console$/, (socket) => {
        const server = socket.connectToServer();
        socket.onMessage((text) => setTimeout(() => server.send(text), 75));
        server.onMessage((text) => setTimeout(() => socket.send(text), 75));
      }),
  });
  await Node(page, "LOCALHOST").locator(".twisty").click();
  await Node(page, "Filters").click();
  await Bar(page, "New Filter...").click();
  const dialog = page.getByRole("dialog", { name: "Add New Filter Item" });
  await dialog.waitFor();
  await page.keyboard.type("The quick brown fox", { delay: 12 });
  for (let n = 0; n < 3; n++) await page.keyboard.press("ArrowLeft");
  await page.keyboard.type("lazy ", { delay: 12 });
  await page.keyboard.press("Enter");
  await dialog.waitFor({ state: "detached" });
  await Row(page, "The quick brown lazy fox").waitFor();
  assert.equal(Find(local, "The quick brown lazy fox").Status, 1);
});

test("a word file is edited in a text window", async (t) => {
  const { page } = await OpenServer(t);
  await Node(page, "LOCALHOST").locator(".twisty").click();
  await Node(page, "Filters").click();
  await page.locator(".pane-list .row").first().dblclick();
  await page.locator("[data-control=lvwCriteria] .row").first().dblclick();
  await page.getByRole("radio", { name: "Use external word list file" }).click();
  const edit = page.locator("#dialog-1 [data-control=cmdEdit]");
  await edit.click();
  const window = page.getByRole("dialog", { name: /^QVFILTER-/ });
  const mine = window.locator("textarea.mine");
  await Until(async () => (await window.locator(".status").innerText()) === "Saved");
  const before = await mine.inputValue();
  assert.notEqual(before, "");
  await mine.focus();
  await page.keyboard.press("Control+Home");
  await page.keyboard.type("baccarat\n");
  await page.keyboard.press("Control+s");
  await Until(async () => (await window.locator(".status").innerText()) === "Saved");
  await page.keyboard.press("Escape");
  await window.waitFor({ state: "detached" });
  await edit.click();
  await Until(async () => (await mine.inputValue()) === `baccarat\n${before}`);
});

async function OpenScript(page) {
  await Node(page, "LOCALHOST").locator(".twisty").click();
  await Node(page, "Filters").click();
  await page.locator(".pane-list .row").first().dblclick();
  await page.getByRole("radio", { name: "Use a criteria script" }).click();
  await page.getByRole("button", { name: "Edit script..." }).click();
  const code = page.locator("#dialog-1 .cm-content");
  await code.click();
  await page.keyboard.press("Control+a");
  return { code, lines: async () => (await code.locator(".cm-line").allTextContents()).join("|") };
}

test("a token goes into the script where the caret stands", async (t) => {
  const { page } = await OpenServer(t);
  const { lines } = await OpenScript(page);
  await page.keyboard.type("abcd");
  await page.keyboard.press("ArrowLeft");
  await page.keyboard.press("ArrowLeft");
  await page.getByRole("option", { name: "[QV_SUBJECT]" }).dblclick();
  await Until(async () => (await lines()) === 'ab|CriteriaMet([QV_SUBJECT],"Value")|bcd');
  await page.keyboard.press("Escape");
  await page.locator("#dialog-1").waitFor({ state: "detached" });
});

test("a script that does not compile is marked, mended and kept", async (t) => {
  const { page } = await OpenServer(t);
  const { code, lines } = await OpenScript(page);
  await page.keyboard.insertText("Dim a\nFilterResult = (1\n");
  await page.getByRole("button", { name: "Check" }).click();
  const box = page.getByRole("alertdialog", { name: "Script Compilation Error" });
  await box.getByText("Line: 2, Column: 17. Description: Expected ')'.").waitFor();
  await box.getByRole("button", { name: "OK" }).click();
  await box.waitFor({ state: "detached" });
  assert.equal(await code.locator(".qv-fault").textContent(), "FilterResult = (1");
  await page.keyboard.type(")");
  assert.equal(await lines(), "Dim a|FilterResult = (1)|");
  assert.equal(await code.locator(".qv-fault").count(), 0);
  await page.locator("[data-control=cmdExit]").click();
  await page.locator("#dialog-1").waitFor({ state: "detached" });
  await page.getByRole("button", { name: "Edit script..." }).click();
  await code.waitFor();
  assert.equal(await lines(), "Dim a|FilterResult = (1)|");
});

test("a script that runs for ever is stopped", async (t) => {
  const { page } = await OpenServer(t);
  const { code } = await OpenScript(page);
  await page.keyboard.insertText("Do\nLoop\n");
  await page.getByRole("button", { name: "Check" }).click();
  await page.getByRole("button", { name: "Stop" }).click();
  await page.locator("dialog#message").waitFor();
  await page.locator("#message").getByRole("button", { name: "OK" }).click();
  await page.locator("#message").waitFor({ state: "detached" });
  assert.equal(await code.locator(".cm-line").first().textContent(), "Do");
});

test("the mailboxes of a postoffice are filtered", async (t) => {
  const { page } = await OpenServer(t);
  await Node(page, "LOCALHOST").locator(".twisty").click();
  await Node(page, "Postoffices").locator(".twisty").click();
  await page.locator(".node:has(.i-104)").first().click();
  const rows = page.locator(".pane-list .row .words");
  await rows.first().waitFor();
  const all = await rows.allTextContents();
  const wanted = all.at(-1).slice(1, 4);
  const found = all.filter((name) => name.toUpperCase().includes(wanted.toUpperCase()));
  assert.ok(found.length < all.length);
  await page.keyboard.press("Control+f");
  await page.keyboard.type(wanted.toUpperCase(), { delay: 15 });
  await Until(async () => (await rows.allTextContents()).join() === found.join());
  assert.equal(await page.locator(".count").innerText(), `${found.length} found`);
  await page.keyboard.press("Escape");
  await Until(async () => (await rows.allTextContents()).join() === all.join());
});
