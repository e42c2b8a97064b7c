// The box that filters the pane's rows.
import assert from "node:assert/strict";
import { test } from "node:test";
import { Open, Ordinary, Until } from "./support.mjs";
import * as s from "./states.mjs";

const names = ["anna", "bert", "berta", "cecil"];
const Mailbox = (name) => ({ key: `MAILBOX-${name}`, tag: "", text: name, icon: "105", cells: [name], selected: false });
const Mailboxes = (more = {}) => ({
  name: "lvwMailboxes",
  tag: "",
  host: "LOCALHOST",
  columns: [{ key: "t1", caption: "Mailbox", width: 300 }],
  sort: null,
  total: 4,
  offset: 0,
  filter: "",
  items: names.map(Mailbox),
  ...more,
});

// Filters as a console does.
function Filtering(event, state) {
  Ordinary(event, state);
  if (event.do === "select" && event.node?.endsWith("/filters")) state.view = s.Filters([s.Filter("Newsletters")]);
  if (event.do !== "filter") return;
  const items = names.filter((name) => name.includes(event.text)).map(Mailbox);
  Object.assign(state.view, { filter: event.text, items, total: items.length });
}

async function OpenMailboxes(t, options = {}) {
  const state = s.State({ tree: s.Tree("server:LOCALHOST/postoffice:north"), view: Mailboxes() });
  const opened = await Open(t, { state, react: Filtering, ...options });
  const box = opened.page.getByRole("searchbox", { name: "Filter mailboxes" });
  await box.waitFor();
  const asked = () => opened.console.told.filter((event) => event.do === "filter").map((event) => event.text);
  return { ...opened, box, asked };
}

const Rows = (page) => page.locator(".pane-list .row .words").allTextContents();

test("what is typed filters the rows when it rests", async (t) => {
  const { page, console: c, box, asked } = await OpenMailboxes(t);
  assert.equal(await box.getAttribute("placeholder"), "Find");
  assert.equal(await page.locator(".count").innerText(), "4 items");
  await box.focus();
  await page.keyboard.type("bert", { delay: 20 });
  await Until(async () => (await Rows(page)).length === 2);
  assert.deepEqual(await Rows(page), ["bert", "berta"]);
  assert.deepEqual(asked(), ["bert"]);
  assert.equal(await page.locator(".count").innerText(), "2 found");
  await page.keyboard.type("x");
  await page.getByText("Nothing in this list holds “bertx”.").waitFor();
  await page.keyboard.press("Escape");
  await Until(async () => (await Rows(page)).length === 4);
  assert.equal(await box.inputValue(), "");
  assert.deepEqual(asked(), ["bert", "bertx", ""]);
  assert.deepEqual(c.told.filter((event) => event.do !== "filter"), []);
});

test("on a slow line what is typed stays, and the last text wins", async (t) => {
  const { page, box, asked } = await OpenMailboxes(t, { delay: 400 });
  await box.focus();
  for (const letter of "berta") {
    await page.keyboard.type(letter);
    await page.waitForTimeout(190);
    assert.ok("berta".startsWith(await box.inputValue()));
  }
  assert.equal(await box.inputValue(), "berta");
  await Until(() => asked().at(-1) === "berta");
  await Until(async () => (await Rows(page)).join() === "berta");
  assert.equal(await box.inputValue(), "berta");
});

test("Ctrl+F, arrow down and Enter", async (t) => {
  const { page, console: c, box, asked } = await OpenMailboxes(t);
  await page.locator(".tree").focus();
  await page.keyboard.press("Control+f");
  await page.keyboard.type("bert");
  await page.keyboard.press("ArrowDown");
  await Until(() => asked().length === 1);
  await Until(async () => (await Rows(page)).length === 2);
  await page.keyboard.press("ArrowDown");
  await Until(() => c.state.view.items[0].selected);
  assert.equal(await page.locator(".row.selected").innerText(), "bert");
  await page.keyboard.press("Control+f");
  await page.keyboard.type("a");
  await page.keyboard.press("Enter");
  await Until(() => asked().length === 2);
  assert.deepEqual(asked(), ["bert", "a"]);
  assert.equal(await box.inputValue(), "a");
});

test("a pane that cannot be filtered has no box, and another pane starts anew", async (t) => {
  const { page, console: c, box } = await OpenMailboxes(t);
  await box.fill("be");
  await page.locator(".node", { hasText: "Filters" }).click();
  await page.getByRole("heading", { name: "Filters on LOCALHOST" }).waitFor();
  await page.waitForTimeout(300);
  assert.equal(await page.getByRole("searchbox").count(), 0);
  // What has not gone out by the time of the click does not go to the other pane.
  assert.deepEqual(c.told.at(-1), { do: "select", node: "server:LOCALHOST/filters" });
});

test("with a dialog open Ctrl+F is not the pane's", async (t) => {
  const { page, console: c } = await OpenMailboxes(t);
  c.state.dialogs = [s.NameForm()];
  c.Send(c.socket, { state: c.state });
  await page.locator("dialog[open]").waitFor();
  await page.locator("[data-control=txtName]").focus();
  await page.keyboard.press("Control+f");
  assert.equal(await page.evaluate(() => document.activeElement.dataset.control), "txtName");
});

test("rows that are chosen, and the place, start anew with the filter", async (t) => {
  const many = Array.from({ length: 300 }, (_, n) => `m${n}`);
  const react = (event, state) => {
    Ordinary(event, state);
    if (event.do !== "filter") return;
    const items = many.filter((name) => name.includes(event.text)).map(Mailbox);
    Object.assign(state.view, { filter: event.text, items, total: items.length });
  };
  const { page, console: c, box } = await OpenMailboxes(t, { react });
  Object.assign(c.state.view, { items: many.map(Mailbox), total: 300 });
  c.Send(c.socket, { state: c.state });
  await Until(async () => (await page.locator(".count").innerText()) === "300 items");
  await page.locator(".pane-list .rows").evaluate((e) => (e.scrollTop = 5400));
  await page.locator(".pane-list .row", { hasText: "m200" }).click();
  await box.fill("2");
  await Until(async () => (await page.locator(".count").innerText()) === "138 found");
  assert.equal(await page.locator(".pane-list .rows").evaluate((e) => e.scrollTop), 0);
  await page.locator(".pane-list .row", { hasText: "m12" }).first().click({ modifiers: ["Control"] });
  await Until(() => c.told.at(-1).do === "selectItems");
  assert.deepEqual(c.told.at(-1).keys, ["MAILBOX-m12"]);
});
