import { html, type TemplateResult } from "lit/html.js";

interface Parts {
  before: string;
  key: string;
  after: string;
}

// A caption as it is shown: "&" marks the access key that follows it, "&&" is a literal "&".
export function Split(caption: string): Parts {
  const at = [...caption.matchAll(/&(&|[^&])/gu)].find((m) => m[1] !== "&");
  const plain = (text: string): string => text.replace(/&(&|$)/g, (_, next: string) => next);
  if (!at) return { before: plain(caption), key: "", after: "" };
  const key = at[1] ?? "";
  return { before: plain(caption.slice(0, at.index)), key, after: plain(caption.slice(at.index + 1 + key.length)) };
}

export function Plain(caption: string): string {
  const { before, key, after } = Split(caption);
  return before + key + after;
}

export function AccessKey(caption: string): string {
  return Split(caption).key.toLowerCase();
}

export function Caption(caption: string): TemplateResult {
  const { before, key, after } = Split(caption);
  if (!key) return html`${before}`;
  return html`<span>${before}<u>${key}</u>${after}</span>`;
}

// Whether a keystroke is Alt and a letter; Alt turns letters into signs on some keyboards, so the key's place counts too.
export function AltLetter(event: KeyboardEvent): string {
  if (!event.altKey || event.ctrlKey || event.metaKey) return "";
  if (/^[\p{L}\p{N}]$/u.test(event.key) && event.key.charCodeAt(0) < 128) return event.key.toLowerCase();
  return /^Key([A-Z])$/.exec(event.code)?.[1]?.toLowerCase() ?? event.key.toLowerCase();
}

// Finds the entry that typed letters mean, as lists do: letters typed in quick succession make a word, one letter
// typed again goes on to the next entry.
export class TypeAhead {
  private word = "";
  private at = 0;

  Find(letter: string, count: number, from: number, text: (index: number) => string): number {
    const now = performance.now();
    const letters = now - this.at > 800 ? letter : this.word + letter;
    this.at = now;
    this.word = letters.toLowerCase();
    const same = Array.from(this.word).every((c) => c === this.word[0]);
    const wanted = same ? (this.word[0] ?? "") : this.word;
    for (let step = same ? 1 : 0; step <= count; step++) {
      const index = (Math.max(from, 0) + step + (from < 0 && same ? -1 : 0)) % count;
      if (text(index).toLowerCase().startsWith(wanted)) return index;
    }
    return -1;
  }
}
