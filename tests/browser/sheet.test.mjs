// A property sheet and the message boxes that its own buttons bring up.
import assert from "node:assert/strict";
import { test } from "node:test";
import { Open, Until } from "./support.mjs";
import * as s from "./states.mjs";

function ThresholdSheet() {
  const controls = [s.Check("chkEnabled", "Enable spam protection", true), s.Text("txtLow", "0", { focus: true }),
    s.Text("txtHigh", "80")];
  const form = { name: "ppgSpamProtection", caption: "Spam Protection", height: 0, controls };
  return { title: "Spam Protection Properties", pages: [{ name: form.name, caption: form.caption, help: false }], active: 0,
    changed: true, form };
}

// The first box is wrong for ever, and has the console's focus; Apply says so, or not.
function Applying(wrong) {
  return (event, state) => {
    if (event.do === "answer") state.message = null;
    if (event.do !== "sheet") return undefined;
    if (!state.sheet.changed) return { error: "there is nothing to apply" };
    if (wrong) state.message = s.Message("You need to enter a low threshold greater than zero.", { title: "Warning!" });
    else state.sheet.changed = false;
    return undefined;
  };
}

const Focused = (page) => page.evaluate(() => document.activeElement?.dataset.control ?? document.activeElement?.tagName);

for (const button of ["apply", "ok"]) {
  test(`after a refusal by ${button} the wrong box has the focus, also when it had it before`, async (t) => {
    const { page } = await Open(t, { state: s.State({ sheet: ThresholdSheet() }), react: Applying(true) });
    await Until(async () => (await Focused(page)) === "txtLow", "the first focus");
    for (let n = 0; n < 2; n++) {
      await page.locator(`[data-sheet=${button}]`).click();
      await page.locator("#message").getByRole("button", { name: "OK" }).click();
      await page.locator("#message").waitFor({ state: "detached" });
      await Until(async () => (await Focused(page)) === "txtLow", "the focus on the wrong box");
    }
  });
}

test("a double click on Apply applies once", async (t) => {
  const { page, console: c } = await Open(t, { state: s.State({ sheet: ThresholdSheet() }), react: Applying(false), delay: 100 });
  const apply = page.locator("[data-sheet=apply]");
  await apply.dblclick();
  await Until(() => apply.isDisabled(), "that it is applied");
  await page.waitForTimeout(200);
  assert.deepEqual(c.told, [{ do: "sheet", button: "apply" }]);
  assert.equal(await page.locator(".notice").count(), 0);
});
