import type { TextControl } from "./protocol.ts";
import type { FormPort } from "./session.ts";

// What a box for code shows, whichever way it is drawn.
export interface CodeModel {
  control: TextControl;
  port: FormPort;
  id: string;
  label: string;
  lines: number;
}
