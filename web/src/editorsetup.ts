import { defaultKeymap, history, historyKeymap, insertNewlineKeepIndent } from "@codemirror/commands";
import { bracketMatching, HighlightStyle, indentUnit, StreamLanguage, syntaxHighlighting } from "@codemirror/language";
import { vbScript } from "@codemirror/legacy-modes/mode/vbscript";
import { closeSearchPanel, findNext, findPrevious, openSearchPanel, search } from "@codemirror/search";
import { EditorState, type Extension } from "@codemirror/state";
import {
  highlightActiveLine,
  highlightActiveLineGutter,
  highlightSpecialChars,
  keymap,
  lineNumbers,
} from "@codemirror/view";
import { tags } from "@lezer/highlight";
import { Theme } from "./editortheme.ts";

// The script language, and the properties of a message in square brackets, which it does not know by itself.
const Language = StreamLanguage.define({
  ...vbScript,
  token(stream, state) {
    if (stream.match(/^\[QV_\w+\]/i)) return "atom";
    return vbScript.token(stream, state);
  },
  languageData: { commentTokens: { line: "'" } },
});

const Colours = HighlightStyle.define([
  { tag: tags.keyword, color: "var(--code-keyword)" },
  { tag: tags.atom, color: "var(--code-atom)" },
  { tag: tags.string, color: "var(--code-string)" },
  { tag: tags.number, color: "var(--code-number)" },
  { tag: tags.comment, color: "var(--code-comment)", fontStyle: "italic" },
  { tag: tags.standard(tags.variableName), color: "var(--code-function)" },
  { tag: tags.invalid, color: "var(--bad)" },
]);

const kFindPanel = { scope: "editor search-panel", preventDefault: true };

// Esc leaves the dialog, Alt and a letter is an access key, and Ctrl+I means nothing in a script.
const kLeft = new Set(["Escape", "Alt-l", "Mod-i"]);

const Keys = keymap.of([
  { key: "Mod-f", run: openSearchPanel, scope: "editor search-panel" },
  { key: "F3", run: findNext, shift: findPrevious, ...kFindPanel },
  { key: "Mod-g", run: findNext, shift: findPrevious, ...kFindPanel },
  { key: "Escape", run: closeSearchPanel, scope: "editor search-panel" },
  // The language's own indentation takes an If of one line for an open one, and leaves a Loop where its body stands.
  { key: "Enter", run: insertNewlineKeepIndent },
  ...historyKeymap,
  ...defaultKeymap.filter(({ key }) => key === undefined || !kLeft.has(key)),
]);

const Words = EditorState.phrases.of({
  next: "Next",
  previous: "Previous",
  "match case": "Match case",
  regexp: "Pattern",
  "by word": "Whole words",
  replace: "Replace",
  "replace all": "Replace all",
  close: "Close",
});

export const Extensions: Extension = [
  lineNumbers(),
  highlightActiveLineGutter(),
  highlightSpecialChars(),
  history(),
  indentUnit.of("    "),
  EditorState.tabSize.of(4),
  Language,
  syntaxHighlighting(Colours),
  bracketMatching(),
  highlightActiveLine(),
  search(),
  Keys,
  Words,
  Theme,
];
