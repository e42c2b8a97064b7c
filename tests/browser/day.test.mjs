// A full day's work on the program itself: filters at each scope, spam protection, and every row that it leaves behind.
import assert from "node:assert/strict";
import { mkdirSync, readdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { test } from "node:test";
import { Answer, Bar, Control, Node, Press, Row, Sheet, Shows, Top, Windows, Write } from "./person.mjs";
import { Data, OpenServer, Run } from "./program.mjs";
import { Until } from "./support.mjs";

const kAgent = String.raw`SOFTWARE\quillvane\quillvane\agents\mta\filters`;

// What the mail server's installation leaves: a postoffice with a mailbox, the spam filter switched off, spam tests.
function FillMorning(data) {
  Run("init", "--data", data);
  Run("postoffice", "add", "--data", data, "north.example", "--account", "North");
  Run("mailbox", "add", "--data", data, "north.example", "ada");
  const { registry } = Data(data);
  const word = (key, name) => ({ Key: key, ValueName: name, Kind: "word", Data: 1 });
  const rows = {
    filters: [{ FilterEntryID: "{SPAM_FILTER}", CriteriaID: "CRT{SPAM_FILTER}", Description: "Spam protection" }],
    registry: [...registry, word(kAgent, "Enabled"), word(`${kAgent}\\MTAFILTER`, "Status"),
      word(`${kAgent}\\MTAFILTER`, "Scripting Status")],
  };
  const put = (path, text) => writeFileSync(join(data, "config", path), text, "latin1");
  writeFileSync(join(data, "morning.json"), JSON.stringify(rows));
  Run("data", "import", "--data", data, join(data, "morning.json"));
  mkdirSync(join(data, "config", "Filters", "patterns"), { recursive: true });
  put("Filters/patterns/QVFILTER-Rivals.TXT", "rival.example\r\n");
  put("Filters/templates/QVFILTER-Held.TXT", "A message was held.\r\n");
  put("Filters/templates/{SPAM_FILTER}.QVS",
    "Score = Score + [LISTED_POS] - [LISTED_NEG]\r\nIf Score > [QV_LOWSPAM] Then FilterResult = 1\r\n" +
    "If Score > [QV_MEDSPAM] Then FilterResult = 2\r\nIf Score > [QV_HISPAM] Then FilterResult = 3");
  put("SPAMVAL.DEF", "[LISTED]\tThe sending host is listed\t30\t2\r\n[FORGED]\tThe sender is forged\t50\t0");
}

// The dialog of a criterion: its tick, what `act` does in it, OK.
async function Criterion(page, text, act = async () => undefined) {
  const windows = await page.locator("dialog[open]").count();
  const row = Control(page, "lvwCriteria").locator(".row", { hasText: text });
  await row.dblclick();
  await Windows(page, windows + 1);
  await Control(page, "chkStatus").click();
  await act();
  await Press(page, "cmdOK", windows);
  await Shows(row, ["Enabled", text]);
}

// The dialog of a new action, with a text for each box that it asks for.
async function Action(page, name, texts = {}) {
  const windows = await page.locator("dialog[open]").count();
  await Press(page, "cmdAdd", windows + 1);
  await Top(page).getByRole("option", { name, exact: true }).dblclick();
  await Until(async () => (await Top(page).locator("h2").innerText()) !== "Select Action", name);
  for (const [box, text] of Object.entries(texts)) {
    if (typeof text === "string") await Write(page, box, text);
    else await text(Control(page, box));
  }
  await Press(page, "cmdOK", windows);
}

async function NewFilter(page, button, name, listed) {
  const windows = await page.locator("dialog[open]").count();
  await button.click();
  await Windows(page, windows + 1);
  await page.keyboard.type(name);
  await page.keyboard.press("Enter");
  await Windows(page, windows);
  await listed.locator(".row", { hasText: name }).waitFor();
}

const SystemFilters = async (page, expected) => {
  const rows = page.locator(".pane-list .row");
  const shown = async () => (await rows.locator(".cell:first-child").allInnerTexts()).map((text) => text.trim()).join();
  await Until(async () => (await shown()) === expected.join(), `the filters ${expected.join(", ")}`);
};

async function Manage(page, row) {
  const windows = await page.locator("dialog[open]").count();
  await row.dblclick();
  await Windows(page, windows + 1);
  assert.equal(await Top(page).locator("h2").innerText(), "Filter Management");
}

async function BlockedWords(page) {
  await Manage(page, Row(page, "Blocked words"));
  await Criterion(page, "Where the Subject header line contains specific words", async () => {
    await Control(page, "optUseWordList").click();
    await Write(page, "txtWords", "casino, lottery ,cheap watches");
    await Control(page, "CmdAdd").click();
    await Until(async () => (await Control(page, "lstWords").locator(".row").count()) === 3, "the words");
  });
  await Criterion(page, "Where the From header line contains specific words", async () => {
    await Control(page, "optUseExternal").click();
  });
  await Criterion(page, "Where the message has over a certain spam probability", () => Write(page, "txtProb", "97.5"));
  await Criterion(page, "Where the originators IP address matches", () => Write(page, "txtIP", "192.0.2.*"));
  await Criterion(page, "Where the message is associated with this connector", async () => {
    await Control(page, "cboConnector").selectOption("SMTP connector");
  });
  await Action(page, "Notify Sender", { txtData: "Blocked words" });
  await Action(page, "Notify Address", { txtAddress: "post@north.example", optUseTemplate: (box) => box.click() });
  await Action(page, "Add Subject Prefix", { txtPrefix: "[held] " });
  await Action(page, "Copy to Quarantine");

  // The last action goes to the top; the prefix is switched off.
  const rows = Control(page, "lvwActions").locator(".row");
  await rows.nth(3).click();
  for (let at = 2; at >= 0; at--) {
    await Until(() => Control(page, "cmdUp").isEnabled(), "the way up");
    await Control(page, "cmdUp").click();
    await Until(() => rows.nth(at).evaluate((row) => row.classList.contains("selected")), `place ${at}`);
  }
  const prefix = rows.filter({ hasText: "Add a prefix" }).getByRole("checkbox");
  await prefix.click();
  await Until(async () => (await prefix.getAttribute("aria-checked")) === "false", "the cleared tick");
  await Press(page, "cmdClose", 0);
}

async function LargeAtNight(page) {
  await Manage(page, Row(page, "Large at night"));
  await Control(page, "optAdvancedScripting").click();
  await Until(() => Control(page, "cmdAdvancedScripting").isEnabled(), "the script's button");
  await Press(page, "cmdAdvancedScripting", 2);
  await Top(page).locator(".cm-content").click();
  await page.keyboard.insertText('If CriteriaMet([QV_SIZE],"9000000") Then\nFilterResult = 1\nEnd If');
  await Press(page, "cmdExit", 1);
  await Action(page, "Stop Processing Filters");
  await Press(page, "cmdClose", 0);
}

async function System(page) {
  await Node(page, "LOCALHOST").locator(".twisty").click();
  await Node(page, "Filters").click();
  await page.getByRole("heading", { name: "Filters on LOCALHOST" }).waitFor();
  const list = page.locator(".pane-list");
  for (const name of ["Blocked words", "Large at night", "Mistake", "Newsletters"]) {
    await NewFilter(page, Bar(page, "New Filter..."), name, list);
  }
  await BlockedWords(page);
  await LargeAtNight(page);

  await Row(page, "Newsletters").click();
  await Bar(page, "Disable").click();
  await Shows(Row(page, "Newsletters"), ["Newsletters", "Disabled"]);
  await Row(page, "Newsletters").click();
  await Bar(page, "Rename...").click();
  await Windows(page, 1);
  await Write(page, "txtName", "Old letters");
  await Press(page, "cmdOK", 0);
  await Shows(Row(page, "Old letters"), ["Old letters", "Disabled"]);

  await Row(page, "Mistake").click();
  await page.keyboard.press("Delete");
  await Answer(page, "Delete", "Are you sure you wish to delete the filter 'Mistake'?", "Yes");
  await SystemFilters(page, ["Blocked words", "Large at night", "Old letters"]);

  // The order shows the spam filter too.
  await Bar(page, "Order Filters...").click();
  await Windows(page, 1);
  const rows = Control(page, "lvwFilters").locator(".row");
  assert.deepEqual((await rows.allInnerTexts()).map((text) => text.split("\n")[0].trim()),
    ["Spam protection", "Blocked words", "Large at night", "Old letters"]);
  await rows.nth(3).click();
  for (let at = 2; at >= 1; at--) {
    await Until(() => Control(page, "cmdUp").isEnabled(), "the way up");
    await Control(page, "cmdUp").click();
    await Until(() => rows.nth(at).evaluate((row) => row.innerText.includes("Old letters")), `place ${at}`);
  }
  await Press(page, "cmdCancel", 0);
  await SystemFilters(page, ["Old letters", "Blocked words", "Large at night"]);
}

async function Postoffice(page) {
  await Node(page, "Postoffices").locator(".twisty").click();
  await Node(page, "north.example").click();
  await Until(() => Bar(page, "Properties").isEnabled(), "the verb");
  await Bar(page, "Properties").click();
  await Windows(page, 1);
  const list = Control(page, "lvwFilters");
  await NewFilter(page, Control(page, "cmdAdd"), "Large mail", list);
  await NewFilter(page, Control(page, "cmdAdd"), "Everything", list);
  await Manage(page, list.locator(".row", { hasText: "Large mail" }));
  assert.equal(await Control(page, "lvwCriteria").locator(".rows").getAttribute("aria-rowcount"), "18");
  await Criterion(page, "Where the message size is more than limit", () => Write(page, "txtSize", "5000000"));
  await Criterion(page, "Where the message has an attachment");
  await Action(page, "Forward to Address", { txtData: "ada@north.example" });
  await Action(page, "Add Message Header", { txtHeaderItem: "X-Large:", txtHeaderValue: "yes" });
  await Press(page, "cmdClose", 1);
  await Manage(page, list.locator(".row", { hasText: "Everything" }));
  await Criterion(page, "All Messages - Process this filter actions for all messages");
  await Action(page, "Mark as spam");
  await Press(page, "cmdClose", 1);
  await list.locator(".row", { hasText: "Everything" }).click();
  await Until(() => Control(page, "cmdUp").isEnabled(), "the way up");
  await Control(page, "cmdUp").click();
  await Shows(list.locator(".row").nth(0), ["Everything", "Enabled"]);
  await Control(page, "cmdDisable").click();
  await Shows(list.locator(".row").nth(0), ["Everything", "Disabled"]);
  await Control(page, "chkEnabled").click();
  await Sheet(page, "ok").click();
  await Windows(page, 0);
}

async function Mailbox(page) {
  await Row(page, "ada").dblclick();
  await Windows(page, 1);
  const list = Control(page, "lvwFilters");
  await NewFilter(page, Control(page, "cmdAdd"), "Urgent", list);
  await Manage(page, list.locator(".row", { hasText: "Urgent" }));
  await Criterion(page, "Where the message is marked as priority", async () => {
    await Control(page, "cboImportance").selectOption("High");
  });
  await Criterion(page, "Where the SPF tests return results matching", async () => {
    await Control(page, "cboSPF").selectOption("Soft Fail");
  });
  await Action(page, "Move message to folder...", { txtFolder: "Inbox/Urgent" });
  await Action(page, "Move message to Junk E-Mail folder");
  await Press(page, "cmdClose", 1);
  await Control(page, "chkEnabled").click();
  await Sheet(page, "apply").click();
  await Until(() => Sheet(page, "apply").isDisabled(), "that it is applied");
  await Sheet(page, "cancel").click();
  await Windows(page, 0);
}

async function Spam(page) {
  await Node(page, "Spam Protection").click();
  await Row(page, "The sending host is listed").dblclick();
  await Windows(page, 1);
  await Write(page, "txtPositive", "45");
  await Press(page, "cmdOK", 0);
  await Shows(Row(page, "The sending host is listed"), ["The sending host is listed", "45", "2"]);
  await Node(page, "Spam Protection").click();
  await Until(() => Bar(page, "Properties").isEnabled(), "the verb");
  await Bar(page, "Properties").click();
  await Windows(page, 1);
  await Control(page, "chkEnabled").click();
  await Write(page, "txtHigh", "95");
  await Sheet(page, "ok").click();
  await Windows(page, 0);
}

// Generated identifiers by the order in which they turn up.
function Numbered(text) {
  const seen = new Map();
  return text.replace(/(?<="(?:FLT|CRT)?)[0-9A-F]{24,32}(?=")/g, (id) => {
    if (!seen.has(id)) seen.set(id, `#${seen.size + 1}`);
    return seen.get(id);
  });
}

test("a full day's work", { timeout: 240_000 }, async (t) => {
  const { page, local } = await OpenServer(t, { fill: FillMorning });
  await System(page);
  await Postoffice(page);
  await Mailbox(page);
  await Spam(page);

  const rows = Run("data", "export", "--data", local);
  const config = join(local, "config");
  const golden = readFileSync(new URL("golden/day.json", import.meta.url), "utf8");
  assert.deepEqual(Numbered(rows).replace(config, "CONFIG").split("\n"), golden.split("\n"));

  const file = (path) => readFileSync(join(config, path), "latin1");
  const script = JSON.parse(rows).filters.find((f) => f.Description === "Large at night").CriteriaID;
  assert.deepEqual(readdirSync(join(config, "Filters", "Criteria")).sort(),
    [`${script}.QVS`, "{SPAM_FILTER}.QVS", "{SPAM_FILTER}.QV_"]);
  assert.equal(file(`Filters/Criteria/${script}.QVS`),
    'If CriteriaMet([QV_SIZE],"9000000") Then\r\nFilterResult = 1\r\nEnd If');
  assert.equal(file("SPAMVAL.TAB"), "[LISTED]\t45\t2\r\n[FORGED]\t50\t0");
  for (const extension of ["QV_", "QVS"]) {
    assert.equal(file(`Filters/Criteria/{SPAM_FILTER}.${extension}`),
      "Score = Score + 45 - 2\r\nIf Score > 40 Then FilterResult = 1\r\n" +
      "If Score > 60 Then FilterResult = 2\r\nIf Score > 95 Then FilterResult = 3");
  }
});
