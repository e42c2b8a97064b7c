import { html, type nothing, type TemplateResult } from "lit/html.js";
import type { TextControl } from "./protocol.ts";
import type { FormPort } from "./session.ts";
import { Synchronized } from "./textbox.ts";

// A box for code. An editor that is loaded when it is needed takes the place of this text area here, and nowhere else.
export function CodeBox(
  port: FormPort,
  control: TextControl,
  id: string,
  label: string | typeof nothing,
  lines: number,
): TemplateResult {
  return html`<textarea
    id=${id}
    class="text code"
    data-control=${control.name}
    rows=${lines}
    wrap="off"
    aria-label=${label}
    ?disabled=${!control.enabled}
    spellcheck="false"
    autocapitalize="off"
    ${Synchronized(control, port)}
  ></textarea>`;
}
