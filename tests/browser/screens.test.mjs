// Every screen in light and dark: axe finds nothing. With SCREENSHOTS=DIR the pictures are kept there.
import assert from "node:assert/strict";
import { test } from "node:test";
import { Axe, Open, Picture } from "./support.mjs";
import * as s from "./states.mjs";

const selectedRow = () => {
  const state = s.State({ verbs: { delete: true, properties: false, refresh: true } });
  state.view.items[1].selected = true;
  return state;
};

const spam = {
  name: "lvwSpamItems",
  tag: "SYSFILTERS",
  host: "LOCALHOST",
  columns: [
    { key: "t1", caption: "Description", width: 350 },
    { key: "n2", caption: "Positive Weighting", width: 150 },
    { key: "n3", caption: "Negative Weighting", width: 150 },
  ],
  sort: { column: 1, descending: true },
  total: 4,
  offset: 0,
  items: ["Sender is in a blocked list", "Subject in capital letters", "Message without text", "Too many recipients"].map(
    (text, n) => ({ key: `W${n}`, tag: "", text, icon: "4", cells: [text, n ? String(40 - n * 10) : "Always marked as spam", "0"], selected: false }),
  ),
};

const mailboxes = {
  name: "lvwMailboxes",
  tag: "",
  host: "LOCALHOST",
  columns: [{ key: "t1", caption: "Mailbox", width: 300 }],
  sort: null,
  total: 3,
  offset: 0,
  filter: "",
  items: ["anna", "bert", "cecil"].map((n) => ({ key: `MAILBOX-${n}`, tag: "", text: n, icon: "105", cells: [n], selected: n === "anna" })),
};

const screens = {
  filters: s.State(),
  row: selectedRow(),
  servers: s.State({ tree: s.Tree("servers"), view: null }),
  closed: s.State({ tree: s.Tree("server:MAIL2"), view: null }),
  spam: s.State({ tree: s.Tree("server:LOCALHOST/spam"), view: spam, verbs: { delete: false, properties: true, refresh: true } }),
  mailboxes: s.State({ tree: s.Tree("server:LOCALHOST/postoffice:north"), view: mailboxes, verbs: { delete: false, properties: true, refresh: true } }),
  empty: s.State({ view: s.Filters([]) }),
  "other host": s.State({ view: s.Filters([s.Filter("Far away")], { host: "MAIL2" }) }),
  name: s.State({ dialogs: [s.NameForm()] }),
  manage: s.State({ dialogs: [s.ManageForm()] }),
  words: s.State({ dialogs: [s.ManageForm(), s.WordsForm()] }),
  plain: s.State({ dialogs: [s.WordsForm({ layout: undefined })] }),
  sheet: s.State({ tree: s.Tree("server:LOCALHOST/postoffice:north"), view: mailboxes, sheet: s.MailboxSheet() }),
  question: s.State({
    message: s.Message("Are you sure you wish to delete the filter 'Newsletters'?", { title: "Delete", icon: "critical", buttons: ["yes", "no"] }),
  }),
  warning: s.State({ dialogs: [s.NameForm()], message: s.Message("A maximum of 100 filters can be created.") }),
};

const titled = {
  name: "frmAction",
  caption: "Notify Address",
  height: 0,
  size: "medium",
  controls: [
    s.Label("lblH1", "Action:"),
    s.Label("lblDescription", "Send a notification to an address", { look: "heading" }),
    s.Label("Label2", "&Address:"),
    s.Text("txtAddress", "postmaster@example.com"),
    s.Option("optAny", "Any of these", true),
    s.Option("optAll", "All of these", false),
    s.Button("cmdEdit", "Edit..."),
    s.ListView("lvwRows", [{ key: "a", caption: "Name", width: 3000 }], [{ key: "1", text: "One", cells: [], checked: false }]),
    s.Button("cmdOK", "OK", { default: true }),
    s.Button("cmdCancel", "&Cancel", { cancel: true }),
  ],
  layout: {
    kind: "column",
    items: [
      { kind: "field", label: "lblH1", control: "lblDescription" },
      { kind: "field", label: "Label2", control: "txtAddress" },
      { kind: "row", items: ["optAny", "optAll", "cmdEdit"].map((control) => ({ kind: "control", control })) },
      { kind: "control", control: "lvwRows", lines: 3 },
      { kind: "buttons", items: ["cmdOK", "cmdCancel"] },
    ],
  },
};

// Screens that take a deed to get to.
const deeds = {
  script: [s.State({ dialogs: [s.ManageForm(), s.ScriptForm()] }), (page) => page.locator(".cm-content").click()],
  fault: [
    s.State({ dialogs: [s.ScriptForm()] }),
    async (page, console_) => {
      const text = "Line: 3, Column: 21. Description: Expected ')'.\r\nError Number: 1006.";
      console_.react = (event, state) => {
        state.message = event.do === "click" ? s.Message(text, { title: "Script Compilation Error", icon: "critical" }) : null;
      };
      await page.locator("[data-control=cmdCheck]").click();
      await page.getByRole("button", { name: "OK" }).click();
      await page.locator("#message").waitFor({ state: "detached" });
      await page.keyboard.press("Control+f");
      await page.keyboard.type("met");
    },
  ],
  stop: [
    s.State({ dialogs: [s.ScriptForm()] }),
    async (page, console_) => {
      await page.locator(".cm-content").waitFor();
      console_.react = () => null;
      await page.locator("[data-control=cmdCheck]").click();
      await page.getByRole("button", { name: "Stop" }).waitFor();
    },
  ],
  titled: [
    s.State({ dialogs: [titled] }),
    async (page) => {
      for (let n = 0; n < 3; n++) await page.keyboard.press("Tab");
    },
  ],
  find: [
    s.State({ tree: s.Tree("server:LOCALHOST/postoffice:north"), view: { ...mailboxes, filter: "zz", items: [], total: 0 } }),
    (page) => page.keyboard.press("Control+f"),
  ],
  menu: [selectedRow(), (page) => page.locator(".row.selected").click({ button: "right" })],
  ended: [s.State(), (_page, console_) => console_.socket.close()],
  "text window": [
    s.State({ dialogs: [s.WordsForm()] }),
    async (page, console_) => {
      console_.react = (event, state) => {
        if (event.file === "read") return { file: { path: event.path, text: "casino\r\npoker\r\n", version: 1, exists: true } };
        if (event.file === "write") return { file: { path: event.path, conflict: { text: "casino\r\nroulette\r\n", version: 2 } } };
        if (event.do === "click") state.started = [{ kind: "program", command: 'notepad "C:\\config\\QVFILTER-finance.TXT"' }];
        return undefined;
      };
      await page.locator("[data-control=cmdAddWord]").click();
      await page.locator("textarea.mine").fill("casino\npoker\nbaccarat\n");
      await page.keyboard.press("Control+s");
      await page.getByRole("button", { name: "Show the disk's text" }).click();
    },
  ],
  help: [
    s.State({ sheet: s.MailboxSheet() }),
    async (page, console_) => {
      console_.react = (_event, state) => void (state.started = [{ kind: "help", topic: "qvhelp.chm::/mailboxfilters.htm" }]);
      await page.getByRole("button", { name: "Help" }).click();
    },
  ],
};

for (const colorScheme of ["light", "dark"]) {
  for (const [name, state] of Object.entries(screens)) {
    test(`${name}, ${colorScheme}`, async (t) => {
      const { page } = await Open(t, { state: structuredClone(state), colorScheme, bypassCSP: true });
      await page.waitForTimeout(150);
      await Picture(page, `${name.replace(" ", "-")}-${colorScheme}`);
      assert.deepEqual(await Axe(page), []);
    });
  }
}

for (const colorScheme of ["light", "dark"]) {
  for (const [name, [state, deed]] of Object.entries(deeds)) {
    test(`${name}, ${colorScheme}`, async (t) => {
      const expected = [/WebSocket/, /426/, /request failed/];
      const opened = await Open(t, { state: structuredClone(state), colorScheme, bypassCSP: true, expected });
      await deed(opened.page, opened.console);
      await opened.page.waitForTimeout(200);
      await Picture(opened.page, `${name.replace(" ", "-")}-${colorScheme}`);
      assert.deepEqual(await Axe(opened.page), []);
    });
  }
}

for (const name of ["row", "words"]) {
  test(`${name} in forced colours`, async (t) => {
    const { page } = await Open(t, { state: structuredClone(screens[name]), forcedColors: "active", bypassCSP: true });
    await page.waitForTimeout(150);
    await Picture(page, `${name}-forced`);
    assert.deepEqual(await Axe(page), []);
  });
}

for (const name of ["filters", "manage", "words", "sheet"]) {
  test(`${name} at 200 %`, async (t) => {
    // A window of 1280 by 800 zoomed to 200 % has 640 by 400 pixels of its own.
    const { page } = await Open(t, {
      state: structuredClone(screens[name]),
      viewport: { width: 640, height: 400 },
      deviceScaleFactor: 2,
      bypassCSP: true,
    });
    await page.waitForTimeout(150);
    await Picture(page, `${name}-zoomed`);
    const wide = await page.evaluate(() => document.documentElement.scrollWidth > innerWidth);
    assert.equal(wide, false, "the page scrolls sideways");
    for (const dialog of await page.locator("dialog[open]").all()) {
      const box = await dialog.boundingBox();
      assert.ok(box.x >= 0 && box.y >= 0 && box.x + box.width <= 640 && box.y + box.height <= 400, JSON.stringify(box));
      const foot = await dialog.locator(".foot").boundingBox();
      assert.ok(foot.y + foot.height <= 400, "the buttons are out of sight");
    }
    assert.deepEqual(await Axe(page), []);
  });
}
