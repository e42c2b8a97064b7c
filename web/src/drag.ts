// Follows the pointer from a press to its release; `move` gets the way since the press.
export function Dragging(event: PointerEvent, move: (dx: number, dy: number) => void): void {
  if (event.button !== 0) return;
  event.preventDefault();
  event.stopPropagation();
  const handle = event.currentTarget as HTMLElement;
  const { clientX, clientY } = event;
  handle.setPointerCapture(event.pointerId);
  const onMove = (e: PointerEvent): void => move(e.clientX - clientX, e.clientY - clientY);
  const onEnd = (): void => {
    handle.removeEventListener("pointermove", onMove);
    handle.removeEventListener("lostpointercapture", onEnd);
  };
  handle.addEventListener("pointermove", onMove);
  handle.addEventListener("lostpointercapture", onEnd);
}

const moved = new WeakMap<HTMLElement, { x: number; y: number }>();

// Moves a window by its title bar; the title bar stays within reach.
export function DragWindow(event: PointerEvent, frame: HTMLElement | null): void {
  if (!frame || (event.target as Element).closest("button")) return;
  const start = moved.get(frame) ?? { x: 0, y: 0 };
  const box = frame.getBoundingClientRect();
  Dragging(event, (dx, dy) => {
    const x = start.x + Math.max(80 - box.right, Math.min(innerWidth - 80 - box.left, dx));
    const y = start.y + Math.max(-box.top, Math.min(innerHeight - 40 - box.top, dy));
    moved.set(frame, { x, y });
    frame.style.translate = `${x}px ${y}px`;
  });
}
