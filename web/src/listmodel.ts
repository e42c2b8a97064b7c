// What a list is told to show, and whom it tells what the person does.

export interface ListColumn {
  caption: string;
  // In pixels.
  width: number;
  // Numbers stand with their digits below each other.
  numeric?: boolean;
}

export interface ListSort {
  column: number;
  descending: boolean;
}

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
  // Without columns it is a plain list. The last column takes what is left; with `fit` the columns share the list's own
  // width in the ratio of theirs.
  columns: ListColumn[] | null;
  fit: boolean;
  sort: ListSort | null;
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
