import { svg, html, nothing, type SVGTemplateResult, type TemplateResult } from "lit/html.js";

// Pictures of 16 by 16, drawn with lines in the text's colour (class "l") and areas in a tone (class "a").
const funnel = svg`<path class="a" d="M2.5 3h11L9.5 8v5l-3-1.8V8z"/><path class="l" d="M2.5 3h11L9.5 8v5l-3-1.8V8z"/>`;

const pictures: Record<string, SVGTemplateResult> = {
  // Nodes of the tree.
  "1": funnel,
  "8": svg`<path class="a" d="M8 1.8 13.5 4v4c0 3.2-2.3 5.2-5.5 6.4C4.8 13.2 2.5 11.2 2.5 8V4z"/><path class="l"
    d="M8 1.8 13.5 4v4c0 3.2-2.3 5.2-5.5 6.4C4.8 13.2 2.5 11.2 2.5 8V4zM5.6 8l1.8 1.8 3.2-3.4"/>`,
  "100": svg`<path class="a" d="M2 3.5h12v8H2z"/><path class="l" d="M2 3.5h12v8H2zM5.5 14h5M8 11.5V14"/>`,
  "101": svg`<path class="a" d="M3 2.5h10v4.6H3zM3 8.9h10v4.6H3z"/><path class="l"
    d="M3 2.5h10v4.6H3zM3 8.9h10v4.6H3zM5.2 4.8h.1M5.2 11.2h.1M9 4.8h2M9 11.2h2"/>`,
  "103": svg`<path class="a" d="M1.8 4h4.4l1.4 1.6h6.6v7.4H1.8z"/><path class="l" d="M1.8 4h4.4l1.4 1.6h6.6v7.4H1.8z"/>`,
  "104": svg`<path class="a" d="M2 7 8 2.5 14 7v6.5H2z"/><path class="l" d="M2 7 8 2.5 14 7v6.5H2zM6 13.5v-4h4v4"/>`,
  // Rows of the result pane.
  "7": svg`<g class="on">${funnel}</g><circle class="on-dot" cx="12" cy="12" r="3.4"/><path class="mark"
    d="m10.5 12 1.1 1.1 2-2.2"/>`,
  "6": svg`<g class="off">${funnel}</g><circle class="off-dot" cx="12" cy="12" r="3.4"/><path class="mark"
    d="M10.6 12h2.8"/>`,
  "4": svg`<path class="a" d="M2 4.5 4.2 9h-4.4zM14 4.5 16.2 9h-4.4z" transform="matrix(.9 0 0 .9 .8 .6)"/><path class="l"
    d="M8 2.5v11M4.8 13.5h6.4M2.6 4.6h10.8M1 9l1.6-4.2L4.4 9zM11.6 9l1.7-4.2L15 9z"/>`,
  "105": svg`<path class="a" d="M1.8 3.5h12.4v9H1.8z"/><path class="l" d="M1.8 3.5h12.4v9H1.8zM2 4l6 4.8L14 4"/>`,
  // Buttons.
  add: svg`<path class="l" d="M8 3v10M3 8h10"/>`,
  open: svg`<path class="l" d="M10.8 3 13 5.2 5.6 12.6l-2.8.6.6-2.8z"/>`,
  delete: svg`<path class="l" d="M3 4.2h10M6.2 4V2.6h3.6V4M4.2 4.4l.7 9h6.2l.7-9M6.8 6.8v4M9.2 6.8v4"/>`,
  properties: svg`<path class="l" d="M2.5 4.5h6M11.5 4.5h2M2.5 11.5h2M7.5 11.5h6"/><circle class="l" cx="10" cy="4.5"
    r="1.5"/><circle class="l" cx="6" cy="11.5" r="1.5"/>`,
  refresh: svg`<path class="l" d="M13 8a5 5 0 1 1-1.6-3.7L13 5.6M13 2.6v3h-3"/>`,
  up: svg`<path class="l" d="M8 13V3.4M4 7.2l4-4 4 4"/>`,
  down: svg`<path class="l" d="M8 3v9.6M4 8.8l4 4 4-4"/>`,
  twisty: svg`<path class="l" d="m6.2 4.2 3.8 3.8-3.8 3.8"/>`,
  find: svg`<circle class="l" cx="7" cy="7" r="4.2"/><path class="l" d="m10.2 10.2 3.3 3.3"/>`,
  close: svg`<path class="l" d="m4 4 8 8M12 4l-8 8"/>`,
  ascending: svg`<path class="l" d="m4.5 9.6 3.5-3.4 3.5 3.4"/>`,
  descending: svg`<path class="l" d="m4.5 6.4 3.5 3.4 3.5-3.4"/>`,
  // Message boxes and notices.
  critical: svg`<circle class="f" cx="8" cy="8" r="7"/><path class="m" d="m5.5 5.5 5 5M10.5 5.5l-5 5"/>`,
  exclamation: svg`<path class="f" d="M8 1.4 15.2 14.3H.8z"/><path class="m" d="M8 6v4.2M8 12.2v.1"/>`,
  question: svg`<circle class="f" cx="8" cy="8" r="7"/><path class="m" d="M6 6.3c0-2.7 4-2.6 4-.1C10 7.8 8 7.8 8 9.5M8 11.7v.1"/>`,
  information: svg`<circle class="f" cx="8" cy="8" r="7"/><path class="m" d="M8 7.4v4M8 4.7v.1"/>`,
};

// Pictures say nothing that a text beside them does not say, so they are hidden from screen readers.
export function Icon(name: string | number, more = ""): TemplateResult | typeof nothing {
  const picture = pictures[String(name)];
  if (!picture) return nothing;
  return html`<svg class="icon i-${name} ${more}" viewBox="0 0 16 16" aria-hidden="true">${picture}</svg>`;
}
