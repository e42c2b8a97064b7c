import { html, nothing, type TemplateResult } from "lit/html.js";
import { Caption, Plain } from "./captions.ts";
import { Button, ControlOf, Find, IdOf, Label, type Place } from "./controls.ts";
import type { Control, Form, Layout } from "./protocol.ts";

const kClasses = { column: "column", row: "across", indent: "indent column" };

type Drawn = TemplateResult | typeof nothing;

// Whether anything of it is to be seen; what is not takes no room.
function Seen(form: Form, layout: Layout): boolean {
  const visible = (name: string): boolean => Find(form, name)?.visible ?? false;
  switch (layout.kind) {
    case "control":
    case "field":
      return visible(layout.control);
    case "frame":
      return visible(layout.control);
    case "buttons":
      return layout.items.some(visible);
    case "side":
      return Seen(form, layout.main) || layout.buttons.some(visible);
    default:
      return layout.items.some((item) => Seen(form, item));
  }
}

function Grows(layout: Layout): boolean {
  if (layout.kind === "control" || layout.kind === "field") return layout.grow ?? false;
  if (layout.kind === "side") return Grows(layout.main);
  return "items" in layout && layout.kind !== "buttons" && layout.items.some(Grows);
}

function Buttons(place: Place, names: string[]): Drawn[] {
  return names.map((name) => {
    const control = Find(place.form, name);
    return control?.kind === "button" && control.visible ? Button(place, control) : nothing;
  });
}

function Items(place: Place, items: Layout[]): Drawn[] {
  return items.map((item) => (Seen(place.form, item) ? Draw(place, item) : nothing));
}

// A tall field has its label above, any other beside it.
function Field(place: Place, layout: Layout & { kind: "field" }): Drawn {
  const { form } = place;
  const control = Find(form, layout.control);
  const label = Find(form, layout.label);
  if (!control) return nothing;
  if (control.kind === "label" && control.look === "heading") {
    return html`<div class="titled">
      ${label?.kind === "label" && label.visible ? Label(place, label) : nothing}${ControlOf(place, control)}
    </div>`;
  }
  const tall = control.kind === "list" || control.kind === "listview" || (control.kind === "text" && control.multiline);
  const hints = (layout.hints ?? []).map((name) => {
    const hint = Find(form, name);
    return hint ? ControlOf(place, hint) : nothing;
  });
  const target = control.kind === "list" || control.kind === "listview" ? "" : IdOf(place, control.name);
  const note = layout.note ? `${IdOf(place, control.name)}-note` : undefined;
  const spaced = { ...place, lines: layout.lines, note };
  const short = control.kind === "text" && control.maxLength > 0 && control.maxLength <= 20 ? "short" : "";
  return html`<div class="field ${tall ? "tall" : ""} ${layout.grow ? "grow" : ""} ${short}">
    ${label?.kind === "label" && label.visible ? Label(place, label, target) : html`<span></span>`}
    <div class="value ${note ? "noted" : ""}">
      ${ControlOf(spaced, control)}${hints}${note ? html`<span class="note" id=${note}>${layout.note}</span>` : nothing}
    </div>
  </div>`;
}

function Draw(place: Place, layout: Layout): Drawn {
  switch (layout.kind) {
    case "control": {
      const control = Find(place.form, layout.control);
      if (!control) return nothing;
      const drawn = ControlOf({ ...place, lines: layout.lines }, control);
      return html`<div class="single s-${control.kind} ${layout.grow ? "grow" : ""}">${drawn}</div>`;
    }
    case "field":
      return Field(place, layout);
    case "frame": {
      const frame = Find(place.form, layout.control);
      const caption = frame?.kind === "frame" ? frame.caption : "";
      return html`<fieldset class="frame ${layout.items.some(Grows) ? "grow" : ""}" id=${IdOf(place, layout.control)}>
        ${caption ? html`<legend>${Caption(caption)}</legend>` : nothing}
        <div class="column">${Items(place, layout.items)}</div>
      </fieldset>`;
    }
    case "buttons":
      return html`<div class="buttons">${Buttons(place, layout.items)}</div>`;
    case "side":
      return html`<div class="side ${Grows(layout) ? "grow" : ""}">
        <div class="main">${Items(place, [layout.main])}</div>
        <div class="stack">${Buttons(place, layout.buttons)}</div>
      </div>`;
    default:
      return html`<div class="${kClasses[layout.kind]} ${Grows(layout) ? "grow" : ""}">
        ${Items(place, layout.items)}
      </div>`;
  }
}

// A form that states no layout: its controls one per line, those of a frame inside it.
function Plainly(form: Form, parent = ""): Layout[] {
  const inside = (control: Control): Layout =>
    control.kind === "frame"
      ? { kind: "frame", control: control.name, items: Plainly(form, control.name) }
      : { kind: "control", control: control.name };
  return form.controls.filter((c) => (c.parent ?? "") === parent).map(inside);
}

function Labels(form: Form, layout: Layout, into: Map<string, string>): Map<string, string> {
  if (layout.kind === "field") {
    const label = Find(form, layout.label);
    if (label?.kind === "label" && label.visible) into.set(layout.control, Plain(label.caption));
  } else if (layout.kind === "side") Labels(form, layout.main, into);
  else if (layout.kind === "column" || layout.kind === "row" || layout.kind === "indent" || layout.kind === "frame") {
    layout.items.forEach((item) => Labels(form, item, into));
  }
  return into;
}

// The field that a label names, for its access key.
export function FieldOf(layout: Layout | undefined, label: string): string | null {
  if (!layout) return null;
  if (layout.kind === "field") return layout.label === label ? layout.control : null;
  if (layout.kind === "side") return FieldOf(layout.main, label);
  if (layout.kind === "control" || layout.kind === "buttons") return null;
  return layout.items.reduce<string | null>((found, item) => found ?? FieldOf(item, label), null);
}

// The body of a form and, apart, its row of buttons, which stays in sight.
export function FormParts(place: Omit<Place, "labels">): { body: Drawn; foot: Drawn } {
  const { form } = place;
  const layout = form.layout ?? { kind: "column" as const, items: Plainly(form) };
  const whole: Place = { ...place, labels: Labels(form, layout, new Map()) };
  const last = layout.kind === "column" ? layout.items.at(-1) : undefined;
  if (layout.kind !== "column" || last?.kind !== "buttons") return { body: Draw(whole, layout), foot: nothing };
  const body = Draw(whole, { kind: "column", items: layout.items.slice(0, -1) });
  return { body, foot: Seen(form, last) ? Draw(whole, last) : nothing };
}
