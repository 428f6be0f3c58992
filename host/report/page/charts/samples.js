// Samples of lines and marks for the legends.
import { svgElement } from '../dom.js';

function sample(width, shape) {
  const attributes = { width, height: 10, class: 'chart-sample', 'aria-hidden': 'true' };
  return svgElement('svg', attributes, shape);
}

// A piece of a line as the charts draw it, in the colour of a custom property.
export function lineSample(style, property) {
  const line = svgElement('line', {
    x1: 0,
    y1: 5,
    x2: 26,
    y2: 5,
    'stroke-width': style.width + 0.5,
    'stroke-dasharray': style.dash.join(' ') || null,
  });
  line.style.stroke = `var(${property})`;
  return sample(26, line);
}

const MARKS = {
  situations: () => svgElement('rect', { x: 0, y: 3, width: 18, height: 4 }),
  diagnostics: () => svgElement('rect', { x: 0, y: 4, width: 18, height: 2 }),
  changes: () => svgElement('path', { d: 'M9 9 L4 1 L14 1 Z' }),
};

export function markSample(kind) {
  const shape = MARKS[kind]();
  shape.style.fill = `var(--chart-${kind})`;
  return sample(18, shape);
}
