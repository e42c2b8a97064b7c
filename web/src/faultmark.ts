import { RangeSet, StateEffect, StateField } from "@codemirror/state";
import { Decoration, EditorView, gutter, GutterMarker } from "@codemirror/view";
import type { Fault } from "./fault.ts";

// Marks the line of a fault until the text changes.
export const MarkFault = StateEffect.define<Fault>();

interface Marked {
  line: number;
  tip: string;
}

class Sign extends GutterMarker {
  constructor(private readonly tip: string) {
    super();
  }

  override eq(other: Sign): boolean {
    return this.tip === other.tip;
  }

  override toDOM(): Node {
    const sign = document.createElement("span");
    sign.className = "qv-fault-sign";
    sign.title = this.tip;
    return sign;
  }
}

const marked = StateField.define<Marked | null>({
  create: () => null,
  update(value, tr) {
    const effect = tr.effects.find((e) => e.is(MarkFault));
    if (effect) {
      const { line, description } = effect.value;
      const { doc } = tr.state;
      return { line: doc.line(Math.max(1, Math.min(line, doc.lines))).from, tip: description };
    }
    return tr.docChanged ? null : value;
  },
  provide: (field) =>
    EditorView.decorations.from(field, (value) =>
      value
        ? Decoration.set(Decoration.line({ class: "qv-fault", attributes: { title: value.tip } }).range(value.line))
        : Decoration.none,
    ),
});

export const FaultMark = [
  marked,
  gutter({
    class: "qv-faults",
    markers: (view) => {
      const value = view.state.field(marked);
      return value ? RangeSet.of(new Sign(value.tip).range(value.line)) : RangeSet.empty;
    },
  }),
];
