import { html, nothing, type TemplateResult } from "lit/html.js";
import { Icon } from "./icons.ts";
import { NameOf, type TextSheet, type Version } from "./textsheet.ts";

// What the answers to a window's questions do.
export interface SheetPort {
  Save(sheet: TextSheet, version?: Version): void;
  TakeTheirs(sheet: TextSheet): void;
  Remove(sheet: TextSheet): void;
  Focus(sheet: TextSheet): void;
  Draw(): void;
}

// Something has come up that the person has to know, with what can be done about it.
interface Strip {
  kind: string;
  icon: string;
  text: string;
  choices: TemplateResult;
  role?: string;
  label?: string;
}

function Draw({ kind, icon, text, choices, role, label }: Strip): TemplateResult {
  return html`<div class="strip ${kind}" role=${role ?? nothing} aria-label=${label ?? nothing}>
    ${Icon(icon)}<span>${text}</span><span class="choices">${choices}</span>
  </div>`;
}

function Conflict(sheet: TextSheet, theirs: NonNullable<TextSheet["theirs"]>, port: SheetPort): TemplateResult {
  const show = (): void => {
    theirs.viewed = !theirs.viewed;
    port.Draw();
  };
  const keep = (): void => {
    sheet.theirs = null;
    port.Focus(sheet);
    port.Draw();
  };
  return Draw({
    kind: "warning",
    icon: "exclamation",
    role: "alert",
    text: "This file was changed on the disk after you opened it, so your text was not saved.",
    choices: html`<button @click=${show}>${theirs.viewed ? "Hide the disk's text" : "Show the disk's text"}</button>
      <button @click=${() => port.Save(sheet, theirs.version)}>Overwrite the file</button>
      <button @click=${() => port.TakeTheirs(sheet)}>Use the disk's text</button>
      <button @click=${keep}>Keep editing</button>`,
  });
}

function Aside(sheet: TextSheet, aside: string, port: SheetPort): TemplateResult {
  const back = (): void => {
    [sheet.text, sheet.aside] = [aside, null];
    port.Draw();
  };
  const discard = (): void => {
    sheet.aside = null;
    port.Draw();
  };
  return Draw({
    kind: "",
    icon: "information",
    text: "This is the text on the disk. Your own text is still here.",
    choices: html`<button @click=${back}>Bring back my text</button>
      <button class="plain" aria-label="Discard my text" title="Discard my text" @click=${discard}>${Icon("close")}</button>`,
  });
}

function Unsaved(sheet: TextSheet, port: SheetPort): TemplateResult {
  const drop = (): void => {
    port.Remove(sheet);
    port.Draw();
  };
  const keep = (): void => {
    sheet.asking = false;
    port.Focus(sheet);
    port.Draw();
  };
  return Draw({
    kind: "ask",
    icon: "question",
    role: "alertdialog",
    label: "Unsaved changes",
    text: `Save the changes to ${NameOf(sheet.path)}?`,
    choices: html`<button class="primary" @click=${() => port.Save(sheet)}>Save</button>
      <button @click=${drop}>Don't save</button>
      <button @click=${keep}>Keep editing</button>`,
  });
}

export function Questions(sheet: TextSheet, port: SheetPort): TemplateResult {
  return html`${sheet.theirs ? Conflict(sheet, sheet.theirs, port) : nothing}
  ${sheet.aside === null ? nothing : Aside(sheet, sheet.aside, port)}
  ${sheet.asking ? Unsaved(sheet, port) : nothing}`;
}
