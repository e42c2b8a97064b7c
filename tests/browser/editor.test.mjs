// The code editor: it comes when it is needed, keeps step with the console on a slow line, and leaves the dialog its keys.
import assert from "node:assert/strict";
import { test } from "node:test";
import { Find, Form } from "./model.mjs";
import { Open, Settled, Until, address } from "./support.mjs";
import * as s from "./states.mjs";

const kFault =
  "Line: 3, Column: 11. Description: Expected ')'.\r\nError Number: 1006. Microsoft VBScript compilation error.\r\n" +
  "Error Text: If Met Then\r\nError: 1006 Expected ')'";

async function OpenScript(t, { text, react = Form, delay = 0, before, ...options } = {}) {
  const state = s.State();
  const opened = await Open(t, { state, react, delay, ...options });
  const { page, console: c } = opened;
  await before?.(page);
  Object.assign(c.state, { dialogs: [s.ScriptForm({}, text === undefined ? {} : { text })] });
  c.Send(c.socket, { state: c.state });
  const code = page.locator(".cm-content");
  if (!before) await code.waitFor();
  return { ...opened, code, text: () => Find(c.state, "txtCondition").text };
}

const Lines = (page) => page.locator(".cm-line").allTextContents();
const Told = (c, name) => c.told.filter((event) => event.do === name);

test("the editor is fetched when code is shown, and lives with the page's policy", async (t) => {
  const asked = [];
  const { page, console: c } = await Open(t, { react: Form });
  page.on("request", (request) => asked.push(request.url().replace(address, "/")));
  await page.waitForTimeout(100);
  assert.deepEqual(asked, []);
  c.state.dialogs = [s.ScriptForm()];
  c.Send(c.socket, { state: c.state });
  await page.locator(".cm-content").waitFor();
  assert.deepEqual(asked, ["/editor.js"]);
  assert.deepEqual(await Lines(page), s.kScript.split("\r\n"));
  assert.equal(await page.evaluate(() => document.querySelectorAll("style").length), 0);
  const styled = await page.locator("qv-code").evaluate((e) => [
    e.shadowRoot.adoptedStyleSheets.length > 0,
    e.shadowRoot.querySelectorAll("style").length,
    getComputedStyle(e.shadowRoot.querySelector(".cm-scroller")).display,
  ]);
  assert.deepEqual(styled, [true, 0, "flex"]);
  const numbers = await page.locator(".cm-lineNumbers .cm-gutterElement:visible").allTextContents();
  assert.deepEqual(numbers, ["1", "2", "3", "4", "5", "6", "7"]);
  const colour = (text) => page.locator(".cm-line span", { hasText: text }).first().evaluate((e) => getComputedStyle(e).color);
  assert.equal(await colour("Dim"), "rgb(11, 80, 160)");
  assert.equal(await colour("[QV_SUBJECT]"), "rgb(122, 46, 156)");
  assert.equal(await colour("press office"), "rgb(60, 110, 47)");
});

test("the colours follow the dark mode", async (t) => {
  const { page } = await OpenScript(t, { colorScheme: "dark" });
  const colour = await page.locator(".cm-line span", { hasText: "Dim" }).evaluate((e) => getComputedStyle(e).color);
  assert.equal(colour, "rgb(124, 184, 247)");
});

test("typing at 150 ms of lag, and the text goes out when it rests", async (t) => {
  const { page, console: c, code, text } = await OpenScript(t, { text: "a\r\nb", delay: 150 });
  await code.click();
  await page.keyboard.press("Control+End");
  await page.keyboard.type("The quick brown fox\njumps", { delay: 15 });
  await page.waitForTimeout(450);
  await page.keyboard.type(" over", { delay: 60 });
  await Settled(page, c, 700);
  assert.equal(text(), "a\r\nbThe quick brown fox\r\njumps over");
  assert.deepEqual(await Lines(page), ["a", "bThe quick brown fox", "jumps over"]);
  const sets = Told(c, "set").map((event) => event.text);
  assert.equal(sets.at(-1), "a\r\nbThe quick brown fox\r\njumps over");
  assert.ok(sets.length < 8, `${sets.length} texts`);
});

test("a command finds the text and the caret told, in characters of the text as it is", async (t) => {
  const { page, console: c, code } = await OpenScript(t, { text: "😀\r\none\ntwo\r\nthree" });
  await code.click();
  await page.keyboard.press("Control+Home");
  await page.keyboard.press("ArrowDown");
  await page.keyboard.press("ArrowDown");
  await page.keyboard.press("End");
  await page.keyboard.type("!");
  await page.keyboard.press("Shift+ArrowLeft");
  await page.locator("[data-control=cmdCheck]").click();
  await Until(() => Told(c, "click").length === 1);
  assert.deepEqual(c.told.slice(-3), [
    { do: "set", control: "txtCondition", text: "😀\r\none\ntwo!\r\nthree" },
    { do: "caret", control: "txtCondition", start: 10, length: 1 },
    { do: "click", control: "cmdCheck" },
  ]);
});

test("a token that the console puts in at the caret, and its undoing", async (t) => {
  const react = (event, state) => {
    Form(event, state);
    if (event.do !== "doubleClick") return;
    const box = Find(state, "txtCondition");
    const chars = [...box.text];
    chars.splice(box.selStart, 0, "[QV_BODY]\r\n");
    [box.text, box.selStart, box.selLength] = [chars.join(""), 0, 0];
  };
  const { page, console: c, code, text } = await OpenScript(t, { text: "ab\r\ncd\r\n", react, delay: 150 });
  await code.click();
  await page.keyboard.press("Control+Home");
  await page.keyboard.press("ArrowDown");
  await page.keyboard.type("x", { delay: 5 });
  await page.getByRole("option", { name: "[QV_BODY]" }).dblclick();
  await Until(() => text() === "ab\r\nx[QV_BODY]\r\ncd\r\n");
  await Until(async () => (await Lines(page)).length === 4);
  assert.deepEqual(await Lines(page), ["ab", "x[QV_BODY]", "cd", ""]);
  // The caret is where the console has put it.
  await page.keyboard.press("Alt+s");
  await page.keyboard.type("0");
  assert.deepEqual(await Lines(page), ["0ab", "x[QV_BODY]", "cd", ""]);
  await page.keyboard.press("Control+z");
  await page.keyboard.press("Control+z");
  await Settled(page, c, 700);
  assert.equal(text(), "ab\r\nxcd\r\n");
});

test("what is typed while a command is under way is kept", async (t) => {
  const react = (event, state) => {
    Form(event, state);
    if (event.do === "click") state.message = s.Message("Script Enumeration Successful", { title: "Scripting" });
    if (event.do === "answer") state.message = null;
  };
  const { page, console: c, code, text } = await OpenScript(t, { text: "", react, delay: 600 });
  await code.click();
  await page.keyboard.type("one");
  await page.keyboard.press("Alt+k");
  await code.click();
  await page.keyboard.type(" two");
  // A second command, with the text before it, that the box in front makes void.
  await page.keyboard.press("Alt+k");
  await page.locator("#message").waitFor();
  await page.waitForTimeout(700);
  assert.deepEqual(Told(c, "set").map((event) => event.text), ["one"]);
  await page.getByRole("button", { name: "OK" }).click();
  await page.locator("#message").waitFor({ state: "detached" });
  await Settled(page, c, 700);
  assert.equal(text(), "one two");
  assert.deepEqual(await Lines(page), ["one two"]);
  assert.equal(Told(c, "click").length, 1);
});

test("a new line is indented as the one before it", async (t) => {
  const { page, code } = await OpenScript(t, { text: "" });
  await code.click();
  await page.keyboard.type("If Met Then FilterResult = 1\nDo\nLoop\n    x = 1\n");
  assert.deepEqual(await Lines(page), ["If Met Then FilterResult = 1", "Do", "Loop", "    x = 1", "    "]);
});

test("the keys of the dialog and those of the editor", async (t) => {
  const { page, console: c, code } = await OpenScript(t, { text: "If one = one Then" });
  const focused = () => page.evaluate(() => document.activeElement.closest("[data-control]")?.dataset.control);
  await code.click();
  await page.keyboard.press("Control+Home");
  await page.keyboard.press("Control+]");
  await page.keyboard.press("End");
  await page.keyboard.press("Enter");
  assert.deepEqual(await Lines(page), ["    If one = one Then", "    "]);
  assert.equal(Told(c, "click").length, 0);

  await page.keyboard.press("Tab");
  await Until(async () => (await focused()) === "lstTokens");
  await page.keyboard.press("Shift+Tab");
  await Until(async () => (await focused()) === "txtCondition");
  assert.deepEqual(await Lines(page), ["    If one = one Then", "    "]);

  await page.keyboard.press("Control+f");
  const find = page.getByRole("textbox", { name: "Find" });
  await find.waitFor();
  await page.keyboard.type("one");
  await page.keyboard.press("Enter");
  assert.equal(await page.locator(".cm-searchMatch").count(), 2);
  assert.equal(await page.locator(".cm-searchMatch-selected").count(), 1);
  await page.keyboard.press("Tab");
  const inPanel = () => page.locator("qv-code").evaluate((e) => e.shadowRoot.activeElement?.textContent);
  assert.equal(await inPanel(), "Next");
  await page.keyboard.press("Enter");
  assert.equal(Told(c, "click").length, 0);
  await page.keyboard.press("Escape");
  await find.waitFor({ state: "detached" });
  assert.equal(Told(c, "click").length, 0);
  assert.equal(await focused(), "txtCondition");
  await page.keyboard.press("Escape");
  await Until(() => Told(c, "click").length === 1);
  assert.deepEqual(c.told.at(-1), { do: "click", control: "cmdCancel" });
});

test("a failed check marks its line until the text changes, and the caret goes there", async (t) => {
  const react = (event, state) => {
    Form(event, state);
    if (event.do === "click") state.message = s.Message(kFault, { title: "Script Compilation Error", icon: "critical" });
    if (event.do === "answer") state.message = null;
  };
  const { page, console: c, code } = await OpenScript(t, { react });
  await page.locator("[data-control=cmdCheck]").click();
  const line = page.locator(".cm-line.qv-fault");
  await line.waitFor();
  assert.equal(await line.textContent(), 'If CriteriaMet([QV_SUBJECT],"press") Then');
  assert.equal(await line.getAttribute("title"), "Expected ')'.");
  assert.equal(await page.locator(".qv-fault-sign").getAttribute("title"), "Expected ')'.");
  await page.keyboard.press("Enter");
  await page.locator("#message").waitFor({ state: "detached" });
  // The third line begins at 39, and columns count from 0.
  await Until(() => Told(c, "caret").length === 1);
  assert.deepEqual(Told(c, "caret"), [{ do: "caret", control: "txtCondition", start: 50, length: 0 }]);
  assert.equal(await line.count(), 1);
  await page.keyboard.type("x");
  assert.equal(await line.count(), 0);
  assert.equal((await Lines(page))[2], 'If CriteriaxMet([QV_SUBJECT],"press") Then');
  assert.equal(await code.evaluate((e) => e.getRootNode().activeElement === e), true);
});

test("a fault beyond the text marks its last line", async (t) => {
  const react = (event, state) => {
    Form(event, state);
    const text = kFault.replace("Line: 3", "Line: 9");
    if (event.do === "click") state.message = s.Message(text, { title: "Script Compilation Error" });
  };
  const { page } = await OpenScript(t, { react, text: "a\r\nb" });
  await page.locator("[data-control=cmdCheck]").click();
  await page.locator(".cm-line.qv-fault").waitFor();
  assert.equal(await page.locator(".cm-line.qv-fault").textContent(), "b");
});

test("a script that runs on can be stopped", async (t) => {
  let stopped = false;
  const react = (event, state, console_) => {
    if (event.stop) {
      stopped = true;
      console_.Send(console_.socket, structuredClone({ state, id: console_.waiting }));
      return null;
    }
    if (event.do !== "click") return Form(event, state);
    console_.waiting = event.id;
    return null;
  };
  const { page, console: c } = await OpenScript(t, { react });
  const stop = page.getByRole("button", { name: "Stop" });
  await page.locator("[data-control=cmdCheck]").click();
  await page.locator(".progress").waitFor();
  assert.equal(await stop.count(), 0);
  await stop.waitFor();
  await stop.click();
  await Until(() => stopped);
  await stop.waitFor({ state: "detached" });
  assert.deepEqual(c.events.at(-1), { stop: true });
  const focused = await page.evaluate(() => document.activeElement.dataset.control);
  assert.equal(focused, "cmdCheck");
});

test("other forms offer no stop", async (t) => {
  const react = (event, state) => (event.do === "click" ? null : Form(event, state));
  const { page } = await Open(t, { state: s.State({ dialogs: [s.NameForm()] }), react });
  await page.locator("[data-control=cmdOK]").click();
  await page.waitForTimeout(1300);
  assert.equal(await page.locator("[data-stop]").count(), 0);
  assert.equal(await page.locator(".progress").count(), 1);
});

test("what is typed before the editor is there stays, and so do caret and focus", async (t) => {
  let arrive;
  const held = new Promise((done) => (arrive = done));
  const { page, console: c, code, text } = await OpenScript(t, {
    text: "ab",
    delay: 150,
    before: (p) => p.route("**/editor.js", (route) => void held.then(() => route.continue())),
  });
  const box = page.locator("textarea.code");
  await box.click();
  await page.keyboard.press("Control+End");
  await page.keyboard.type("cd", { delay: 20 });
  await page.keyboard.press("ArrowLeft");
  arrive();
  await page.keyboard.type("ef", { delay: 20 });
  await code.waitFor();
  await page.keyboard.type("gh");
  await Settled(page, c, 700);
  assert.equal(text(), "abcefghd");
  assert.deepEqual(await Lines(page), ["abcefghd"]);
});

test("without its editor the box is a plain one", async (t) => {
  const { page, text } = await OpenScript(t, {
    text: "ab",
    expected: [/editor\.js/, /ERR_FAILED/],
    before: (p) => p.route("**/editor.js", (route) => route.abort()),
  });
  await page.locator("textarea.code").click();
  await page.keyboard.press("Control+End");
  await page.keyboard.type("c");
  await Until(() => text() === "abc");
});

test("an input method composes undisturbed", async (t) => {
  const { page, console: c, code, text, context } = await OpenScript(t, { text: "", delay: 150 });
  await code.click();
  await page.keyboard.type("a");
  const cdp = await context.newCDPSession(page);
  for (const part of ["n", "ni", "にほ"]) {
    await cdp.send("Input.imeSetComposition", { text: part, selectionStart: part.length, selectionEnd: part.length });
    await page.waitForTimeout(500);
  }
  await cdp.send("Input.insertText", { text: "日本" });
  await Settled(page, c, 700);
  assert.equal(text(), "a日本");
  assert.deepEqual(await Lines(page), ["a日本"]);
});

test("text that the console cuts off or refuses goes back", async (t) => {
  const react = (event, state) => {
    if (event.do === "set") return event.text.includes("no") ? { error: "refused" } : void (Find(state, "txtCondition").text = event.text.slice(0, 4));
    return Form(event, state);
  };
  const { page, code, text } = await OpenScript(t, { text: "ab", react });
  await code.click();
  await page.keyboard.press("Control+End");
  await page.keyboard.type("cdef");
  await Until(async () => (await Lines(page))[0] === "abcd");
  await page.keyboard.type(" no");
  await page.getByText("That was not possible: refused").waitFor();
  await Until(async () => (await Lines(page))[0] === "abcd");
  assert.equal(text(), "abcd");
});

test("a code box that is disabled takes no keys", async (t) => {
  const { page, console: c, code } = await OpenScript(t, { text: "ab" });
  Find(c.state, "txtCondition").enabled = false;
  c.Send(c.socket, { state: c.state });
  await Until(async () => (await code.getAttribute("contenteditable")) === "false");
  await code.click({ force: true });
  await page.keyboard.type("x");
  assert.deepEqual(await Lines(page), ["ab"]);
  assert.equal(Told(c, "set").length, 0);
});
