import { html, nothing, type TemplateResult } from "lit/html.js";
import { live } from "lit/directives/live.js";
import { Caption, Plain } from "./captions.ts";
import { CodeBox } from "./code.ts";
import { Icon } from "./icons.ts";
import "./list.ts";
import type { ListModel } from "./listmodel.ts";
import type {
  ButtonControl,
  CheckControl,
  Control,
  Form,
  LabelControl,
  ListControl,
  ListViewControl,
  TextControl,
} from "./protocol.ts";
import type { FormPort } from "./session.ts";
import { Synchronized } from "./textbox.ts";

// What drawing a control needs to know of the form around it.
export interface Place {
  form: Form;
  port: FormPort;
  // Prefix of element ids, one per open form.
  prefix: string;
  // The names of the controls that are told by a label or caption of their own.
  labels: Map<string, string>;
  lines?: number | undefined;
  // The element that says what the control's value means.
  note?: string | undefined;
}

// Twips in a pixel.
const kTwips = 15;

export function IdOf(place: Place, name: string): string {
  return `${place.prefix}-${name.replace(/[^\w-]/g, "_")}`;
}

export function Find(form: Form, name: string): Control | undefined {
  return form.controls.find((control) => control.name === name);
}

// What a field is called: its label, or else what stands before it in its frame, or the frame, or the form.
function LabelOf(place: Place, control: Control): string {
  const label = place.labels.get(control.name);
  if (label) return label;
  const { controls, caption } = place.form;
  const captions = controls
    .slice(0, controls.indexOf(control))
    .filter((c) => c.visible && c.parent === control.parent)
    .flatMap((c) => (c.kind === "label" || c.kind === "option" || c.kind === "check" ? [Plain(c.caption)] : []));
  const frame = controls.find((c) => c.name === control.parent);
  return captions.at(-1) ?? (frame?.kind === "frame" ? Plain(frame.caption) : Plain(caption));
}

export function Label(place: Place, control: LabelControl, target = ""): TemplateResult {
  const id = IdOf(place, control.name);
  const look = control.look ?? "";
  const off = control.enabled ? "" : "off";
  if (target) return html`<label class="label ${off}" id=${id} for=${target}>${Caption(control.caption)}</label>`;
  if (look === "notice") {
    return html`<div class="strip warning" id=${id} role="note">${Icon("exclamation")}<span>${Caption(control.caption)}</span></div>`;
  }
  return html`<div class="label ${look} ${off}" id=${id}>${Caption(control.caption)}</div>`;
}

export function Button(place: Place, control: ButtonControl): TemplateResult {
  const tip = control.tip ?? "";
  const picture = control.picture;
  return html`<button
    id=${IdOf(place, control.name)}
    class="${control.default ? "primary" : ""} ${picture ? "picture" : ""}"
    data-control=${control.name}
    ?disabled=${!control.enabled}
    title=${tip || nothing}
    aria-label=${picture ? tip || (picture === "up" ? "Move up" : "Move down") : nothing}
    @click=${() => place.port.Command({ do: "click", control: control.name })}
  >
    ${picture ? Icon(picture) : Caption(control.caption)}
  </button>`;
}

function Check(place: Place, control: CheckControl): TemplateResult {
  const send = (): number => place.port.Edit({ do: "click", control: control.name });
  const option = control.kind === "option";
  return html`<label class="check ${control.enabled ? "" : "off"}">
    <input
      id=${IdOf(place, control.name)}
      data-control=${control.name}
      type=${option ? "radio" : "checkbox"}
      name=${option ? `${place.prefix}-${control.parent ?? ""}` : nothing}
      ?disabled=${!control.enabled}
      .checked=${live(control.checked)}
      @change=${send}
    />
    <span>${Caption(control.caption)}</span>
  </label>`;
}

function Text(place: Place, control: TextControl): TemplateResult {
  const id = IdOf(place, control.name);
  const label = place.labels.has(control.name) ? nothing : LabelOf(place, control);
  const back = control.back === "buttonface" ? "face" : "";
  if (control.code) {
    return CodeBox({ control, port: place.port, id, label: LabelOf(place, control), lines: place.lines ?? 16 });
  }
  if (control.multiline) {
    return html`<textarea
      id=${id}
      class="text ${back}"
      data-control=${control.name}
      rows=${place.lines ?? 4}
      aria-label=${label}
      ?disabled=${!control.enabled}
      maxlength=${control.maxLength > 0 ? control.maxLength : nothing}
      spellcheck="false"
      ${Synchronized(control, place.port)}
    ></textarea>`;
  }
  return html`<input
    id=${id}
    class="text ${back}"
    type="text"
    data-control=${control.name}
    aria-label=${label}
    aria-describedby=${place.note ?? nothing}
    ?disabled=${!control.enabled}
    maxlength=${control.maxLength > 0 ? control.maxLength : nothing}
    style=${control.maxLength > 0 && control.maxLength <= 20 ? `--chars:${control.maxLength}` : nothing}
    spellcheck="false"
    autocomplete="off"
    ${Synchronized(control, place.port)}
  />`;
}

function Combo(place: Place, control: ListControl): TemplateResult {
  const label = place.labels.has(control.name) ? nothing : LabelOf(place, control);
  const chosen = (e: Event): number =>
    place.port.Edit({ do: "select", control: control.name, index: Number((e.target as HTMLSelectElement).value) });
  return html`<select
    id=${IdOf(place, control.name)}
    class="text"
    data-control=${control.name}
    aria-label=${label}
    ?disabled=${!control.enabled}
    @change=${chosen}
  >
    ${control.selected < 0 ? html`<option value="-1" selected hidden></option>` : nothing}
    ${control.items.map(
      (item, n) => html`<option value=${n} .selected=${live(n === control.selected)}>${item}</option>`,
    )}
  </select>`;
}

function ListOf(place: Place, control: ListControl | ListViewControl): TemplateResult {
  const view = control.kind === "listview" ? control : null;
  const entries = view?.rows.map((r) => [r.text, ...r.cells]) ?? (control as ListControl).items.map((text) => [text]);
  const { name } = control;
  const { port, form } = place;
  const columns = view?.columns.map(({ caption, width }) => ({ caption, width: Math.round(width / kTwips) })) ?? [];
  const model: ListModel = {
    id: IdOf(place, name),
    label: LabelOf(place, control),
    columns: columns.length > 0 ? columns : null,
    fit: true,
    sort: null,
    rows: entries.map((cells, n) => ({
      key: String(n),
      icon: "",
      cells,
      selected: n === control.selected,
      checked: view?.rows[n]?.checked ?? false,
    })),
    offset: 0,
    total: entries.length,
    enabled: control.enabled,
    multiple: false,
    checkboxes: view?.checkboxes ?? false,
    identity: `${form.name}/${name}`,
    OnSelect: (index) => port.Edit({ do: "select", control: name, index }),
    OnOpen: (index) => port.Command({ do: "doubleClick", control: name, index }),
    OnCheck: (index, checked) => port.Edit({ do: "check", control: name, index, checked }),
  };
  const opens = !form.controls.some((c) => c.kind === "button" && c.default && c.enabled && c.visible);
  return html`<qv-list
    class="list ${control.enabled ? "" : "off"}"
    data-control=${name}
    ?opens=${opens}
    style="--lines:${place.lines ?? 6}"
    .model=${model}
  ></qv-list>`;
}

export function ControlOf(place: Place, control: Control): TemplateResult | typeof nothing {
  if (!control.visible) return nothing;
  switch (control.kind) {
    case "label":
      return Label(place, control);
    case "button":
      return Button(place, control);
    case "check":
    case "option":
      return Check(place, control);
    case "text":
      return Text(place, control);
    case "combo":
      return Combo(place, control);
    case "list":
    case "listview":
      return ListOf(place, control);
    case "frame":
      return nothing;
  }
}
