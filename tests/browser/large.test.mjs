// A postoffice with very many mailboxes, on the program itself: only a window of its rows is ever on its way.
import assert from "node:assert/strict";
import { writeFileSync } from "node:fs";
import { join } from "node:path";
import { test } from "node:test";
import { OpenServer, Run } from "./program.mjs";

const kOffices = 200;
const kMailboxes = 50_000;

function Fill(data) {
  const postoffices = Array.from({ length: kOffices }, (_, n) => ({ Name: `office${n}`, Status: 1 }));
  const mailboxes = Array.from({ length: kMailboxes }, (_, n) => ({ Postoffice: "office0", Mailbox: `user${n}` }));
  const filters = [{ FilterEntryID: "FLT1", Description: "Holidays", Status: 1, Postoffice: "office0", Mailbox: "user49321" }];
  Run("init", "--data", data);
  const rows = join(data, "rows.json");
  writeFileSync(rows, JSON.stringify({ postoffices, mailboxes, filters }));
  Run("data", "import", "--data", data, rows);
}

test("a postoffice with 50,000 mailboxes", async (t) => {
  let longest = 0;
  const { page } = await OpenServer(t, {
    fill: Fill,
    before: (before) =>
      before.on("websocket", (socket) => socket.on("framereceived", ({ payload }) => (longest = Math.max(longest, payload.length)))),
  });
  const row = (name) => page.locator(".pane-list .row").filter({ has: page.getByText(name, { exact: true }) });
  const rows = page.locator(".pane-list .rows");
  const count = page.locator(".count");
  const node = (name) => page.locator(".node").filter({ has: page.getByText(name, { exact: true }) });

  await node("LOCALHOST").dblclick();
  await node("Postoffices").dblclick();
  await node("office0").click();
  await row("user0").waitFor();
  assert.equal(await count.innerText(), "50000 items");

  await rows.evaluate((e) => (e.scrollTop = e.scrollHeight / 2));
  await row("user25000").waitFor();
  await rows.focus();
  await page.keyboard.press("End");
  await row("user49999").waitFor();
  assert.ok((await page.locator(".pane-list .row").count()) < 100);

  await page.getByRole("searchbox").fill("USER4932");
  await row("user49321").waitFor();
  assert.equal(await count.innerText(), "11 found");
  await row("user49321").dblclick();
  const sheet = page.getByRole("dialog", { name: "user49321 Properties" });
  await sheet.getByText("Holidays").waitFor();
  await page.keyboard.press("Escape");
  await sheet.waitFor({ state: "detached" });
  assert.ok(longest < 120_000, `${longest} bytes in one state`);
});
