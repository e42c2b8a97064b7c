import { html, nothing, type TemplateResult } from "lit/html.js";
import { Dragging } from "./drag.ts";
import { Icon } from "./icons.ts";
import type { ListColumn, ListModel } from "./listmodel.ts";

// The columns of a list: their head, and their widths, which the person may change.
export class Columns {
  private widths: (number | undefined)[] = [];

  constructor(private readonly onChange: () => void) {}

  Reset(): void {
    this.widths = [];
  }

  // The tracks of the grid in which the rows stand.
  Tracks(columns: ListColumn[], fit: boolean): string {
    const tracks = columns.map((column, n) => {
      const own = this.widths[n];
      if (fit && own === undefined) return `minmax(6.25rem, ${Math.max(1, column.width)}fr)`;
      const width = `${own ?? column.width}px`;
      if (n < columns.length - 1) return width;
      return `minmax(${own === undefined ? `min(${width}, 10rem)` : width}, 1fr)`;
    });
    return tracks.join(" ");
  }

  Head(columns: ListColumn[], { sort, OnSort }: ListModel): TemplateResult {
    return html`<div class="head" role="row" aria-rowindex="1">
      ${columns.map((column, n) => {
        const sorted = sort?.column === n ? (sort.descending ? "descending" : "ascending") : null;
        const mark = sorted ? Icon(sorted) : nothing;
        return html`<div class="th" role="columnheader" aria-sort=${sorted ?? nothing}>
          ${OnSort
            ? html`<button
                tabindex=${n === 0 ? 0 : -1}
                title="Sort by ${column.caption}. Shift and the arrow keys change the width."
                @click=${() => OnSort(n)}
                @keydown=${(e: KeyboardEvent) => this.Key(e, n)}
              >
                <span>${column.caption}</span>${mark}
              </button>`
            : html`<span class="caption">${column.caption}</span>`}
          <span class="grip" @pointerdown=${(e: PointerEvent) => this.Resize(e, n)}></span>
        </div>`;
      })}
    </div>`;
  }

  private Key(event: KeyboardEvent, column: number): void {
    const step = event.key === "ArrowRight" ? 1 : event.key === "ArrowLeft" ? -1 : 0;
    if (step === 0) return;
    event.preventDefault();
    event.stopPropagation();
    const button = event.currentTarget as HTMLElement;
    if (event.shiftKey) this.SetWidth(column, button.getBoundingClientRect().width + step * 16);
    else button.closest(".head")?.querySelectorAll("button")[column + step]?.focus();
  }

  private Resize(event: PointerEvent, column: number): void {
    const start = (event.currentTarget as HTMLElement).parentElement?.getBoundingClientRect().width ?? 0;
    Dragging(event, (dx) => this.SetWidth(column, start + dx));
  }

  private SetWidth(column: number, width: number): void {
    this.widths[column] = Math.max(40, Math.round(width));
    this.onChange();
  }
}
