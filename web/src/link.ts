import { html, nothing, type TemplateResult } from "lit/html.js";
import type { Link } from "./connection.ts";
import { Icon } from "./icons.ts";
import { Window } from "./window.ts";

interface Words {
  title: string;
  icon: string;
  lines: string[];
  button: string;
}

function WordsFor(link: Link, had: boolean): Words {
  const kept = "What was saved is kept. A dialog that was open was closed without saving.";
  switch (link.at) {
    case "refused":
      return {
        title: "This address is no longer valid",
        icon: "critical",
        lines: ["Open the address that qvadmin serve prints when it starts."],
        button: "Try again",
      };
    case "unreachable": {
      const seconds = Math.max(0, Math.ceil((link.retryAt - Date.now()) / 1000));
      const lines = ["The console's server does not answer.", `The next try is in ${seconds} s.`];
      const title = had ? "The session has ended" : "No connection";
      return { title, icon: "exclamation", lines: had ? [...lines, kept] : lines, button: "Try now" };
    }
    case "opening":
      return { title: "Connecting", icon: "information", lines: ["Starting a new session…"], button: "Start again" };
    default:
      return { title: "The session has ended", icon: "information", lines: [kept], button: "Start again" };
  }
}

// Stands in front of everything while there is no session. Its button keeps the focus while a try is under way.
export function LinkWindow(link: Link, had: boolean, again: () => void): TemplateResult {
  const { title, icon, lines, button } = WordsFor(link, had);
  const opening = link.at === "opening";
  return Window({
    id: "link",
    kind: `box box-${icon}`,
    title,
    alert: "link-text",
    body: html`<div class="message">
      ${Icon(icon, "big")}
      <div id="link-text">${lines.map((line) => html`<p>${line}</p>`)}</div>
    </div>`,
    foot: html`<div class="buttons">
      <button class="primary" aria-disabled=${opening ? "true" : nothing} @click=${() => opening || again()}>${button}</button>
    </div>`,
    Close: null,
    Key(event) {
      if (event.key === "Escape") event.preventDefault();
    },
    Opened: (dialog) => dialog.querySelector<HTMLElement>(".foot button")?.focus(),
  });
}
