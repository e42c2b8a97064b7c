// Typing, pasting and composing in text boxes, on a slow line too: nothing is lost and nothing comes twice.
import assert from "node:assert/strict";
import { test } from "node:test";
import { Find, Form } from "./model.mjs";
import { Open, Settled, Until } from "./support.mjs";
import * as s from "./states.mjs";

const kLag = 150;

function Named(text, more = {}) {
  return s.State({ dialogs: [s.NameForm({}, { text, ...more })] });
}

async function OpenName(t, text = "", delay = 0, more = {}) {
  const opened = await Open(t, { state: Named(text, more), react: Form, delay });
  const box = opened.page.locator("input.text");
  await box.waitFor();
  return { ...opened, box, text: () => Find(opened.console.state, "txtName").text };
}

test("fast typing at 150 ms of lag", async (t) => {
  const { page, console: c, box, text } = await OpenName(t, "", kLag);
  await box.focus();
  await page.keyboard.type("The quick brown fox", { delay: 15 });
  assert.equal(await box.inputValue(), "The quick brown fox");
  await Settled(page, c, 2 * kLag);
  assert.equal(text(), "The quick brown fox");
  assert.equal(await box.inputValue(), "The quick brown fox");
  assert.ok(c.told.every((event) => event.do === "type" || event.do === "focus"), JSON.stringify(c.told));
});

test("a caret that is moved in the middle of fast typing", async (t) => {
  const { page, console: c, box, text } = await OpenName(t, "", kLag);
  await box.focus();
  await page.keyboard.type("abcdef", { delay: 10 });
  await page.keyboard.press("ArrowLeft");
  await page.keyboard.press("ArrowLeft");
  await page.keyboard.press("Backspace");
  await page.keyboard.type("XY", { delay: 10 });
  await page.keyboard.press("Home");
  await page.keyboard.type("0");
  await page.keyboard.press("Delete");
  assert.equal(await box.inputValue(), "0bcXYef");
  await Settled(page, c, 2 * kLag);
  assert.equal(text(), "0bcXYef");
  assert.equal(await box.inputValue(), "0bcXYef");
  assert.equal(await box.evaluate((e) => e.selectionStart), 1);
});

test("a caret goes out before the key that follows it, and only then", async (t) => {
  const { page, console: c, box } = await OpenName(t, "hello");
  await box.focus();
  await page.keyboard.press("End");
  await page.keyboard.press("ArrowLeft");
  await page.keyboard.type("p!");
  await Until(() => c.told.length >= 3);
  assert.deepEqual(c.told, [
    { do: "caret", control: "txtName", start: 4, length: 0 },
    { do: "type", control: "txtName", text: "p" },
    { do: "type", control: "txtName", text: "!" },
  ]);
});

test("a box that is reached by Tab takes the selection that the console says", async (t) => {
  const { page, console: c, box, text } = await OpenName(t, "old name", kLag);
  await page.locator("[data-control=chkStatus]").focus();
  await page.keyboard.press("Shift+Tab");
  await page.keyboard.type("new", { delay: 20 });
  await Settled(page, c, 2 * kLag);
  assert.deepEqual(c.told[0], { do: "focus", control: "txtName", tab: true });
  assert.equal(text(), "new");
  assert.equal(await box.inputValue(), "new");
});

test("a box that is reached by Tab keeps its caret where the console does not select", async (t) => {
  const { page, console: c } = await Open(t, {
    state: Named("old name", { selStart: 3 }),
    react: (event, state) => (event.do === "focus" ? undefined : Form(event, state)),
  });
  await page.locator("[data-control=chkStatus]").focus();
  await page.keyboard.press("Shift+Tab");
  await page.waitForTimeout(60);
  const range = await page.locator("input.text").evaluate((e) => [e.selectionStart, e.selectionEnd]);
  assert.deepEqual(range, [3, 3]);
  await page.keyboard.type("er");
  await Until(() => Find(c.state, "txtName").text === "older name");
});

test("paste, cut and drop go out as the whole text", async (t) => {
  const { page, console: c, box, text } = await OpenName(t, "one ");
  await box.focus();
  await page.keyboard.press("Home");
  for (let n = 0; n < 3; n++) await page.keyboard.press("Shift+ArrowRight");
  await page.keyboard.press("Control+x");
  await page.keyboard.press("End");
  await page.keyboard.press("Control+v");
  await page.keyboard.press("Control+v");
  await Until(() => text().endsWith("oneone"));
  assert.equal(await box.inputValue(), text());
  assert.deepEqual(c.told.slice(-3), [
    { do: "set", control: "txtName", text: " " },
    { do: "set", control: "txtName", text: " one" },
    { do: "set", control: "txtName", text: " oneone" },
  ]);
});

test("an input method composes undisturbed and its text goes out whole", async (t) => {
  const { page, console: c, box, text, context } = await OpenName(t, "", kLag);
  await box.focus();
  await page.keyboard.type("a");
  const cdp = await context.newCDPSession(page);
  for (const part of ["n", "ni", "にほ"]) {
    await cdp.send("Input.imeSetComposition", { text: part, selectionStart: part.length, selectionEnd: part.length });
    await page.waitForTimeout(90);
  }
  assert.equal(await box.inputValue(), "aにほ");
  await cdp.send("Input.insertText", { text: "日本" });
  await Settled(page, c, 2 * kLag);
  assert.equal(text(), "a日本");
  assert.equal(await box.inputValue(), "a日本");
  await page.keyboard.type("!");
  await Until(() => text() === "a日本!");
});

test("the key filter stops other keys at once, a paste passes", async (t) => {
  const { page, console: c, box, text } = await OpenName(t, "", 0, { keys: "0123456789" });
  await box.focus();
  await page.keyboard.type("1a2b");
  assert.equal(await box.inputValue(), "12");
  await page.keyboard.press("Backspace");
  await Until(() => text() === "1");
  await page.keyboard.insertText("ab");
  assert.ok(c.told.every((event) => event.text !== "a"));
});

test("the maximum length holds", async (t) => {
  const { page, box, text } = await OpenName(t, "", 0, { maxLength: 4 });
  await box.focus();
  await page.keyboard.type("123456");
  assert.equal(await box.inputValue(), "1234");
  await Until(() => text() === "1234");
});

test("positions count characters of the text as it is", async (t) => {
  const state = s.State({ dialogs: [s.WordsForm()] });
  Find(state, "txtNote").text = "😀😀 one\r\ntwo\nthree";
  const { page, console: c } = await Open(t, { state, react: Form });
  const note = page.locator("textarea");
  await note.focus();
  // The end of the line "two".
  await note.evaluate((e) => e.setSelectionRange(12, 12));
  await page.keyboard.type("!");
  await page.keyboard.press("Enter");
  await page.keyboard.press("Backspace");
  await page.keyboard.press("ArrowUp");
  await page.keyboard.press("Home");
  await page.keyboard.press("Delete");
  await Until(() => Find(c.state, "txtNote").text === "😀 one\r\ntwo!\nthree");
  assert.deepEqual(c.told.slice(0, 2), [
    { do: "caret", control: "txtNote", start: 11, length: 0 },
    { do: "type", control: "txtNote", text: "!" },
  ]);
  assert.equal(await note.inputValue(), "😀 one\ntwo!\nthree");
});

test("the caret is told before a command that may act at it", async (t) => {
  const { page, console: c, box } = await OpenName(t, "hello");
  await box.focus();
  await page.keyboard.press("End");
  await page.keyboard.press("Shift+ArrowLeft");
  await page.keyboard.press("Enter");
  await page.keyboard.press("Home");
  await page.locator("[data-control=chkStatus]").click();
  await Until(() => c.told.length >= 4);
  assert.deepEqual(c.told, [
    { do: "caret", control: "txtName", start: 4, length: 1 },
    { do: "click", control: "cmdOK" },
    { do: "caret", control: "txtName", start: 0, length: 0 },
    { do: "click", control: "chkStatus" },
  ]);
});

test("a box that the console changes shows it", async (t) => {
  const { page, console: c, box } = await OpenName(t, "start");
  c.react = (event, state) => {
    Form(event, state);
    if (event.do === "click") Find(state, "txtName").text = "set by the console";
  };
  await page.locator("[data-control=chkStatus]").click();
  await Until(async () => (await box.inputValue()) === "set by the console");
});

test("text that the console refuses goes back", async (t) => {
  const { page, console: c, box } = await OpenName(t, "kept");
  c.react = (event) => (event.do === "type" ? { error: "no" } : undefined);
  await box.focus();
  await page.keyboard.type("x");
  await Until(async () => (await box.inputValue()) === "kept");
  await page.getByText("That was not possible: no").waitFor();
});
