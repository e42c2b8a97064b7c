import type { Message } from "./protocol.ts";

// Where a script failed to compile. Lines count from 1, columns from 0.
export interface Fault {
  line: number;
  column: number;
  description: string;
}

// What the message box of a failed check says about the place.
export function FaultIn(message: Message | null): Fault | null {
  if (message?.title !== "Script Compilation Error") return null;
  const found = /^Line: (\d+), Column: (\d+)\.? ?(.*)/.exec(message.text);
  if (!found) return null;
  const [, line = "", column = "", rest = ""] = found;
  return { line: Number(line), column: Number(column), description: rest.replace(/^Description: /, "") };
}
