// What a person finds and does on the page.
import assert from "node:assert/strict";
import { Until } from "./support.mjs";

export const Node = (page, name, nth = 0) => page.locator(".node", { hasText: name }).nth(nth);
export const Row = (page, name) => page.locator(".pane-list .row", { hasText: name });
export const Bar = (page, name) => page.getByRole("toolbar").getByRole("button", { name, exact: true });
export const Top = (page) => page.locator("dialog[open]").last();
export const Control = (page, name) => Top(page).locator(`[data-control="${name}"]`);
export const Sheet = (page, button) => page.locator(`#sheet [data-sheet=${button}]`);
export const Count = (page) => page.locator("dialog[open]").count();

// Waits until so many windows are open.
export async function Windows(page, count) {
  await Until(async () => (await Count(page)) === count, `${count} windows`);
}

// Presses a button of the window in front that ends in so many windows.
export async function Press(page, name, windows) {
  await Control(page, name).click();
  await Windows(page, windows);
}

// Puts a text in the place of what a box holds.
export async function Write(page, name, text) {
  await Control(page, name).click();
  await page.keyboard.press("Control+a");
  if (text === "") await page.keyboard.press("Delete");
  else await page.keyboard.type(text);
  await Until(async () => (await Control(page, name).inputValue()) === text, `"${text}" in ${name}`);
}

// The box in front says this; it is answered, and goes.
export async function Answer(page, title, text, button = "OK") {
  const box = page.getByRole("alertdialog", { name: title, exact: true });
  await box.getByText(text, { exact: true }).waitFor();
  await box.getByRole("button", { name: button, exact: true }).click();
  await box.waitFor({ state: "detached" });
}

export async function FocusOn(page, name) {
  const focused = () => page.evaluate(() => document.activeElement?.closest("[data-control]")?.dataset.control);
  await Until(async () => (await focused()) === name, `the focus on ${name}`);
}

export async function Cells(row) {
  return (await row.locator(".words").allInnerTexts()).map((text) => text.trim());
}

// Waits until a row of the list shows these cells.
export async function Shows(row, cells) {
  let seen = [];
  const same = async () => JSON.stringify((seen = await Cells(row))) === JSON.stringify(cells);
  await Until(same, "the row").catch(() => assert.deepEqual(seen, cells));
}
