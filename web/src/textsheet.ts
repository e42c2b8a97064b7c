export type Version = string | number;

// A file of the configuration directory as its window holds it.
export interface TextSheet {
  path: string;
  number: number;
  loaded: boolean;
  // Line ends of the file, put back when it is saved.
  ends: "\r\n" | "\n";
  text: string;
  saved: string;
  version: Version;
  fresh: boolean;
  busy: boolean;
  problem: string;
  // The text that another has put on the disk meanwhile.
  theirs: { text: string; version: Version; viewed: boolean } | null;
  // The person's own text, put aside for the disk's.
  aside: string | null;
  asking: boolean;
}

export function NewSheet(path: string, number: number): TextSheet {
  return {
    path,
    number,
    loaded: false,
    ends: "\r\n",
    text: "",
    saved: "",
    version: "",
    fresh: false,
    busy: false,
    problem: "",
    theirs: null,
    aside: null,
    asking: false,
  };
}

// Takes over what stands on the disk; `fresh` when there is no such file yet.
export function LoadSheet(sheet: TextSheet, text: string, version: Version, fresh: boolean): void {
  sheet.ends = /(^|[^\r])\n/.test(text) ? "\n" : "\r\n";
  sheet.text = sheet.saved = Lines(text);
  sheet.version = version;
  sheet.fresh = fresh;
  sheet.loaded = true;
}

export function Lines(text: string): string {
  return text.replace(/\r\n?/g, "\n");
}

export function NameOf(path: string): string {
  return path.split(/[\\/]/).at(-1) ?? path;
}
