import { html, nothing, render } from "lit/html.js";
import { repeat } from "lit/directives/repeat.js";
import { styleMap } from "lit/directives/style-map.js";
import { TypeAhead } from "./captions.ts";
import { Columns } from "./columns.ts";
import type { ListModel, ListRow } from "./listmodel.ts";
import { DrawRow, IsGrid, type RowPort } from "./listrow.ts";

const kSpare = 12;

// A list of rows, with columns or without, that draws only the rows that are seen.
export class QvList extends HTMLElement implements RowPort {
  private data: ListModel | null = null;
  private cursor = -1;
  private anchor = -1;
  private top = 0;
  private seen = 40;
  private rowHeight = 28;
  private readonly columns = new Columns(() => this.Draw());
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

  get model(): ListModel {
    if (!this.data) throw new Error("a list without a model");
    return this.data;
  }

  set model(model: ListModel) {
    const other = this.data?.identity !== model.identity;
    const anew = other || this.data?.filter !== model.filter;
    this.data = model;
    if (other) this.columns.Reset();
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

  private get scroller(): HTMLElement {
    return this.querySelector(".rows") ?? this;
  }

  private Row(index: number): ListRow | undefined {
    return this.model.rows[index - this.model.offset];
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
    const { offset, rows, total, OnNeed } = this.model;
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
    const { offset, rows } = this.model;
    return rows.slice(Math.max(0, low - offset), Math.max(0, high - offset + 1)).map((row) => row.key);
  }

  private Toggled(index: number): string[] {
    const { rows } = this.model;
    const here = new Set(rows.map((row) => row.key));
    const keys = rows.flatMap((row, n) => (row.selected !== (n + this.model.offset === index) ? [row.key] : []));
    return [...[...this.away].filter((key) => !here.has(key)), ...keys];
  }

  private Choose(index: number, keys: string[]): void {
    this.away = new Set(keys);
    this.model.OnSelect(index, keys);
  }

  Press(event: MouseEvent, index: number): void {
    const { multiple, enabled } = this.model;
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

  Menu(event: MouseEvent, index: number): void {
    const { OnMenu } = this.model;
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
    this.model.OnMenu?.(box.left + 24, Math.min(box.bottom, innerHeight - 40));
  }

  private Go(event: KeyboardEvent, to: number): void {
    const { total, multiple } = this.model;
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
    const { total, multiple, checkboxes, enabled, rows } = this.model;
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
    else if (event.key === "Enter" && this.cursor >= 0 && this.hasAttribute("opens")) this.model.OnOpen(this.cursor);
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
    const { rows, offset } = this.model;
    if (rows.length === 0) return;
    const found = this.words.Find(event.key, rows.length, this.cursor - offset, (n) => rows[n]?.cells[0] ?? "");
    if (found >= 0) this.Go(event, found + offset);
  }

  private Check(index: number): void {
    const row = this.Row(index);
    if (row && this.model.enabled) this.model.OnCheck?.(index, !row.checked);
  }

  private Draw(): void {
    if (!this.data) return;
    const { data, rowHeight, top } = this;
    const first = Math.max(0, Math.min(top, data.total) - kSpare);
    const last = Math.min(data.total, top + this.seen + kSpare);
    const indices = Array.from({ length: Math.max(0, last - first) }, (_, n) => first + n);
    const { columns } = data;
    const active = this.cursor >= first && this.cursor < last ? `${data.id}-${this.cursor}` : nothing;
    const grid = IsGrid(data);
    const style = styleMap({ "--columns": columns ? this.columns.Tracks(columns, data.fit) : "minmax(0, 1fr)" });
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
        ${columns ? this.columns.Head(columns, data) : nothing}
        <div class="body" role=${grid ? "rowgroup" : "presentation"} style="height:${data.total * rowHeight}px">
          <div class="shown" role="presentation" style="transform:translateY(${first * rowHeight}px)">
            ${repeat(
              indices,
              (index) => index,
              (index) => DrawRow(data, index, index === this.cursor, this),
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

  Tick(event: MouseEvent, index: number): void {
    event.stopPropagation();
    this.cursor = index;
    this.Check(index);
    this.Draw();
  }
}

customElements.define("qv-list", QvList);
