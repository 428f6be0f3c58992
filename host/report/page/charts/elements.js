// Elements of the page. Texts are never HTML.
export function element(name, className, ...children) {
  const made = document.createElement(name);
  if (className) made.className = className;
  made.append(...children);
  return made;
}

// A text from an instrument keeps its direction of writing to itself.
export const foreign = (text) => element('bdi', '', text);

const SVG = 'http://www.w3.org/2000/svg';

function svg(name, attributes, ...children) {
  const made = document.createElementNS(SVG, name);
  for (const [key, value] of Object.entries(attributes)) made.setAttribute(key, value);
  made.append(...children);
  return made;
}

// A sample of a line as the charts draw it.
export function lineSample(style, property) {
  const stroke = svg('line', { x1: 0, y1: 5, x2: 26, y2: 5, 'stroke-width': style.width + 0.5 });
  stroke.setAttribute('stroke-dasharray', style.dash.join(' ') || 'none');
  stroke.style.stroke = `var(${property})`;
  return svg('svg', { width: 26, height: 10, class: 'chart-sample', 'aria-hidden': 'true' }, stroke);
}

export function markSample(kind) {
  const shapes = {
    situation: () => svg('rect', { x: 0, y: 3, width: 18, height: 4 }),
    change: () => svg('path', { d: 'M9 9 L4 1 L14 1 Z' }),
  };
  const shape = shapes[kind]();
  shape.style.fill = `var(--chart-${kind})`;
  return svg('svg', { width: 18, height: 10, class: 'chart-sample', 'aria-hidden': 'true' }, shape);
}
