// Walks through the console as a first-time administrator does, and takes a picture at each step.
import { execFileSync, spawn } from "node:child_process";
import { mkdirSync, mkdtempSync, rmSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { parseArgs } from "node:util";
import { chromium } from "playwright-core";

const { values, positionals } = parseArgs({
  allowPositionals: true,
  options: { dark: { type: "boolean", default: false }, zoom: { type: "string", default: "1" } },
});
const folder = positionals[0] ?? "docs";
const zoom = Number(values.zoom);
const kWidth = Math.round(1100 / zoom);
const kHeight = Math.round(720 / zoom);
const program = process.env.QVADMIN ?? "build/qvadmin";

const servers = mkdtempSync(join(tmpdir(), "screenshots-"));
const [local, far] = [join(servers, "LOCALHOST"), join(servers, "MAIL2")];
execFileSync(program, ["init", "--data", local, "--demo"]);
execFileSync(program, ["init", "--data", far, "--demo", "--demo-variant", "2"]);
const server = spawn(program, ["serve", "--data", local, "--server", `MAIL2=${far}`], {
  stdio: ["ignore", "pipe", "inherit"],
});
const address = await new Promise((done) => {
  let said = "";
  server.stdout.on("data", (text) => {
    const found = /http:\S+(?=\s)/.exec((said += text));
    if (found) done(found[0]);
  });
});

const browser = await chromium.launch({
  executablePath: "/usr/bin/chromium", headless: false, args: ["--headless=new", "--no-sandbox", "--disable-gpu"],
});
const page = await browser.newPage({
  viewport: { width: kWidth, height: kHeight },
  deviceScaleFactor: zoom,
  colorScheme: values.dark ? "dark" : "light",
  reducedMotion: "reduce",
});
page.setDefaultTimeout(10_000);

const kMargin = 16;
const Top = () => page.locator("dialog[open]").last();
const Control = (name) => Top().locator(`[data-control="${name}"]`);
const Node = (name, nth = 0) => page.locator(".node", { hasText: name }).nth(nth);
const Row = (name) => page.locator(".pane-list .row", { hasText: name });
const Bar = (name) => page.getByRole("toolbar").getByRole("button", { name, exact: true });
const Open = (node) => node.locator(".twisty").click();

async function Windows(count) {
  while ((await page.locator("dialog[open]").count()) !== count) await page.waitForTimeout(20);
}

async function Press(button, windows) {
  await button.click();
  await Windows(windows);
}

// A picture of the whole console, or of the window in front with a little of what lies around it.
async function Picture(name, of = null) {
  await page.mouse.move(0, 0);
  await page.locator(".shell[aria-busy=false]").waitFor();
  await page.waitForTimeout(200);
  const path = join(folder, name.includes("/") ? name : join("walkthrough", name)) + ".png";
  const box = await of?.boundingBox();
  const clip = box && {
    x: Math.max(0, box.x - kMargin), y: Math.max(0, box.y - kMargin),
    width: Math.min(box.width + 2 * kMargin, page.viewportSize().width),
    height: Math.min(box.height + 2 * kMargin, page.viewportSize().height),
  };
  await page.screenshot({ path, caret: "hide", ...(clip ? { clip } : {}) });
}

async function Filter() {
  await Open(Node("LOCALHOST"));
  await Node("Filters").click();
  await Row("Trusted senders").click();
  await Bar("Disable").waitFor();
  await Picture("filters");
  await Press(Bar("New Filter..."), 1);
  await page.keyboard.type("Lottery mail");
  await Picture("new-filter", Top());
  await page.keyboard.press("Enter");
  await Windows(0);
  await Row("Lottery mail").dblclick();
  await Windows(1);
}

async function Criteria() {
  const row = Control("lvwCriteria").locator(".row", { hasText: "Subject header" });
  await row.dblclick();
  await Windows(2);
  await Control("chkStatus").click();
  await Control("optUseWordList").click();
  await Control("txtWords").click();
  await page.keyboard.type("lottery, you have won, jackpot");
  await Control("CmdAdd").click();
  await Control("lstWords").locator(".row", { hasText: "jackpot" }).waitFor();
  await Picture("criterion", Top());
  await Press(Control("cmdOK"), 1);
  await row.getByText("Enabled").waitFor();
}

async function Script() {
  await Control("optAdvancedScripting").click();
  await Press(Control("cmdAdvancedScripting"), 2);
  await Top().locator(".cm-content").click();
  await page.keyboard.insertText(
    'Dim Words\nWords = "*lottery*"\n\nIf CriteriaMet([QV_SUBJECT], Words) Then\n' +
    '  FilterResult = 1\nElseIf CriteriaMet([QV_SIZE], "9000000") Then\n  FilterResult = 1\nEnd If\n');
  await Picture("script", Top());
  await Press(Control("cmdCancel"), 1);
  await Control("optStandardCriteria").click();
}

async function Actions() {
  await Press(Control("cmdAdd"), 2);
  await Picture("select-action", Top());
  await Top().getByRole("option", { name: "Add Subject Prefix" }).dblclick();
  await Control("txtPrefix").click();
  await page.keyboard.type("[lottery] ");
  await Press(Control("cmdOK"), 1);
  await Press(Control("cmdAdd"), 2);
  await Top().getByRole("option", { name: "Copy to Quarantine" }).dblclick();
  await Control("chkStatus").waitFor();
  await Press(Control("cmdOK"), 1);
  await Control("lvwActions").locator(".row", { hasText: "Quarantine" }).click();
  await Control("cmdUp").click();
  await Control("lvwActions").locator(".row.selected", { hasText: "Quarantine" }).waitFor();
  await Picture("manage", Top());
  await Picture("./console");
  await Press(Control("cmdClose"), 0);
}

async function Order() {
  await Press(Bar("Order Filters..."), 1);
  await Control("lvwFilters").locator(".row", { hasText: "Lottery mail" }).click();
  for (let n = 0; n < 3; n++) await Control("cmdUp").click();
  await Picture("order", Top());
  await Press(Control("cmdCancel"), 0);
}

async function Pages() {
  await Open(Node("Postoffices"));
  await Node("sales.example.com").click();
  await Press(Bar("Properties"), 1);
  await Control("lvwFilters").locator(".row").first().click();
  await Picture("postoffice", Top());
  await Press(Top().locator("[data-sheet=cancel]"), 0);
  await page.keyboard.press("Control+f");
  await page.keyboard.type("or");
  await page.locator(".count", { hasText: "found" }).waitFor();
  await Row("orders").click();
  await Picture("mailboxes");
}

async function Spam() {
  await Node("Spam Protection").click();
  const row = Row("not allowed to send for the domain");
  await row.dblclick();
  await Windows(1);
  await Control("txtPositive").click();
  await page.keyboard.press("Control+a");
  await page.keyboard.type("45");
  await Press(Control("cmdOK"), 0);
  await row.locator("strong", { hasText: "45" }).waitFor();
  await row.dblclick();
  await Windows(1);
  await page.setViewportSize({ width: kWidth, height: Math.round(kHeight * 0.8) });
  await Picture("weights");
  await page.setViewportSize({ width: kWidth, height: kHeight });
  await Press(Control("cmdCancel"), 0);
  await Node("Spam Protection").click();
  await Press(Bar("Properties"), 1);
  await Picture("thresholds", Top());
  await Press(Top().locator("[data-sheet=cancel]"), 0);
}

try {
  mkdirSync(join(folder, "walkthrough"), { recursive: true });
  await page.goto(address);
  await page.locator(".tree").waitFor();
  await Picture("start");
  for (const step of [Filter, Criteria, Script, Actions, Order, Pages, Spam]) await step();
} finally {
  await browser.close();
  server.kill();
  rmSync(servers, { recursive: true, force: true });
}
