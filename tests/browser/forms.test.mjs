// Dialogs, message boxes and property sheets: what goes out on a click or a key, and where the focus is.
import assert from "node:assert/strict";
import { test } from "node:test";
import { Find, Form } from "./model.mjs";
import { Open, Told, Until } from "./support.mjs";
import * as s from "./states.mjs";

const Focused = (page) =>
  page.evaluate(() => {
    const active = document.activeElement;
    return active?.closest("[data-control]")?.dataset.control ?? active?.textContent?.trim();
  });

const clicked = (control) => ({ do: "click", control });

test("a dialog opens with the focus on its first control and goes by Tab in the order of its controls", async (t) => {
  const form = s.NameForm();
  // The order of the controls is not the order of the layout.
  const [ok] = form.controls.splice(4, 1);
  form.controls.splice(3, 0, ok);
  const { page, console: c } = await Open(t, { state: s.State({ dialogs: [form] }), react: Form });
  await page.locator("dialog").waitFor();
  const order = [await Focused(page)];
  for (let n = 0; n < 4; n++) {
    await page.keyboard.press("Tab");
    order.push(await Focused(page));
  }
  await page.keyboard.press("Shift+Tab");
  order.push(await Focused(page));
  assert.deepEqual(order, ["txtName", "cmdOK", "chkStatus", "cmdCancel", "txtName", "cmdCancel"]);
  await Until(() => c.told.length === 5);
  assert.ok(c.told.every((event) => event.do === "focus" && event.tab === true));
});

test("Enter presses the default button, Esc the cancel button, the close box closes", async (t) => {
  const { page, console: c } = await Open(t, { state: s.State({ dialogs: [s.NameForm()] }), react: Form });
  await page.locator("input.text").focus();
  await page.keyboard.press("Enter");
  await page.keyboard.press("Escape");
  await page.getByRole("button", { name: "Close" }).click();
  await page.locator("[data-control=cmdCancel]").focus();
  await page.keyboard.press("Enter");
  await Told(c, [clicked("cmdOK"), clicked("cmdCancel"), { do: "close" }, clicked("cmdCancel")]);
});

test("access keys", async (t) => {
  const { page, console: c } = await Open(t, { state: s.State({ dialogs: [s.NameForm()] }), react: Form });
  assert.equal(await page.locator("[data-control=cmdCancel] u").innerText(), "C");
  await page.keyboard.press("Alt+e");
  await page.keyboard.press("Alt+n");
  assert.equal(await Focused(page), "txtName");
  await page.keyboard.press("Alt+c");
  await Told(c, [clicked("chkStatus"), { do: "focus", control: "txtName", tab: false }, clicked("cmdCancel")]);
});

test("an ampersand that is doubled is a letter", async (t) => {
  const form = s.NameForm();
  form.controls[3].caption = "Black && &white";
  const { page } = await Open(t, { state: s.State({ dialogs: [form] }), react: Form });
  const label = page.locator("label.check");
  assert.equal((await label.innerText()).trim(), "Black & white");
  assert.equal(await label.locator("u").innerText(), "w");
});

test("check boxes and options show their change before it is answered", async (t) => {
  const state = s.State({ dialogs: [s.ManageForm()] });
  const { page, console: c } = await Open(t, { state, react: Form, delay: 150 });
  const script = page.locator("[data-control=optAdvancedScripting]");
  const standard = page.locator("[data-control=optStandardCriteria]");
  await script.click();
  await standard.click();
  await script.click();
  const seen = [];
  for (let n = 0; n < 25; n++) {
    seen.push(await script.isChecked());
    await page.waitForTimeout(20);
  }
  assert.deepEqual(new Set(seen), new Set([true]));
  assert.equal(Find(c.state, "optAdvancedScripting").checked, true);
});

test("a list view: click, double click, its empty space, check boxes, keys", async (t) => {
  const { page, console: c } = await Open(t, { state: s.State({ dialogs: [s.ManageForm()] }), react: Form });
  const criteria = page.locator("[data-control=lvwCriteria]");
  await criteria.locator(".row", { hasText: "message body" }).dblclick();
  const actions = page.locator("[data-control=lvwActions]");
  const row = actions.locator(".row", { hasText: "Notify" });
  await row.getByRole("checkbox").click();
  await Until(async () => (await row.getByRole("checkbox").getAttribute("aria-checked")) === "true");
  const box = await actions.boundingBox();
  await page.mouse.dblclick(box.x + 40, box.y + box.height - 12);
  await actions.locator(".rows").focus();
  await page.keyboard.press("ArrowDown");
  await page.keyboard.press("Space");
  await page.keyboard.press("Enter");
  await Told(c, [
    { do: "select", control: "lvwCriteria", index: 1 },
    { do: "doubleClick", control: "lvwCriteria", index: 1 },
    { do: "check", control: "lvwActions", index: 1, checked: true },
    { do: "select", control: "lvwActions", index: -1 },
    { do: "doubleClick", control: "lvwActions", index: -1 },
    { do: "select", control: "lvwActions", index: 2 },
    { do: "check", control: "lvwActions", index: 2, checked: false },
    { do: "doubleClick", control: "lvwActions", index: 2 },
  ]);
});

test("Enter in a list presses the default button where there is one", async (t) => {
  const { page, console: c } = await Open(t, { state: s.State({ dialogs: [s.WordsForm()] }), react: Form });
  await page.locator("[data-control=lstTokens] .rows").focus();
  await page.keyboard.type("p");
  await page.keyboard.press("Enter");
  await Told(c, [{ do: "select", control: "lstTokens", index: 2 }, clicked("cmdOK")]);
});

test("a combo selects", async (t) => {
  const state = s.State({ dialogs: [s.WordsForm()] });
  Find(state, "cboPattern").enabled = true;
  const { page, console: c } = await Open(t, { state, react: Form });
  await page.locator("select").selectOption({ label: "gambling" });
  await Told(c, [{ do: "select", control: "cboPattern", index: 2 }]);
  assert.equal(await page.locator("select").inputValue(), "2");
});

test("Enter and Esc in an open combo close its list and not the dialog", async (t) => {
  const state = s.State({ dialogs: [s.WordsForm()] });
  Find(state, "cboPattern").enabled = true;
  const { page, console: c } = await Open(t, { state, react: Form });
  const combo = page.locator("select");
  await combo.focus();
  await page.keyboard.press("Alt+ArrowDown");
  await page.waitForTimeout(100);
  await page.keyboard.press("ArrowDown");
  await page.keyboard.press("Enter");
  await page.waitForTimeout(100);
  await page.keyboard.press("Alt+ArrowDown");
  await page.waitForTimeout(100);
  await page.keyboard.press("Escape");
  await page.waitForTimeout(100);
  assert.deepEqual(c.told, [{ do: "select", control: "cboPattern", index: 2 }]);
  await page.keyboard.press("Enter");
  await Until(() => c.told.at(-1).control === "cmdOK");
});

test("what is not visible takes no room, what is disabled takes no clicks", async (t) => {
  const form = s.ManageForm();
  for (const control of form.controls) {
    if (["optStandardCriteria", "optAdvancedScripting", "cmdAdvancedScripting", "lblDisabled"].includes(control.name)) {
      control.visible = false;
    }
  }
  form.controls.find((control) => control.name === "lvwCriteria").enabled = false;
  const { page, console: c } = await Open(t, { state: s.State({ dialogs: [form] }), react: Form });
  await page.locator("dialog").waitFor();
  assert.equal(await page.locator("dialog .across, dialog .strip, dialog input[type=radio]").count(), 0);
  await page.locator("[data-control=lvwCriteria] .row").first().click({ force: true });
  await page.waitForTimeout(50);
  assert.deepEqual(c.told, []);
});

test("a message box: focus, keys, and the focus back where the console puts it", async (t) => {
  const state = s.State({ dialogs: [s.NameForm()] });
  const { page, console: c } = await Open(t, {
    state,
    react: (event, st) => {
      if (event.do === "click" && event.control === "cmdOK") {
        Form(event, st);
        st.message = s.Message("You must specify a description for the Filter", { title: "Error", icon: "critical" });
      } else if (event.do === "answer") {
        st.message = null;
        Find(st, "txtName").focus = true;
      } else return Form(event, st);
    },
  });
  await page.locator("[data-control=cmdOK]").click();
  const box = page.getByRole("alertdialog", { name: "Error" });
  await box.waitFor();
  assert.equal(await Focused(page), "OK");
  assert.equal(await box.getAttribute("aria-describedby"), "message-text");
  await page.keyboard.press("Escape");
  await box.waitFor({ state: "detached" });
  await Until(async () => (await Focused(page)) === "txtName");
  await Told(c, [clicked("cmdOK"), { do: "answer", button: "ok" }]);
});

test("the focus stays in a box whose Enter brought up a message", async (t) => {
  const state = s.State({ dialogs: [structuredClone(s.NameForm())] });
  const { page, console: c } = await Open(t, {
    state,
    react: (event, st) => {
      Form(event, st);
      if (event.do === "click") {
        for (const control of st.dialogs[0].controls) control.focus = control.name === "cmdOK";
        st.message = s.Message("You must specify a description for the Filter", { title: "Error", icon: "critical" });
      } else if (event.do === "answer") st.message = null;
    },
  });
  await page.locator("input.text").focus();
  await page.keyboard.press("Enter");
  const box = page.getByRole("alertdialog", { name: "Error" });
  await box.waitFor();
  await page.keyboard.press("Enter");
  await box.waitFor({ state: "detached" });
  await Until(() => c.told.some((event) => event.do === "answer"));
  assert.equal(Find(c.state, "cmdOK").focus, true);
  assert.equal(await Focused(page), "txtName");
});

test("yes and no by their letters; Esc answers neither", async (t) => {
  const message = s.Message("Are you sure?", { title: "Delete", icon: "critical", buttons: ["yes", "no"] });
  const { page, console: c } = await Open(t, {
    state: s.State({ message }),
    react: (event, state) => {
      if (event.do === "answer") state.message = null;
    },
  });
  await page.keyboard.press("Escape");
  assert.equal(await page.getByRole("button", { name: "Close" }).count(), 0);
  await page.keyboard.press("ArrowRight");
  assert.equal(await Focused(page), "No");
  await page.keyboard.press("y");
  await Told(c, [{ do: "answer", button: "yes" }]);
});

test("stacked dialogs: the focus returns to the button that opened one", async (t) => {
  const state = s.State({ dialogs: [s.ManageForm()] });
  const { page, console: c } = await Open(t, {
    state,
    react: (event, st) => {
      if (event.do === "click" && event.control === "cmdAdd") st.dialogs.push(s.NameForm());
      else if (event.do === "click" && event.control === "cmdCancel") st.dialogs.pop();
      else return Form(event, st);
    },
  });
  await page.locator("[data-control=cmdAdd]").click();
  await page.locator("#dialog-1").waitFor();
  assert.equal(await Focused(page), "txtName");
  // What lies beneath is out of reach.
  await page.mouse.click(420, 760);
  await page.keyboard.press("Escape");
  await page.locator("#dialog-1").waitFor({ state: "detached" });
  assert.equal(await Focused(page), "cmdAdd");
  await Told(c, [clicked("cmdAdd"), clicked("cmdCancel")]);
});

test("a hasty second click does not hit the dialog beneath", async (t) => {
  const words = s.WordsForm();
  const state = s.State({ dialogs: [s.NameForm({ name: "frmBelow" }), words] });
  const { page, console: c } = await Open(t, {
    state,
    delay: 150,
    react: (event, st) => {
      if (event.do === "click" && event.control === "cmdOK") st.dialogs.pop();
      else return Form(event, st);
    },
  });
  await page.locator("#dialog-1 [data-control=cmdOK]").dblclick();
  await page.waitForTimeout(700);
  await Told(c, [clicked("cmdOK")]);
  assert.equal(await page.locator("dialog[open]").count(), 1);
});

test("quick clicks on a button of the same window all count", async (t) => {
  const { page, console: c } = await Open(t, { state: s.State({ dialogs: [s.ManageForm()] }), react: Form, delay: 60 });
  for (let n = 0; n < 3; n++) await page.locator("[data-control=cmdUp]").click({ delay: 0 });
  await Told(c, [clicked("cmdUp"), clicked("cmdUp"), clicked("cmdUp")]);
});

test("a button that disables itself leaves the focus in the dialog", async (t) => {
  const { page } = await Open(t, {
    state: s.State({ dialogs: [s.ManageForm()] }),
    react: (event, state) => {
      if (event.do === "click") Find(state, "cmdUp").enabled = false;
    },
  });
  await page.locator("[data-control=cmdUp]").focus();
  await page.keyboard.press("Space");
  await Until(async () => (await Focused(page)) === "cmdDown");
});

test("a property sheet: tabs, its buttons, Enter and Esc", async (t) => {
  const { page, console: c } = await Open(t, {
    state: s.State({ sheet: s.MailboxSheet() }),
    react: (event, state) => {
      if (event.do === "page") state.sheet.active = event.index;
      if (event.do === "click" && event.control === "chkEnabled") state.sheet.changed = true;
      return Form(event, state);
    },
  });
  const apply = page.getByRole("button", { name: "Apply" });
  assert.equal(await apply.isDisabled(), true);
  await page.getByLabel("Enable filters for this mailbox").click();
  await apply.click();
  await page.getByRole("button", { name: "Help" }).click();
  await page.getByRole("tab", { name: "Filters" }).focus();
  await page.keyboard.press("ArrowRight");
  await page.locator("[role=tab][aria-selected=true]", { hasText: "Quota" }).waitFor();
  assert.equal(await page.getByRole("button", { name: "Help" }).count(), 0);
  await page.keyboard.press("Escape");
  await page.getByLabel("Enable filters for this mailbox").focus();
  await page.keyboard.press("Enter");
  await Told(c, [
    clicked("chkEnabled"),
    { do: "sheet", button: "apply" },
    { do: "sheet", button: "help" },
    { do: "page", index: 1 },
    { do: "sheet", button: "cancel" },
    { do: "sheet", button: "ok" },
  ]);
});

test("a form without a layout shows its controls in their order", async (t) => {
  const { page } = await Open(t, { state: s.State({ dialogs: [s.WordsForm({ layout: undefined })] }), react: Form });
  await page.locator("dialog").waitFor();
  const tops = await page.locator("dialog [data-control]").evaluateAll((all) =>
    all.map((e) => [e.dataset.control, Math.round(e.getBoundingClientRect().top)]),
  );
  assert.deepEqual(
    tops.map(([name]) => name),
    ["chkStatus", "optList", "lstTokens", "txtWords", "cmdAddWord", "cmdRemove", "optFile", "cboPattern", "cmdEdit",
      "txtWeight", "txtNote", "cmdOK", "cmdCancel"],
  );
  for (let n = 1; n < tops.length; n++) assert.ok(tops[n][1] > tops[n - 1][1], tops[n][0]);
});

test("a dialog moves by its title bar", async (t) => {
  const { page } = await Open(t, { state: s.State({ dialogs: [s.NameForm()] }), react: Form });
  const title = page.locator("dialog .title h2");
  const before = await title.boundingBox();
  await page.mouse.move(before.x + 10, before.y + 8);
  await page.mouse.down();
  await page.mouse.move(before.x + 90, before.y + 58, { steps: 4 });
  await page.mouse.up();
  const after = await title.boundingBox();
  assert.deepEqual([Math.round(after.x - before.x), Math.round(after.y - before.y)], [80, 50]);
});
