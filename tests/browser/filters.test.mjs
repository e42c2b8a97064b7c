// Filters made whole on the program itself: by keyboard alone with a criterion of every kind, and with every action.
import assert from "node:assert/strict";
import { test } from "node:test";
import { Top, Windows } from "./person.mjs";
import { Data, OpenServer } from "./program.mjs";
import { Until } from "./support.mjs";

// Presses Tab until a place has the focus.
async function TabTo(page, selector) {
  for (let n = 0; n < 60; n++) {
    if (await page.evaluate((s) => document.activeElement?.closest(s) instanceof Element, selector)) return;
    await page.keyboard.press("Tab");
  }
  assert.fail(`Tab does not reach ${selector}`);
}

const Control = (page, name) => TabTo(page, `dialog[open] [data-control="${name}"]`);

async function Keys(page, ...keys) {
  for (const key of keys) await page.keyboard.press(key);
}

// By the row of the list: what is done in the dialog behind the tick, and what is stored.
const criteria = [
  [0, "1", "alpha,beta", async (page) => {
    await Control(page, "optUseWordList");
    await Keys(page, "Space");
    await Control(page, "txtWords");
    await page.keyboard.type("alpha, beta");
    await Control(page, "CmdAdd");
    await Keys(page, "Space");
  }],
  [5, "6", "High", async (page) => {
    await Control(page, "cboImportance");
    await page.keyboard.type("h");
  }],
  [7, "8", "5000", async (page) => {
    await Control(page, "txtSize");
    await page.keyboard.type("5000");
  }],
  [8, "9", "*.exe", async (page) => {
    await Control(page, "txtWords");
    await page.keyboard.type("*.exe");
    await Control(page, "CmdAdd");
    await Keys(page, "Space");
  }],
  [9, "10", "1", async () => undefined],
  [11, "13", "95.5", async (page) => {
    await Control(page, "txtProb");
    await page.keyboard.type("9a5.5");
  }],
  [12, "14", "pass", async (page) => {
    await Control(page, "cboSPF");
    await page.keyboard.type("p");
  }],
  [16, "18", "192.0.2.*", async (page) => {
    await Control(page, "txtIP");
    await page.keyboard.type("192.0.2.*");
  }],
  [17, "19", "sales.example.com", async (page) => {
    await Control(page, "lstPostoffices");
    await page.keyboard.type("sales");
  }],
  [18, "20", "SMTP", async (page) => {
    await Control(page, "cboConnector");
    await page.keyboard.type("SMTP");
  }],
];

test("a filter by keyboard alone", { timeout: 120_000 }, async (t) => {
  const { page, local } = await OpenServer(t);
  await TabTo(page, ".tree");
  await Keys(page, "Home", "ArrowDown", "ArrowRight");
  await page.locator(".node", { hasText: "Filters" }).waitFor();
  await Keys(page, "ArrowDown", "ArrowDown");
  await page.locator(".pane-list .row").first().waitFor();
  await Keys(page, "Shift+F10");
  await page.getByRole("menuitem", { name: "New Filter..." }).waitFor();
  await Keys(page, "Enter");
  await Windows(page, 1);
  await page.keyboard.type("By keys");
  await Keys(page, "Enter");
  await Windows(page, 0);
  await page.locator(".pane-list .row", { hasText: "By keys" }).waitFor();
  await TabTo(page, ".pane-list .rows");
  await Keys(page, "End", "Enter");
  await Windows(page, 1);
  for (const [row, , , act] of criteria) {
    await Control(page, "lvwCriteria");
    await Keys(page, "Home", ...Array(row).fill("ArrowDown"), "Enter");
    await Windows(page, 2);
    await Control(page, "chkStatus");
    await Keys(page, "Space");
    await act(page);
    await Control(page, "cmdOK");
    await Keys(page, "Enter");
    await Windows(page, 1);
  }
  const id = Data(local).filters.find((f) => f.Description === "By keys").CriteriaID;
  const rows = Data(local).criteria.filter((c) => c.CriteriaID === id && c.Status === 1);
  assert.deepEqual(rows.map((c) => [c.RuleID, c.Values]), criteria.map(([, rule, values]) => [rule, values]));
});

// What an action asks for, by its dialog's box.
const texts = {
  "Notify Address": { txtAddress: "a@x.example" },
  "Forward to Address": { txtData: "b@x.example" },
  "Execute Application": { txtApp: "scan.exe" },
  "Add Message Header": { txtHeaderItem: "X-Seen:", txtHeaderValue: "yes" },
  "Add Subject Prefix": { txtPrefix: "[seen] " },
  "Move message to folder...": { txtFolder: "Seen" },
  "Copy message to folder...": { txtFolder: "Copies" },
};

async function AddEveryAction(page, windows) {
  await Top(page).locator("[data-control=cmdAdd]").click();
  await Windows(page, windows + 1);
  const names = await Top(page).locator("[role=option]").allInnerTexts();
  await page.keyboard.press("Escape");
  await Windows(page, windows);
  for (const [n, name] of names.entries()) {
    await Top(page).locator("[data-control=cmdAdd]").click();
    await Windows(page, windows + 1);
    await Top(page).locator("[role=option]").nth(n).dblclick();
    await Until(async () => !(await Top(page).locator("h2").innerText()).startsWith("Select"), name);
    for (const [box, text] of Object.entries(texts[name.trim()] ?? {})) {
      await Top(page).locator(`[data-control=${box}]`).click();
      await page.keyboard.type(text);
    }
    await Top(page).locator("[data-control=cmdOK]").click();
    await Windows(page, windows);
  }
}

const Tasks = (folder, id) => Data(folder).tasks.filter((task) => task.ActionID === id);

test("every action of a server's filter, and their order", { timeout: 120_000 }, async (t) => {
  const { page, local } = await OpenServer(t);
  await page.locator(".node", { hasText: "LOCALHOST" }).locator(".twisty").click();
  await page.locator(".node", { hasText: "Filters" }).click();
  await page.getByRole("toolbar").getByRole("button", { name: "New Filter..." }).click();
  await Windows(page, 1);
  await page.keyboard.type("Every action");
  await page.keyboard.press("Enter");
  await Windows(page, 0);
  await page.locator(".pane-list .row", { hasText: "Every action" }).dblclick();
  await Windows(page, 1);
  await AddEveryAction(page, 1);
  const id = Data(local).filters.find((f) => f.Description === "Every action").CriteriaID;
  const types = ["COPY_TO_BADMAIL", "COPY_TO_QUARANTINE", "DELETE", "NOTIFY_SENDER", "NOTIFY_RECIPIENTS", "NOTIFY_ADDRESS",
    "FORWARD_TO_ADDRESS", "EXECUTE_APPLICATION", "ADD_HEADER", "ADD_HEADER", "STOP_PROCESSING", "ADD_SUBJECT_PREFIX"];
  assert.deepEqual(Tasks(local, id).map((task) => task.TaskType), types);
  assert.deepEqual(Tasks(local, id).slice(5, 10).map((task) => task.Values), [
    "<REFERENCE><ADDRESS>a@x.example</ADDRESS><FILE></FILE></REFERENCE>", "[SMTP:b@x.example]", "scan.exe|", "X-Seen|yes",
    "X-QV-Content|Deliver-To=Junk"]);

  // The last action goes up by a key, and the selection goes with it.
  const list = Top(page).locator("[data-control=lvwActions]");
  const last = list.locator(".row").nth(11);
  await last.click();
  const up = Top(page).locator("[data-control=cmdUp]");
  await Until(() => up.isEnabled(), "the button that moves up");
  for (const [key, place] of [["Alt+ArrowUp", 10], ["Alt+ArrowUp", 9], ["Alt+ArrowDown", 10]]) {
    await page.keyboard.press(key);
    await Until(() => list.locator(".row").nth(place).evaluate((row) =>
      row.classList.contains("selected") && row.innerText.includes("prefix")), `${key} to ${place}`);
    assert.equal(Tasks(local, id)[place].TaskType, "ADD_SUBJECT_PREFIX");
  }
});

test("every action of a mailbox's filter", { timeout: 120_000 }, async (t) => {
  const { page, local } = await OpenServer(t);
  await page.locator(".node", { hasText: "LOCALHOST" }).locator(".twisty").click();
  await page.locator(".node", { hasText: "Postoffices" }).locator(".twisty").click();
  await page.locator(".node", { hasText: "sales" }).click();
  await page.locator(".pane-list .row").first().dblclick();
  await Windows(page, 1);
  await Top(page).locator("[data-control=cmdAdd]").click();
  await Windows(page, 2);
  await page.keyboard.type("Filing");
  await page.keyboard.press("Enter");
  await Windows(page, 1);
  await Top(page).locator("[data-control=lvwFilters] .row", { hasText: "Filing" }).dblclick();
  await Windows(page, 2);
  await AddEveryAction(page, 2);
  const id = Data(local).filters.find((f) => f.Description === "Filing").CriteriaID;
  assert.deepEqual(Tasks(local, id).map((task) => [task.TaskType, task.Values]),
    [["DELETE", ""], ["MOVE", "Seen"], ["COPY", "Copies"], ["JUNK", ""], ["QUARANTINE", ""]]);
});
