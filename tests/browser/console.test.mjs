// The tree, the result pane, menus and the action bar, by mouse and by keyboard.
import assert from "node:assert/strict";
import { test } from "node:test";
import { Row } from "./person.mjs";
import { Open, Ordinary, Told, Until } from "./support.mjs";
import * as s from "./states.mjs";

const kKeys = ["Invoicestoaccounting", "Largeattachments", "Newsletters", "Outofofficeloops", "Pressenquiries"].map(
  (name) => `FILTER-FLT${name}`,
);

test("a click, Ctrl and Shift select rows", async (t) => {
  const { page, console: c } = await Open(t);
  await Row(page, "Newsletters").click();
  await Row(page, "Press").click({ modifiers: ["Control"] });
  await Row(page, "Large").click({ modifiers: ["Shift"] });
  await Row(page, "Newsletters").click({ modifiers: ["Control"] });
  await Told(c, [
    { do: "selectItems", keys: [kKeys[2]] },
    { do: "selectItems", keys: [kKeys[2], kKeys[4]] },
    { do: "selectItems", keys: kKeys.slice(1) },
    { do: "selectItems", keys: [kKeys[1], kKeys[3], kKeys[4]] },
  ]);
  assert.equal(await page.locator(".pane-list .row.selected").count(), 3);
  await page.mouse.click(800, 700);
  await Until(() => c.told.at(-1).keys?.length === 0);
});

test("the keyboard selects rows", async (t) => {
  const { page, console: c } = await Open(t);
  await page.locator(".pane-list .rows").focus();
  for (const key of ["ArrowDown", "Shift+ArrowDown", "End", "Control+ArrowUp", "Control+Space", "Control+a", "Home"]) {
    await page.keyboard.press(key);
    // Every answer is there before the next key: what comes back must not move the cursor either.
    await page.waitForTimeout(60);
  }
  await Told(c, [
    { do: "selectItems", keys: [kKeys[0]] },
    { do: "selectItems", keys: [kKeys[0], kKeys[1]] },
    { do: "selectItems", keys: [kKeys[4]] },
    { do: "selectItems", keys: [kKeys[3], kKeys[4]] },
    { do: "selectItems", keys: kKeys },
    { do: "selectItems", keys: [kKeys[0]] },
  ]);
  assert.equal(await page.locator(".rows").getAttribute("aria-activedescendant"), "pane-0");
});

test("typed letters find a row", async (t) => {
  const { page, console: c } = await Open(t);
  await page.locator(".pane-list .rows").focus();
  await page.keyboard.type("ou");
  await Until(() => c.told.at(-1)?.keys[0] === kKeys[3]);
  await page.waitForTimeout(900);
  await page.keyboard.type("i");
  await Until(() => c.told.at(-1)?.keys[0] === kKeys[0]);
});

test("a double click opens a row once", async (t) => {
  const { page, console: c } = await Open(t);
  await Row(page, "Newsletters").dblclick();
  await Told(c, [
    { do: "selectItems", keys: [kKeys[2]] },
    { do: "doubleClick", item: kKeys[2] },
  ]);
});

test("Enter, Delete, F5 and Alt+Enter act on the selection", async (t) => {
  const { page, console: c } = await Open(t);
  c.state.verbs = { delete: true, properties: true, refresh: true };
  await Row(page, "Newsletters").click();
  for (const key of ["Enter", "Delete", "F5", "Alt+Enter"]) await page.keyboard.press(key);
  await Told(c, [
    { do: "selectItems", keys: [kKeys[2]] },
    { do: "doubleClick", item: kKeys[2] },
    { do: "verb", name: "delete" },
    { do: "verb", name: "refresh" },
    { do: "verb", name: "properties" },
  ]);
});

test("the tree goes by keyboard", async (t) => {
  const { page, console: c } = await Open(t);
  await page.locator(".tree").focus();
  const keys = ["ArrowUp", "ArrowLeft", "ArrowLeft", "ArrowLeft", "ArrowRight", "End", "ArrowRight", "Home", "m"];
  for (const key of keys) await page.keyboard.press(key);
  await Told(c, [
    { do: "select", node: "server:LOCALHOST/postoffice:south" },
    { do: "select", node: "server:LOCALHOST/postoffices" },
    { do: "collapse", node: "server:LOCALHOST/postoffices" },
    { do: "select", node: "server:LOCALHOST" },
    { do: "select", node: "server:LOCALHOST/postoffices" },
    { do: "select", node: "server:MAIL2" },
    { do: "expand", node: "server:MAIL2" },
    { do: "select", node: "servers" },
    { do: "select", node: "server:MAIL2" },
  ]);
});

test("a twisty opens and closes without selecting", async (t) => {
  const { page, console: c } = await Open(t);
  await page.locator(".node", { hasText: "MAIL2" }).locator(".twisty").click();
  await page.locator(".node", { hasText: "LOCALHOST" }).locator(".twisty").click();
  await Told(c, [
    { do: "expand", node: "server:MAIL2" },
    { do: "collapse", node: "server:LOCALHOST" },
  ]);
});

test("the context menu of a row, by mouse", async (t) => {
  const { page, console: c } = await Open(t);
  await Row(page, "Large").click({ button: "right" });
  const menu = page.getByRole("menu");
  await menu.waitFor();
  const items = await menu.getByRole("menuitem").allInnerTexts();
  assert.deepEqual(
    items.map((text) => text.split("\n")[0].trim()),
    ["Enable", "Disable", "Manage...", "Rename...", "Order Filters...", "Delete", "Refresh"],
  );
  assert.equal(await menu.getByRole("menuitem", { name: "Disable" }).getAttribute("aria-disabled"), "true");
  await menu.getByRole("menuitem", { name: "Disable" }).click({ force: true });
  assert.equal(await menu.isVisible(), true);
  await menu.getByRole("menuitem", { name: "Enable" }).click();
  await Told(c, [
    { do: "selectItems", keys: [kKeys[1]] },
    { do: "choose", name: "mnuFilterEnable" },
  ]);
  assert.equal(await menu.isVisible(), false);
});

test("the context menu by keyboard, and away with Esc", async (t) => {
  const { page, console: c } = await Open(t);
  await Row(page, "Newsletters").click();
  await page.keyboard.press("Shift+F10");
  const menu = page.getByRole("menu");
  await menu.waitFor();
  await page.keyboard.press("Escape");
  await menu.waitFor({ state: "hidden" });
  assert.equal(await page.evaluate(() => document.activeElement.id), "pane");
  await page.keyboard.press("ContextMenu");
  await menu.waitFor();
  await page.keyboard.press("ArrowDown");
  await page.keyboard.press("End");
  await page.keyboard.press("Enter");
  await Until(() => c.told.length === 2);
  assert.deepEqual(c.told[1], { do: "verb", name: "refresh" });
});

test("a context menu asked for at the moment another closes", async (t) => {
  const { page } = await Open(t);
  await Row(page, "Newsletters").click();
  await page.keyboard.press("Shift+F10");
  const menu = page.getByRole("menu");
  await menu.waitFor();
  await page.evaluate(() => {
    document.querySelector("[role=menu]").hidePopover();
    document.activeElement.dispatchEvent(new KeyboardEvent("keydown", { key: "ContextMenu", bubbles: true, cancelable: true }));
  });
  await page.waitForTimeout(50);
  await menu.waitFor();
  await page.keyboard.press("Escape");
  await menu.waitFor({ state: "hidden" });
});

test("the menu of a node", async (t) => {
  const { page, console: c } = await Open(t);
  await page.locator(".node", { hasText: "Spam" }).click({ button: "right" });
  await page.getByRole("menuitem", { name: "New Filter..." }).click();
  await Told(c, [
    { do: "select", node: "server:LOCALHOST/spam" },
    { do: "choose", name: "mnuFilterAdd" },
  ]);
});

test("the action bar holds what the selection offers", async (t) => {
  const { page, console: c } = await Open(t);
  const bar = page.getByRole("toolbar");
  await bar.getByRole("button", { name: "New Filter..." }).waitFor();
  await Row(page, "Newsletters").click();
  await bar.getByRole("button", { name: "Disable" }).click();
  await Until(() => c.told.length === 2);
  const last = c.events.filter((event) => event.do === "menu" || event.do === "choose").slice(-2);
  assert.deepEqual(
    last.map(({ id: _, ...event }) => event),
    [
      { do: "menu", on: "items" },
      { do: "choose", name: "mnuFilterDisable" },
    ].slice(last[0].do === "menu" ? 0 : 1),
  );
  assert.equal(await bar.getByRole("button", { name: "Enable" }).isDisabled(), true);
  // With a row selected, what the node offers is chosen from the node's own menu.
  await bar.getByRole("button", { name: "New Filter..." }).click();
  await Until(() => c.told.length === 3);
  const chosen = c.events.findLastIndex((event) => event.do === "choose");
  assert.deepEqual([c.events[chosen - 1].on, c.events[chosen].name], ["node", "mnuFilterAdd"]);
});

for (const width of [1400, 1100, 1000, 800]) {
  test(`a selection moves no row, ${width} pixels wide`, async (t) => {
    const { page } = await Open(t, { viewport: { width, height: 600 } });
    const bar = page.getByRole("toolbar");
    await bar.getByRole("button", { name: "New Filter..." }).waitFor();
    const before = await Row(page, "Newsletters").boundingBox();
    await Row(page, "Newsletters").click();
    await bar.getByRole("button", { name: "Disable" }).waitFor();
    assert.equal((await Row(page, "Newsletters").boundingBox()).y, before.y);
    await bar.getByRole("button", { name: "Delete" }).waitFor();
  });
}

test("headers sort and change their width", async (t) => {
  const { page, console: c } = await Open(t, {
    react: (event, state) => {
      if (event.do === "sort") state.view.sort = { column: event.column, descending: state.view.sort !== null };
      else Ordinary(event, state);
    },
  });
  const header = page.getByRole("columnheader", { name: "Filter" });
  await header.getByRole("button").click();
  await page.locator("[aria-sort=ascending]").waitFor();
  await header.getByRole("button").click();
  await page.locator("[aria-sort=descending]").waitFor();
  await Told(c, [
    { do: "sort", column: 0 },
    { do: "sort", column: 0 },
  ]);
  const width = async () => Math.round((await header.boundingBox()).width);
  assert.equal(await width(), 375);
  const grip = await header.locator(".grip").boundingBox();
  await page.mouse.move(grip.x + 4, grip.y + 8);
  await page.mouse.down();
  await page.mouse.move(grip.x + 104, grip.y + 8, { steps: 4 });
  await page.mouse.up();
  assert.equal(await width(), 475);
  await header.getByRole("button").focus();
  await page.keyboard.press("Shift+ArrowLeft");
  assert.equal(await width(), 459);
  assert.equal(c.told.length, 2, "a width is nobody's business but the page's");
});

test("rows of another server are told, and the way back offered", async (t) => {
  const { page, console: c } = await Open(t, { state: s.State({ view: s.Filters([s.Filter("Far")], { host: "MAIL2" }) }) });
  await page.getByRole("heading", { name: "Filters on MAIL2" }).waitFor();
  await page.getByRole("button", { name: "Switch to LOCALHOST" }).click();
  await Told(c, [
    { do: "expand", node: "server:LOCALHOST" },
    { do: "select", node: "server:LOCALHOST/filters" },
  ]);
});

function Many(offset, total) {
  const count = Math.min(500, total - offset);
  return Array.from({ length: count }, (_, n) => ({
    key: `MAILBOX-${offset + n}`,
    tag: "",
    text: `box ${offset + n}`,
    icon: "105",
    cells: [`box ${offset + n}`, "on"],
    selected: false,
  }));
}

test("a long list comes page by page and stays where it is", async (t) => {
  const total = 5000;
  const { page, console: c } = await Open(t, {
    state: s.State({ view: s.Filters(Many(0, total), { total }) }),
    delay: 40,
    react: (event, state) => {
      if (event.do === "scroll") {
        state.view.offset = event.offset;
        state.view.items = Many(event.offset, total);
      } else Ordinary(event, state);
    },
  });
  const rows = page.locator(".pane-list .rows");
  await rows.evaluate((e) => (e.scrollTop = e.scrollHeight / 2));
  await page.locator(".row", { hasText: "box 2500" }).waitFor();
  const place = await rows.evaluate((e) => e.scrollTop);
  await page.waitForTimeout(200);
  assert.equal(await rows.evaluate((e) => e.scrollTop), place);
  assert.equal(c.told.filter((event) => event.do === "scroll").length, 1);
  assert.ok((await page.locator(".pane-list .row").count()) < 80);
  await rows.focus();
  await page.keyboard.press("End");
  await page.locator(".row", { hasText: "box 4999" }).waitFor();
  assert.equal(await page.locator(".count").innerText(), "5000 items");
});

test("500 rows are redrawn within a frame", async (t) => {
  const { page, console: c } = await Open(t, { state: s.State({ view: s.Filters(Many(0, 500)) }) });
  const rows = page.locator(".pane-list .rows");
  await rows.focus();
  await page.keyboard.press("ArrowDown");
  await page.evaluate(() => {
    globalThis.times = [];
    // The state is taken in one task; what is left of it by the next frame is its cost.
    const parse = JSON.parse;
    JSON.parse = (text) => {
      const start = performance.now();
      const channel = new MessageChannel();
      channel.port1.onmessage = () => globalThis.times.push(performance.now() - start);
      channel.port2.postMessage(0);
      return parse(text);
    };
  });
  for (let n = 0; n < 30; n++) await page.keyboard.press("Shift+ArrowDown");
  await Until(() => c.told.length >= 31);
  await page.waitForTimeout(100);
  const times = (await page.evaluate(() => globalThis.times)).sort((a, b) => a - b);
  const median = times[Math.floor(times.length / 2)];
  t.diagnostic(`median of ${times.length} redraws: ${median.toFixed(1)} ms`);
  assert.ok(median < 16.7, `${median} ms`);
});

test("what takes longer than a moment shows, and moves nothing", async (t) => {
  const { page, console: c } = await Open(t);
  await Row(page, "Newsletters").click();
  await Until(() => c.told.length === 1);
  await page.waitForTimeout(100);
  const place = () => Row(page, "Newsletters").boundingBox();
  const before = await place();
  let asked = 0;
  c.react = (event, state) => {
    Ordinary(event, state);
    asked = event.id;
    return null;
  };
  // How long after the key the page shows that it is busy, in milliseconds.
  await page.evaluate(() => {
    let pressed = 0;
    document.addEventListener("keydown", () => (pressed = performance.now()), { capture: true });
    new MutationObserver(() => {
      if (document.querySelector(".progress")) globalThis.shownAfter ??= performance.now() - pressed;
    }).observe(document.body, { childList: true, subtree: true });
  });
  await page.keyboard.press("ArrowDown");
  await page.locator(".progress").waitFor({ state: "attached" });
  const after = await page.evaluate(() => globalThis.shownAfter);
  assert.ok(after >= 299, `${after} ms`);
  assert.equal(await page.locator(".shell").getAttribute("aria-busy"), "true");
  assert.equal(await page.locator(".working").innerText(), "Working…");
  assert.deepEqual(await place(), before);
  c.Send(c.socket, { state: c.state, id: asked });
  await page.locator(".progress").waitFor({ state: "detached" });
  assert.equal(await page.locator(".shell").getAttribute("aria-busy"), "false");
});

test("the width of the tree changes by mouse and keyboard", async (t) => {
  const { page } = await Open(t);
  const splitter = page.getByRole("separator", { name: "Width of the server tree" });
  await splitter.focus();
  await page.keyboard.press("ArrowRight");
  assert.equal(Math.round((await page.locator("nav").boundingBox()).width), 304);
  const box = await splitter.boundingBox();
  await page.mouse.move(box.x + 3, 400);
  await page.mouse.down();
  await page.mouse.move(box.x + 53, 400, { steps: 3 });
  await page.mouse.up();
  assert.equal(Math.round((await page.locator("nav").boundingBox()).width), 354);
});
