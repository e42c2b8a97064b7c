import { html, nothing, render, type TemplateResult } from "lit/html.js";
import type { CodeModel } from "./codemodel.ts";
import type { CodeEditor, Mount } from "./editor.ts";
import { Shown, Synchronized } from "./textbox.ts";

const kEditor = "/editor.js";
let mount: Mount | null = null;
let loading: Promise<void> | null = null;

// Fetches the editor, once. Where that fails the plain box goes on serving, and the next box tries again.
function Load(): Promise<void> {
  loading ??= (import(kEditor) as Promise<{ MountEditor: Mount }>).then(
    (bundle) => void (mount = bundle.MountEditor),
    () => void (loading = null),
  );
  return loading;
}

// A box for code: a plain text box until the editor is there, which takes its place as soon as nothing is under way.
class QvCode extends HTMLElement {
  static formAssociated = true;
  private current: CodeModel | null = null;
  private editor: CodeEditor | null = null;

  constructor() {
    super();
    this.addEventListener("tell-caret", () => this.editor?.TellCaret());
    this.addEventListener("focusout", (event) => {
      const to = event.relatedTarget;
      if (to instanceof Node && this.closest("dialog")?.contains(to)) this.editor?.TellCaret();
      else this.editor?.Send();
    });
  }

  set model(model: CodeModel) {
    this.current = model;
    this.style.setProperty("--lines", String(model.lines));
    this.Draw(model);
    if (!mount) void Load().then(() => this.current && this.Draw(this.current));
  }

  disconnectedCallback(): void {
    if (!this.isConnected) this.editor?.Destroy();
  }

  override focus(): void {
    if (this.editor) this.editor.focus();
    else this.querySelector("textarea")?.focus();
  }

  private Draw(model: CodeModel): void {
    if (this.editor) this.editor.Update(model);
    else if (mount && this.Still(model)) this.Replace(mount, model);
    else render(Plain(model), this);
    this.classList.toggle("off", !model.control.enabled);
  }

  // Whether what the plain box holds is what the console has.
  private Still({ control, port }: CodeModel): boolean {
    const box = this.querySelector("textarea");
    return !box || (!port.Pending(Infinity) && box.value === Shown(control.text, true));
  }

  private Replace(create: Mount, model: CodeModel): void {
    const box = this.querySelector("textarea");
    const focused = box !== null && box === document.activeElement;
    const caret = box && { start: box.selectionStart, end: box.selectionEnd };
    render(nothing, this);
    this.id = model.id;
    this.dataset.control = model.control.name;
    // Styles go into a shadow root without a style element, which the page's policy forbids.
    this.editor = create(this.attachShadow({ mode: "open", delegatesFocus: true }), model, caret);
    if (focused) this.editor.focus();
  }
}

function Plain({ control, port, id, label, lines }: CodeModel): TemplateResult {
  return html`<textarea
    id=${id}
    class="text code"
    data-control=${control.name}
    rows=${lines}
    wrap="off"
    aria-label=${label}
    ?disabled=${!control.enabled}
    spellcheck="false"
    autocapitalize="off"
    ${Synchronized(control, port)}
  ></textarea>`;
}

customElements.define("qv-code", QvCode);

export function CodeBox(model: CodeModel): TemplateResult {
  return html`<qv-code .model=${model}></qv-code>`;
}
