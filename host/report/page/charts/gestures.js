// Keys and fingers.

export function listenToKeys(area, zoom) {
  const actions = {
    ArrowLeft: () => zoom.pan(-0.2),
    ArrowRight: () => zoom.pan(0.2),
    '+': () => zoom.by(0.5),
    '=': () => zoom.by(0.5),
    '-': () => zoom.by(2),
    0: () => zoom.all(),
    Escape: () => zoom.all(),
  };
  area.tabIndex = 0;
  area.setAttribute('role', 'group');
  area.addEventListener('keydown', (event) => {
    if (event.ctrlKey || event.altKey || event.metaKey || !(event.key in actions)) return;
    event.preventDefault();
    actions[event.key]();
  });
}

// A finger moves the cursor sideways; up and down it scrolls the page (charts.css).
export function dragCursor(plot) {
  const follow = (event) => {
    if (event.pointerType !== 'touch') return;
    const { left, top } = plot.over.getBoundingClientRect();
    plot.setCursor({ left: event.clientX - left, top: event.clientY - top }, true, true);
  };
  plot.over.addEventListener('pointerdown', follow);
  plot.over.addEventListener('pointermove', follow);
}
