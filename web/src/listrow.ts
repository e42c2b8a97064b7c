import { html, nothing, type TemplateResult } from "lit/html.js";
import { classMap } from "lit/directives/class-map.js";
import { Icon } from "./icons.ts";
import type { ListModel } from "./listmodel.ts";

// What the pointer does to a row.
export interface RowPort {
  Press(event: MouseEvent, index: number): void;
  Menu(event: MouseEvent, index: number): void;
  // On the row's check box.
  Tick(event: MouseEvent, index: number): void;
}

// Rows with columns or check boxes are a grid to a screen reader, others a list of choices.
export function IsGrid(model: ListModel): boolean {
  return model.columns !== null || model.checkboxes;
}

export function DrawRow(model: ListModel, index: number, cursor: boolean, port: RowPort): TemplateResult {
  const { id, columns, checkboxes, total, enabled } = model;
  const row = model.rows[index - model.offset];
  const grid = IsGrid(model);
  const cells = row?.cells ?? [];
  const count = columns?.length ?? 1;
  const classes = classMap({ row: true, selected: row?.selected ?? false, cursor });
  const lead = html`${checkboxes
      ? html`<span
          class="box"
          role="checkbox"
          aria-checked=${row?.checked ? "true" : "false"}
          aria-label=${cells[0] ?? ""}
          aria-disabled=${enabled ? nothing : "true"}
          @click=${(e: MouseEvent) => port.Tick(e, index)}
          @dblclick=${(e: MouseEvent) => e.stopPropagation()}
        ></span>`
      : nothing}${row?.icon ? Icon(row.icon) : nothing}`;
  const texts = Array.from({ length: count }, (_, n) => cells[n] ?? "");
  return html`<div
    class=${classes}
    id="${id}-${index}"
    role=${grid ? "row" : "option"}
    aria-selected=${row?.selected ? "true" : "false"}
    aria-rowindex=${grid ? index + (columns ? 2 : 1) : nothing}
    aria-posinset=${grid ? nothing : index + 1}
    aria-setsize=${grid ? nothing : total}
    @click=${(e: MouseEvent) => port.Press(e, index)}
    @dblclick=${() => enabled && model.OnOpen(index)}
    @contextmenu=${(e: MouseEvent) => port.Menu(e, index)}
  >
    ${texts.map(
      (text, n) =>
        html`<div
          class=${classMap({ cell: true, numeric: columns?.[n]?.numeric ?? false })}
          role=${grid ? "gridcell" : nothing}
          @pointerenter=${Overflow}
        >
          ${n === 0 ? lead : nothing}${row?.emphasis?.includes(n)
            ? html`<strong class="words">${text}</strong>`
            : html`<span class="words">${row ? text : "…"}</span>`}
        </div>`,
    )}
  </div>`;
}

// A text that is cut off shows itself whole as a tip.
function Overflow(event: Event): void {
  const cell = event.currentTarget as HTMLElement;
  const text = cell.querySelector<HTMLElement>(".words");
  if (text && text.scrollWidth > text.clientWidth) cell.title = text.textContent;
  else cell.removeAttribute("title");
}
