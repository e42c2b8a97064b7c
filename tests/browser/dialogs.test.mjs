// Every dialog of the program: it opens from its list, axe finds nothing, nothing is cut off, and Esc leaves it. With
// SCREENSHOTS=DIR the pictures are kept there.
import assert from "node:assert/strict";
import { test } from "node:test";
import { Count, Top } from "./person.mjs";
import { OpenServer } from "./program.mjs";
import { Axe, Picture, Until } from "./support.mjs";

// Buttons whose caption does not fit, and controls that stick out of their window.
function CutOff(dialog) {
  return dialog.evaluate((root) => {
    const outer = root.getBoundingClientRect();
    return [...root.querySelectorAll("button, label, .label, input, select, textarea, qv-list, legend")]
      .filter((e) => {
        const box = e.getBoundingClientRect();
        return box.width > 0 && (box.right > outer.right || box.left < outer.left || e.matches("button") && e.scrollWidth > e.clientWidth + 1);
      })
      .map((e) => e.outerHTML.slice(0, 120));
  });
}

async function Look(page, name) {
  await page.waitForTimeout(60);
  await Picture(page, `program-${name}`);
  assert.deepEqual(await Axe(page), [], name);
  assert.deepEqual(await CutOff(Top(page)), [], name);
}

// Leaves windows with Esc until so many are left.
async function Leave(page, count) {
  for (let n = 0; n < 3 && (await Count(page)) > count; n++) {
    const before = await Count(page);
    await page.keyboard.press("Escape");
    await Until(async () => (await Count(page)) < before, "Esc leaves the window");
  }
  assert.equal(await Count(page), count);
}

async function OpenFilters(t, colorScheme) {
  const { page } = await OpenServer(t, { bypassCSP: true, colorScheme });
  await page.locator(".node", { hasText: "LOCALHOST" }).locator(".twisty").click();
  await page.locator(".node", { hasText: "Filters" }).click();
  await page.locator(".pane-list .row").first().waitFor();
  return page;
}

for (const colorScheme of ["light", "dark"]) {
  test(`the dialogs of a filter, ${colorScheme}`, { timeout: 300_000 }, async (t) => {
    const page = await OpenFilters(t, colorScheme);
    await page.locator(".pane-list .row").first().dblclick();
    await Top(page).waitFor();
    await Look(page, `manage-${colorScheme}`);
    const list = page.locator("[data-control=lvwCriteria] .rows");
    const rows = Number(await list.getAttribute("aria-rowcount")) - 1;
    assert.equal(rows, 23);
    for (let n = 0; n < rows; n++) {
      await list.focus();
      await page.keyboard.press(n === 0 ? "Home" : "ArrowDown");
      await page.keyboard.press("Enter");
      await Until(async () => (await Count(page)) === 2, `criterion ${n + 1}`);
      await Look(page, `criterion-${String(n + 1).padStart(2, "0")}-${colorScheme}`);
      await Leave(page, 1);
    }
    const script = page.locator("[data-control=optAdvancedScripting]");
    if (await script.count()) {
      await script.click();
      await page.locator("[data-control=cmdAdvancedScripting]").click();
      await Until(async () => (await Count(page)) === 2);
      await Look(page, `script-${colorScheme}`);
      await Leave(page, 1);
      await page.locator("[data-control=optStandardCriteria]").click();
    }
    await page.locator("[data-control=cmdAdd]").click();
    await Until(async () => (await Count(page)) === 2);
    await Look(page, `actions-${colorScheme}`);
    const actions = await Top(page).locator("[role=option]").count();
    assert.ok(actions > 10, `${actions} actions`);
    await Leave(page, 1);
    for (let n = 0; n < actions; n++) {
      await page.locator("[data-control=cmdAdd]").click();
      await Until(async () => (await Count(page)) === 2);
      await Top(page).locator("[role=option]").nth(n).dblclick();
      await Until(async () => /^(?!Select)/.test(await Top(page).locator("h2").innerText()), `action ${n + 1}`);
      await page.waitForTimeout(100);
      await Look(page, `action-${String(n + 1).padStart(2, "0")}-${colorScheme}`);
      await Leave(page, 1);
    }
    await Leave(page, 0);
  });

  test(`the other windows, ${colorScheme}`, { timeout: 120_000 }, async (t) => {
    const page = await OpenFilters(t, colorScheme);
    const bar = page.getByRole("toolbar");
    for (const name of ["New Filter...", "Order Filters..."]) {
      await bar.getByRole("button", { name }).click();
      await Until(async () => (await Count(page)) === 1);
      await Look(page, `${name.split(" ")[0].toLowerCase()}-${colorScheme}`);
      await Leave(page, 0);
    }
    await page.locator(".pane-list .row").first().click();
    await bar.getByRole("button", { name: "Rename..." }).click();
    await Until(async () => (await Count(page)) === 1);
    await Look(page, `rename-${colorScheme}`);
    await Leave(page, 0);
    await page.locator(".node", { hasText: "Spam" }).click();
    await page.locator(".pane-list .i-4").first().waitFor();
    await Picture(page, `program-spam-${colorScheme}`);
    await page.locator(".pane-list .row").first().dblclick();
    await Until(async () => (await Count(page)) === 1);
    await Look(page, `weight-${colorScheme}`);
    await Leave(page, 0);
    await page.locator(".node", { hasText: "Spam" }).click();
    await bar.getByRole("button", { name: "Properties" }).click();
    await Until(async () => (await Count(page)) === 1);
    await Look(page, `spam-sheet-${colorScheme}`);
    await Leave(page, 0);
    await page.locator(".node", { hasText: "Postoffices" }).locator(".twisty").click();
    const office = page.locator(".node:has(.i-104)").first();
    await office.click();
    await bar.getByRole("button", { name: "Properties" }).click();
    await Until(async () => (await Count(page)) === 1);
    await Look(page, `postoffice-sheet-${colorScheme}`);
    await Leave(page, 0);
    await page.locator(".pane-list .row").first().click();
    await bar.getByRole("button", { name: "Properties" }).click();
    await Until(async () => (await Count(page)) === 1);
    await Look(page, `mailbox-sheet-${colorScheme}`);
    await Leave(page, 0);
  });
}
