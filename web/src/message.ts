import { html, type TemplateResult } from "lit/html.js";
import { Icon } from "./icons.ts";
import type { Message } from "./protocol.ts";
import type { Session } from "./session.ts";
import { Step, Window } from "./window.ts";

const kCaptions = { ok: "OK", yes: "Yes", no: "No" };

export function MessageBox(session: Session, message: Message, extra: unknown): TemplateResult {
  const answer = (button: "ok" | "yes" | "no"): void => void session.Command({ do: "answer", button });
  const escape = message.buttons.length === 1 ? message.buttons[0] : undefined;
  return Window({
    id: "message",
    kind: `box box-${message.icon}`,
    title: message.title,
    alert: "message-text",
    body: html`<div class="message">
        ${Icon(message.icon, "big")}
        <p id="message-text">${message.text}</p>
      </div>
      ${extra}`,
    foot: html`<div class="buttons">
      ${message.buttons.map(
        (button, n) =>
          html`<button class=${n === 0 ? "primary" : ""} data-answer=${button} @click=${() => answer(button)}>
            ${kCaptions[button]}
          </button>`,
      )}
    </div>`,
    Close: escape ? () => answer(escape) : null,
    Key(event) {
      const root = event.currentTarget as HTMLElement;
      const stops = [...root.querySelectorAll<HTMLElement>("[data-answer]")];
      const meant = message.buttons.find((button) => event.key.toLowerCase() === kCaptions[button][0]?.toLowerCase());
      if (event.key === "Escape" && escape) answer(escape);
      else if (event.key === "Tab" || event.key === "ArrowRight" || event.key === "ArrowDown") {
        Step(stops, event.shiftKey)?.focus();
      } else if (event.key === "ArrowLeft" || event.key === "ArrowUp") Step(stops, true)?.focus();
      else if (meant && message.buttons.length > 1 && !event.ctrlKey && !event.metaKey) answer(meant);
      else if (event.key !== "Escape") return;
      event.preventDefault();
    },
    Opened: (dialog) => dialog.querySelector<HTMLElement>("[data-answer]")?.focus(),
  });
}
