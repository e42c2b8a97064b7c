// Spam protection on the program itself: weights, their reset, the thresholds, and what the mail server reads of them.
import assert from "node:assert/strict";
import { existsSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { test } from "node:test";
import { Answer, Bar, Control, FocusOn, Node, Press, Row, Sheet, Shows, Top, Windows, Write } from "./person.mjs";
import { Data, OpenServer, Run } from "./program.mjs";
import { Until } from "./support.mjs";

const Golden = (name) => readFileSync(new URL(`golden/${name}`, import.meta.url), "latin1");
const Weights = (data) => readFileSync(join(data, "config", "SPAMVAL.TAB"), "latin1");
const Script = (data, extension) => join(data, "config", "Filters", "Criteria", `{SPAM_FILTER}${extension}`);

function AssertScripts(data, text) {
  for (const extension of [".QVS", ".QV_"]) assert.equal(readFileSync(Script(data, extension), "latin1"), text);
}

const kReload = String.raw`SOFTWARE\quillvane\quillvane\Agents\MTA\Filters\MTAFILTER`;
const kSpam = String.raw`SOFTWARE\quillvane\quillvane\connectors\sf`;

function Word(data, key, name) {
  const same = (r) => r.Key.toLowerCase() === key.toLowerCase() && r.ValueName === name;
  return Data(data).registry.find(same)?.Data;
}

// What the thresholds page writes: the three options, the filter's status, and the two words of the registry.
function Stored(data) {
  const { options, filters } = Data(data);
  const values = options.filter((o) => o.Scope === 0 && o.Query === "GLOBAL").map((o) => [o.ValueName, o.Value]);
  return {
    ...Object.fromEntries(values),
    status: filters.find((f) => f.FilterEntryID === "{SPAM_FILTER}").Status,
    mailboxes: Word(data, kSpam, "Process Mailbox Spam Filters"),
    reload: Word(data, kReload, "Reload"),
  };
}

// As the mail server does once it has read the filters anew.
function TakeReload(data) {
  const registry = Data(data).registry.map((r) => (r.ValueName === "Reload" ? { ...r, Data: 0 } : r));
  const file = join(data, "taken.json");
  writeFileSync(file, JSON.stringify({ registry }));
  Run("data", "import", "--data", data, file);
}

async function OpenSpam(t, options) {
  const { page, local } = await OpenServer(t, options);
  await Node(page, "LOCALHOST").locator(".twisty").click();
  await Node(page, "Spam Protection").click();
  await page.getByRole("heading", { name: "Spam Protection on LOCALHOST" }).waitFor();
  await Until(async () => (await page.locator(".count").innerText()) === "32 items", "the list of tests");
  return { page, local };
}

async function Adjust(page, row, positive, negative) {
  await row.dblclick();
  await Windows(page, 1);
  assert.equal(await Top(page).locator("h2").innerText(), "Adjust spam weight values");
  await Write(page, "txtPositive", positive);
  await Write(page, "txtNegative", negative);
  await Press(page, "cmdOK", 0);
}

const SetOff = (page) => page.locator(".pane-list strong.words").allInnerTexts();

test("weights are changed, set off in the list and reset", { timeout: 120_000 }, async (t) => {
  const { page, local } = await OpenSpam(t);
  const fail = Row(page, "not allowed to send for the domain");
  const url = Row(page, "leads to a listed host");
  const date = Row(page, "The message has no date");
  const words = "SPF: the sending host is not allowed to send for the domain";
  await Shows(fail, [words, "35", "0"]);
  assert.deepEqual(await SetOff(page), []);

  // The first box opens with its text selected, takes digits alone, and Tab selects the other one's text.
  await fail.dblclick();
  await Windows(page, 1);
  await FocusOn(page, "txtPositive");
  await page.keyboard.type("-4.0x");
  await page.keyboard.press("Tab");
  await FocusOn(page, "txtNegative");
  const selected = () => Control(page, "txtNegative").evaluate((box) => box.selectionEnd - box.selectionStart);
  await Until(async () => (await selected()) === 1, "the selected text");
  await page.keyboard.type("3");
  assert.equal(await Control(page, "txtPositive").inputValue(), "40");
  await Press(page, "cmdOK", 0);
  await Shows(fail, [words, "40", "3"]);
  assert.deepEqual(await SetOff(page), ["40", "3"]);

  await Adjust(page, url, "1000", "2");
  await Shows(url, ["A link in the body leads to a listed host", "Always marked as spam", "2"]);
  assert.deepEqual(await SetOff(page), ["40", "3", "Always marked as spam"]);
  assert.equal(Weights(local), Golden("spam_weights.tab"));
  AssertScripts(local, Golden("spam_weights.qvs"));

  // A weight that marks always can't be changed, on neither side; cancel changes nothing.
  await url.dblclick();
  await Answer(page, "Warning", "This spam weight cannot be changed.");
  await date.dblclick();
  await Windows(page, 1);
  await Write(page, "txtPositive", "99");
  await Press(page, "cmdCancel", 0);
  assert.equal(Weights(local), Golden("spam_weights.tab"));

  // Without a positive weight the list shows the defaults; the files hold what was written.
  await Adjust(page, date, "", "7");
  await Shows(date, ["The message has no date", "8", "0"]);
  assert.match(Weights(local), /\r\n\[DATE_MISSING\]\t\t7\r\n/);
  const line = 'If SpamTest("DATE_MISSING") Then Score = Score +  Else Score = Score - 7\r\n';
  assert.ok(readFileSync(Script(local, ".QVS"), "latin1").includes(line));

  // The reset asks before it acts.
  const question = "Do you wish to reset all values to their default and lose your changes?";
  await fail.click();
  await Bar(page, "Reset all values to default").click();
  await Answer(page, "Reset values", question, "No");
  assert.deepEqual(await SetOff(page), ["40", "3", "Always marked as spam"]);
  await fail.click({ button: "right" });
  await page.getByRole("menuitem", { name: "Reset all values to default" }).click();
  await Answer(page, "Reset values", question, "Yes");
  await Shows(fail, [words, "35", "0"]);
  await Shows(url, ["A link in the body leads to a listed host", "40", "2"]);
  assert.deepEqual(await SetOff(page), []);
  assert.equal(Weights(local), Golden("spam_defaults.tab"));
  AssertScripts(local, Golden("spam_defaults.qvs"));

  // None of it is told to the mail server.
  assert.equal(Word(local, kReload, "Reload"), undefined);
});

async function OpenThresholds(page) {
  await Node(page, "Spam Protection").click();
  await Until(() => Bar(page, "Properties").isEnabled(), "the verb");
  await Bar(page, "Properties").click();
  await Windows(page, 1);
}

async function Apply(page) {
  await Sheet(page, "apply").click();
  await Until(() => Sheet(page, "apply").isDisabled(), "that it is applied");
}

async function Boxes(page, values) {
  for (const [n, name] of ["txtLow", "txtMedium", "txtHigh"].entries()) {
    await Until(async () => (await Control(page, name).inputValue()) === values[n], `${values[n]} in ${name}`);
  }
}

test("thresholds that are none are refused, each in its own words", { timeout: 60_000 }, async (t) => {
  const { page, local } = await OpenSpam(t);
  const before = Run("data", "export", "--data", local);
  await OpenThresholds(page);
  await Boxes(page, ["40", "60", "85"]);
  const meaning = await Control(page, "txtMedium").getAttribute("aria-describedby");
  assert.equal(await page.locator(`#${meaning}`).innerText(), "Medium from here on");
  assert.ok(await Sheet(page, "apply").isDisabled());
  const wrong = [
    ["txtLow", "", "You need to enter a low threshold."],
    ["txtLow", "0", "You need to enter a low threshold greater than zero."],
    ["txtLow", "101", "You need to enter a low threshold less than 100."],
    ["txtMedium", "", "You need to enter a medium threshold."],
    ["txtMedium", "0", "You need to enter a medium threshold greater than zero."],
    ["txtMedium", "101", "You need to enter a medium threshold less than 100."],
    ["txtHigh", "", "You need to enter a high threshold."],
    ["txtHigh", "0", "You need to enter a high threshold greater than zero."],
    ["txtHigh", "101", "You need to enter a high threshold less than 100."],
  ];
  for (const [name, text, message] of wrong) {
    await Write(page, name, text);
    await Sheet(page, text === "0" ? "ok" : "apply").click();
    await Answer(page, "Warning!", message);
    await FocusOn(page, name);
    assert.ok(await Sheet(page, "apply").isEnabled());
    await Write(page, name, "50");
  }
  await Sheet(page, "cancel").click();
  await Windows(page, 0);
  assert.equal(Run("data", "export", "--data", local), before);
  for (const extension of [".QVS", ".QV_"]) assert.equal(existsSync(Script(local, extension)), false);
});

test("thresholds are applied and told to the mail server", { timeout: 60_000 }, async (t) => {
  const { page, local } = await OpenSpam(t);
  await OpenThresholds(page);
  await Write(page, "txtLow", "30");
  await Write(page, "txtMedium", "55");
  await Write(page, "txtHigh", "100");
  await Apply(page);
  assert.deepEqual(Stored(local), {
    SpamThresholdLow: "30", SpamThresholdMedium: "55", SpamThresholdHigh: "100", status: 1, mailboxes: 1, reload: 1,
  });
  assert.equal(Weights(local), Golden("spam_defaults.tab"));
  AssertScripts(local, Golden("spam_thresholds.qvs"));
  TakeReload(local);

  // Switched off, an empty box is stored, and the script goes by the default.
  await Control(page, "chkEnabled").click();
  await Write(page, "txtLow", "");
  await Sheet(page, "ok").click();
  await Windows(page, 0);
  assert.deepEqual(Stored(local), {
    SpamThresholdLow: "", SpamThresholdMedium: "55", SpamThresholdHigh: "100", status: 0, mailboxes: 0, reload: 1,
  });
  AssertScripts(local, Golden("spam_thresholds.qvs").replace("Score >= 30 Then", "Score >= 40 Then"));
  TakeReload(local);

  await OpenThresholds(page);
  await Boxes(page, ["40", "55", "100"]);
  assert.equal(await Control(page, "chkEnabled").isChecked(), false);
  await Sheet(page, "ok").click();
  await Windows(page, 0);
  assert.equal(Stored(local).reload, 0);
});

test("work that takes longer shows that it goes on", { timeout: 60_000 }, async (t) => {
  const held = [];
  let holding = false;
  const { page, local } = await OpenSpam(t, {
    before: (p) => p.routeWebSocket(/\/console$/, (socket) => {
      const server = socket.connectToServer();
      server.onMessage((text) => (holding ? held.push(() => socket.send(text)) : socket.send(text)));
    }),
  });
  const shell = page.locator(".shell");
  await OpenThresholds(page);
  await Write(page, "txtLow", "25");
  await Until(() => Sheet(page, "apply").isEnabled(), "a change to apply");
  holding = true;
  await Sheet(page, "apply").click();
  await page.locator("#sheet .progress").waitFor({ state: "attached" });
  assert.equal(await shell.getAttribute("aria-busy"), "true");
  assert.equal(await page.locator(".working").innerText(), "Working…");
  assert.equal(await page.locator(".progress").count(), 1);
  await Until(() => Stored(local).SpamThresholdLow === "25", "the end of the work");
  holding = false;
  for (const release of held) release();
  await page.locator(".progress").waitFor({ state: "detached" });
  assert.equal(await shell.getAttribute("aria-busy"), "false");
  assert.equal(await page.locator(".working").innerText(), "");
  assert.ok(await Sheet(page, "apply").isDisabled());
});
