import { html, nothing, render, type TemplateResult } from "lit/html.js";
import { classMap } from "lit/directives/class-map.js";
import { repeat } from "lit/directives/repeat.js";
import { styleMap } from "lit/directives/style-map.js";
import { TypeAhead } from "./captions.ts";
import { Dragging } from "./drag.ts";
import { Icon } from "./icons.ts";

export interface ListRow {
  key: string;
  icon: string;
  cells: string[];
  // The cells that are set off from their like.
  emphasis?: number[];
  selected: boolean;
  checked: boolean;
}

export interface ListModel {
  id: string;
  label: string;
  // Without columns it is a plain list. Widths in pixels; the last column takes what is left. With `fit` the columns
  // share the list's own width in the ratio of theirs.
  // Numbers stand with their digits below each other.
  columns: { caption: string; width: number; numeric?: boolean }[] | null;
  fit: boolean;
  sort: { column: number; descending: boolean } | null;
  rows: ListRow[];
  // The rows are those from `offset` on of `total`.
  offset: number;
  total: number;
  enabled: boolean;
  multiple: boolean;
  checkboxes: boolean;
  // Changes when it is another list, so that scroll place, cursor and widths start afresh.
  identity: string;
  // Changes when the list holds other rows than before, so that scroll place and cursor start afresh.
  filter?: string;
  // `index` counts over all rows; -1 is the empty space.
  OnSelect: (index: number, keys: string[]) => void;
  OnOpen: (index: number) => void;
  OnCheck?: (index: number, checked: boolean) => void;
  OnSort?: (column: number) => void;
  OnMenu?: (x: number, y: number) => void;
  // The rows that are seen are not all there.
  OnNeed?: (offset: number) => void;
}

const kSpare = 12;

// A list of rows, with columns or without, that draws only the rows that are seen.
export class QvList extends HTMLElement {
  private data: ListModel | null = null;
  private cursor = -1;
  private anchor = -1;
  private top = 0;
  private seen = 40;
  private rowHeight = 28;
  private widths: (number | undefined)[] = [];
  private readonly words = new TypeAhead();
  private readonly resize = new ResizeObserver(() => this.Measure());
  // Rows that were chosen and have been scrolled out of what the console sends.
  private away = new Set<string>();

  connectedCallback(): void {
    this.resize.observe(this);
  }

  disconnectedCallback(): void {
    this.resize.disconnect();
  }

  set model(model: ListModel) {
    const other = this.data?.identity !== model.identity;
    const anew = other || this.data?.filter !== model.filter;
    this.data = model;
    if (other) this.widths = [];
    if (anew) {
      this.cursor = this.anchor = -1;
      this.away.clear();
      this.top = 0;
    }
    const chosen = model.rows.findIndex((row) => row.selected);
    if (chosen >= 0) {
      if (!model.multiple || this.cursor < 0) this.cursor = model.offset + chosen;
      if (this.anchor < 0) this.anchor = this.cursor;
    }
    this.cursor = Math.min(this.cursor, model.total - 1);
    this.Draw();
    if (anew) this.scroller.scrollTop = 0;
    if (!model.multiple && chosen >= 0 && document.activeElement !== this.scroller) this.Reveal(this.cursor);
    this.Measure();
  }

  override focus(options?: FocusOptions): void {
    this.scroller.focus(options);
  }

  private get model_(): ListModel {
    if (!this.data) throw new Error("a list without a model");
    return this.data;
  }

  private get scroller(): HTMLElement {
    return this.querySelector(".rows") ?? this;
  }

  private Row(index: number): ListRow | undefined {
    return this.model_.rows[index - this.model_.offset];
  }

  private Measure(): void {
    if (!this.data) return;
    const row = this.querySelector<HTMLElement>(".row");
    const rowHeight = row ? row.getBoundingClientRect().height : this.rowHeight;
    const seen = Math.ceil(this.scroller.clientHeight / Math.max(rowHeight, 1)) + 1;
    if (Math.abs(rowHeight - this.rowHeight) > 0.01 || seen !== this.seen) {
      this.rowHeight = rowHeight > 0 ? rowHeight : this.rowHeight;
      this.seen = seen;
      this.Draw();
    }
    this.Need();
  }

  private Need(): void {
    const { offset, rows, total, OnNeed } = this.model_;
    const first = Math.min(this.top, Math.max(total - 1, 0));
    const last = Math.min(total, this.top + this.seen);
    if (OnNeed && total > rows.length && (first < offset || last > offset + rows.length)) {
      const from = Math.max(0, Math.min(first - 200, total - 500));
      if (from !== offset) OnNeed(from);
    }
  }

  private Scrolled(): void {
    const top = Math.floor(this.scroller.scrollTop / this.rowHeight);
    if (top === this.top) return;
    this.top = top;
    this.Draw();
    this.Need();
  }

  private Reveal(index: number): void {
    const { scroller, rowHeight } = this;
    const head = this.querySelector(".head")?.getBoundingClientRect().height ?? 0;
    const y = index * rowHeight;
    if (y < scroller.scrollTop) scroller.scrollTop = y;
    else if (y + rowHeight > scroller.scrollTop + scroller.clientHeight - head) {
      scroller.scrollTop = y + rowHeight - scroller.clientHeight + head;
    }
  }

  private Keys(indices: number[]): string[] {
    return indices.flatMap((index) => this.Row(index)?.key ?? []);
  }

  private Range(from: number, to: number): string[] {
    const [low, high] = from < to ? [from, to] : [to, from];
    const { offset, rows } = this.model_;
    return rows.slice(Math.max(0, low - offset), Math.max(0, high - offset + 1)).map((row) => row.key);
  }

  private Toggled(index: number): string[] {
    const { rows } = this.model_;
    const here = new Set(rows.map((row) => row.key));
    const keys = rows.flatMap((row, n) => (row.selected !== (n + this.model_.offset === index) ? [row.key] : []));
    return [...[...this.away].filter((key) => !here.has(key)), ...keys];
  }

  private Choose(index: number, keys: string[]): void {
    this.away = new Set(keys);
    this.model_.OnSelect(index, keys);
  }

  private Press(event: MouseEvent, index: number): void {
    const { multiple, enabled } = this.model_;
    if (!enabled || event.detail > 1) return;
    if (index < 0) {
      this.Choose(-1, []);
      return;
    }
    this.cursor = index;
    if (multiple && event.shiftKey) {
      if (this.anchor < 0) this.anchor = 0;
      this.Choose(index, this.Range(this.anchor, index));
    } else if (multiple && (event.ctrlKey || event.metaKey)) {
      this.anchor = index;
      this.Choose(index, this.Toggled(index));
    } else {
      this.anchor = index;
      this.Choose(index, this.Keys([index]));
    }
    this.Draw();
  }

  private Menu(event: MouseEvent, index: number): void {
    const { OnMenu } = this.model_;
    if (!OnMenu) return;
    event.preventDefault();
    this.scroller.focus();
    if (index >= 0 && this.Row(index)?.selected !== true) {
      this.cursor = this.anchor = index;
      this.Choose(index, this.Keys([index]));
    } else if (index < 0) {
      this.Choose(-1, []);
    }
    OnMenu(event.clientX, event.clientY);
  }

  private KeyboardMenu(): void {
    const row = this.querySelector(".row.cursor") ?? this.scroller;
    const box = row.getBoundingClientRect();
    this.model_.OnMenu?.(box.left + 24, Math.min(box.bottom, innerHeight - 40));
  }

  private Go(event: KeyboardEvent, to: number): void {
    const { total, multiple } = this.model_;
    if (total === 0) return;
    const index = Math.max(0, Math.min(total - 1, to));
    this.cursor = index;
    this.Reveal(index);
    if (multiple && event.shiftKey) {
      if (this.anchor < 0) this.anchor = 0;
      this.Choose(index, this.Range(this.anchor, index));
    } else if (!(multiple && event.ctrlKey)) {
      this.anchor = index;
      if (this.Row(index)) this.Choose(index, this.Keys([index]));
    }
    this.Draw();
  }

  private Key(event: KeyboardEvent): void {
    const { total, multiple, checkboxes, enabled, rows } = this.model_;
    if (!enabled || event.target !== this.scroller || event.altKey) return;
    const page = Math.max(1, this.seen - 2);
    const steps: Record<string, number> = {
      ArrowDown: this.cursor + 1,
      ArrowUp: this.cursor - 1,
      Home: 0,
      End: total - 1,
      PageDown: this.cursor + page,
      PageUp: this.cursor - page,
    };
    const step = steps[event.key];
    if (step !== undefined) this.Go(event, step);
    else if (event.key === "a" && event.ctrlKey && multiple) this.Choose(this.cursor, rows.map((row) => row.key));
    else if (event.key === " " && checkboxes) this.Check(this.cursor);
    else if (event.key === " " && this.cursor >= 0) this.Press(this.Space(event), this.cursor);
    else if ((event.key === "F10" && event.shiftKey) || event.key === "ContextMenu") this.KeyboardMenu();
    else if (event.key === "Enter" && this.cursor >= 0 && this.hasAttribute("opens")) this.model_.OnOpen(this.cursor);
    else if (event.key.length === 1 && !event.ctrlKey && !event.metaKey) this.Letter(event);
    else return;
    event.preventDefault();
    event.stopPropagation();
  }

  private Space(event: KeyboardEvent): MouseEvent {
    const { ctrlKey, shiftKey, metaKey } = event;
    return new MouseEvent("click", { ctrlKey, shiftKey, metaKey });
  }

  private Letter(event: KeyboardEvent): void {
    const { rows, offset } = this.model_;
    if (rows.length === 0) return;
    const found = this.words.Find(event.key, rows.length, this.cursor - offset, (n) => rows[n]?.cells[0] ?? "");
    if (found >= 0) this.Go(event, found + offset);
  }

  private Check(index: number): void {
    const row = this.Row(index);
    if (row && this.model_.enabled) this.model_.OnCheck?.(index, !row.checked);
  }

  private SetWidth(column: number, width: number): void {
    this.widths[column] = Math.max(40, Math.round(width));
    this.Draw();
  }

  private ResizeColumn(event: PointerEvent, column: number): void {
    const start = (event.currentTarget as HTMLElement).parentElement?.getBoundingClientRect().width ?? 0;
    Dragging(event, (dx) => this.SetWidth(column, start + dx));
  }

  private HeadKey(event: KeyboardEvent, column: number): void {
    const step = event.key === "ArrowRight" ? 1 : event.key === "ArrowLeft" ? -1 : 0;
    if (step === 0) return;
    event.preventDefault();
    event.stopPropagation();
    const head = event.currentTarget as HTMLElement;
    if (event.shiftKey) this.SetWidth(column, head.getBoundingClientRect().width + step * 16);
    else this.querySelectorAll<HTMLElement>(".head button")[column + step]?.focus();
  }

  private Draw(): void {
    if (!this.data) return;
    const { data, rowHeight, top } = this;
    const first = Math.max(0, Math.min(top, data.total) - kSpare);
    const last = Math.min(data.total, top + this.seen + kSpare);
    const indices = Array.from({ length: Math.max(0, last - first) }, (_, n) => first + n);
    const { columns } = data;
    const tracks = columns?.map((column, n) => {
      const own = this.widths[n];
      if (data.fit && own === undefined) return `minmax(6.25rem, ${Math.max(1, column.width)}fr)`;
      const width = `${own ?? column.width}px`;
      if (n < columns.length - 1) return width;
      return `minmax(${own === undefined ? `min(${width}, 10rem)` : width}, 1fr)`;
    });
    const active = this.cursor >= first && this.cursor < last ? `${data.id}-${this.cursor}` : nothing;
    const grid = columns !== null || data.checkboxes;
    const style = styleMap({ "--columns": tracks?.join(" ") ?? "minmax(0, 1fr)" });
    render(
      html`<div
        class="rows"
        id=${data.id}
        style=${style}
        role=${grid ? "grid" : "listbox"}
        tabindex=${data.enabled ? 0 : nothing}
        aria-label=${data.label}
        aria-disabled=${data.enabled ? nothing : "true"}
        aria-multiselectable=${data.multiple ? "true" : nothing}
        aria-rowcount=${grid ? data.total + (columns ? 1 : 0) : nothing}
        aria-activedescendant=${data.enabled ? active : nothing}
        @scroll=${() => this.Scrolled()}
        @keydown=${(e: KeyboardEvent) => this.Key(e)}
        @click=${(e: MouseEvent) => this.Outside(e) && this.Press(e, -1)}
        @dblclick=${(e: MouseEvent) => this.Outside(e) && data.enabled && data.OnOpen(-1)}
        @contextmenu=${(e: MouseEvent) => this.Outside(e) && this.Menu(e, -1)}
      >
        ${columns ? this.Head(columns) : nothing}
        <div class="body" role=${grid ? "rowgroup" : "presentation"} style="height:${data.total * rowHeight}px">
          <div class="shown" role="presentation" style="transform:translateY(${first * rowHeight}px)">
            ${repeat(
              indices,
              (index) => index,
              (index) => this.DrawRow(index, grid),
            )}
          </div>
        </div>
      </div>`,
      this,
    );
  }

  private Outside(event: MouseEvent): boolean {
    return !(event.target as Element).closest(".row, .head");
  }

  private Head(columns: { caption: string; width: number }[]): TemplateResult {
    const { sort, OnSort } = this.model_;
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
                @keydown=${(e: KeyboardEvent) => this.HeadKey(e, n)}
              >
                <span>${column.caption}</span>${mark}
              </button>`
            : html`<span class="caption">${column.caption}</span>`}
          <span class="grip" @pointerdown=${(e: PointerEvent) => this.ResizeColumn(e, n)}></span>
        </div>`;
      })}
    </div>`;
  }

  private DrawRow(index: number, grid: boolean): TemplateResult {
    const { id, columns, checkboxes, total, enabled } = this.model_;
    const row = this.Row(index);
    const cells = row?.cells ?? [];
    const count = columns?.length ?? 1;
    const classes = classMap({ row: true, selected: row?.selected ?? false, cursor: index === this.cursor });
    const lead = html`${checkboxes
        ? html`<span
            class="box"
            role="checkbox"
            aria-checked=${row?.checked ? "true" : "false"}
            aria-label=${cells[0] ?? ""}
            aria-disabled=${enabled ? nothing : "true"}
            @click=${(e: MouseEvent) => this.Tick(e, index)}
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
      @click=${(e: MouseEvent) => this.Press(e, index)}
      @dblclick=${() => enabled && this.model_.OnOpen(index)}
      @contextmenu=${(e: MouseEvent) => this.Menu(e, index)}
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

  private Tick(event: MouseEvent, index: number): void {
    event.stopPropagation();
    this.cursor = index;
    this.Check(index);
    this.Draw();
  }
}

// A text that is cut off shows itself whole as a tip.
function Overflow(event: Event): void {
  const cell = event.currentTarget as HTMLElement;
  const text = cell.querySelector<HTMLElement>(".words");
  if (text && text.scrollWidth > text.clientWidth) cell.title = text.textContent;
  else cell.removeAttribute("title");
}

customElements.define("qv-list", QvList);
