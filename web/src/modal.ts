import { noChange } from "lit/html.js";
import { AsyncDirective } from "lit/async-directive.js";
import { directive, type ElementPart } from "lit/directive.js";

// Opens the dialog it stands on as the browser's own modal dialog, and closes it before it leaves the page, so that
// the focus goes back to where it was.
class Modal extends AsyncDirective {
  private dialog: HTMLDialogElement | null = null;

  override render(_opened: (dialog: HTMLDialogElement) => void): unknown {
    return noChange;
  }

  override update(part: ElementPart, [opened]: [(dialog: HTMLDialogElement) => void]): unknown {
    if (this.dialog) return noChange;
    const dialog = part.element as HTMLDialogElement;
    this.dialog = dialog;
    queueMicrotask(() => {
      if (!dialog.isConnected || dialog.open) return;
      dialog.showModal();
      opened(dialog);
    });
    return noChange;
  }

  protected override disconnected(): void {
    this.dialog?.close();
  }
}

export const AsModal = directive(Modal);
