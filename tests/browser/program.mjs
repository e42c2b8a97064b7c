// The program itself with two servers of demonstration data, and a page on it.
import assert from "node:assert/strict";
import { execFileSync, spawn } from "node:child_process";
import { existsSync } from "node:fs";
import { mkdtemp, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { NewContext, Watch } from "./support.mjs";

const root = join(dirname(fileURLToPath(import.meta.url)), "..", "..");
const program = process.env.QVADMIN ?? join(root, "build", "qvadmin");
if (!existsSync(program)) throw new Error(`there is no ${program}; build it, or name another with QVADMIN`);

export function Run(...args) {
  return execFileSync(program, args, { encoding: "utf8" });
}

// The rows of a server's data directory.
export const Data = (folder) => JSON.parse(Run("data", "export", "--data", folder));

const FillDemo = (data) => Run("init", "--data", data, "--demo");

async function Directory(t, fill) {
  const data = await mkdtemp(join(tmpdir(), "server-"));
  t.after(() => rm(data, { recursive: true, force: true }));
  await fill(data);
  return data;
}

async function Serve(t, local, far) {
  const server = spawn(program, ["serve", "--data", local, "--server", `MAIL2=${far}`, "--port", "0"]);
  let complaints = "";
  server.stderr.on("data", (text) => (complaints += text));
  let said = "";
  const address = await new Promise((done, fail) => {
    server.stdout.on("data", (text) => {
      said += text;
      const found = /http:\S+/.exec(said);
      if (found && said.includes("\n")) done(found[0]);
    });
    server.on("exit", (code) => fail(new Error(`the program ended with ${code}: ${complaints}`)));
  });
  t.after(() => {
    server.kill();
    assert.equal(complaints, "", "the program complained");
  });
  return { server, address };
}

// `fill` makes the local server's data directory, `before` gets the page before it goes to the program.
export async function OpenServer(t, { expected = [], fill = FillDemo, before = () => undefined, ...options } = {}) {
  // What is left to do after the test is done in this order: the page goes before the server that it talks to.
  const context = await NewContext(t, options);
  const page = await context.newPage();
  Watch(t, page, expected);
  const local = await Directory(t, fill);
  const far = await Directory(t, FillDemo);
  const { server, address } = await Serve(t, local, far);
  await before(page);
  await page.goto(address);
  await page.locator(".tree").waitFor();
  return { page, local, far, server };
}
