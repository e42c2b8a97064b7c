import { html, type TemplateResult } from "lit/html.js";
import { Dragging } from "./drag.ts";

// In pixels.
const kNarrowest = 140;
const kStep = 16;

// The bar between the tree and the pane, which sets the tree's width by mouse and by keyboard.
export function Splitter(width: number, set: (width: number) => void): TemplateResult {
  const widest = innerWidth / 2;
  const go = (wanted: number): void => set(Math.max(kNarrowest, Math.min(Math.round(wanted), widest)));
  return html`<div
    class="splitter"
    role="separator"
    tabindex="0"
    aria-orientation="vertical"
    aria-label="Width of the server tree"
    aria-valuemin=${kNarrowest}
    aria-valuemax=${Math.round(widest)}
    aria-valuenow=${width}
    @pointerdown=${(e: PointerEvent) => Dragging(e, (dx) => go(width + dx))}
    @keydown=${(e: KeyboardEvent) => {
      if (e.key === "ArrowLeft") go(width - kStep);
      else if (e.key === "ArrowRight") go(width + kStep);
      else return;
      e.preventDefault();
    }}
  ></div>`;
}
