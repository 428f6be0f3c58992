// Makes elements. What instruments and settings say gets in as text only, never as HTML.

const SVG = 'http://www.w3.org/2000/svg';

function fill(node, attributes, children) {
  for (const [name, value] of Object.entries(attributes)) {
    if (typeof value === 'function') node.addEventListener(name, value);
    else if (value === true) node.setAttribute(name, '');
    else if (value !== false && value != null) node.setAttribute(name, value);
  }
  node.append(...children.flat(Infinity).filter((child) => child != null && child !== false));
  return node;
}

// An attribute that is a function listens to the event of that name; true sets it without a value,
// false and null leave it out. Children are nodes, texts, lists of them, or null for none.
export function element(name, attributes = {}, ...children) {
  return fill(document.createElement(name), attributes, children);
}

export function svgElement(name, attributes = {}, ...children) {
  return fill(document.createElementNS(SVG, name), attributes, children);
}

// A text that others wrote: its direction of writing ends where it ends.
export function foreign(text) {
  return element('bdi', {}, String(text ?? ''));
}

export function button(text, onClick, attributes = {}) {
  return element('button', { type: 'button', click: onClick, ...attributes }, text);
}

// Its content is made when it is opened for the first time.
export function lazyDetails(attributes, summary, makeContent) {
  const details = element('details', attributes, element('summary', {}, summary));
  const open = () => {
    if (!details.open) return;
    details.removeEventListener('toggle', open);
    details.append(makeContent());
  };
  details.addEventListener('toggle', open);
  return details;
}

// A table wider than the page scrolls in its own box.
export function scrollBox(...children) {
  return element('div', { class: 'scroll', tabindex: 0 }, ...children);
}

export function section(name, title, ...children) {
  return element('section', { class: name }, element('h2', {}, title), ...children);
}
