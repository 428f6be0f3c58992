// The charts of one archive, which share the time and the cursor.
import { makeCursorLine, rangeText } from './charts/cursor_line.js';
import { groupsOf } from './charts/groups.js';
import { coloursAt } from './charts/palette.js';
import { fillPaper } from './charts/paper.js';
import { rowsOf } from './charts/rows.js';
import { markSample } from './charts/samples.js';
import { showChart, sizeFor } from './charts/screen.js';
import { toldRanges } from './charts/situations.js';
import { labelLetters } from './charts/value_axis.js';
import { makeZoom } from './charts/zoom.js';
import { decode } from './data.js';
import { button, element } from './dom.js';
import { chartTexts } from './texts/charts.js';

let shown = 0;

// place: an empty element. options: {lang, marks: {changes: [{time, text}]}, range: {min, max} or
// null, onRange(min, max)}; times in seconds. Returns {setRange, redraw, forPrint, afterPrint,
// destroy}.
export function showCharts(place, archive, options) {
  const rows = rowsOf(archive);
  const groups = decode(archive).broken ? [] : groupsOf(archive, rows, options.lang);
  if (groups.length === 0) return showNothing(place, options.lang);
  const view = viewOf(archive, rows, groups, options);
  const root = element('div', { class: 'charts' });
  place.append(root);
  const live = showLive(root, archive, groups, view, options);
  return {
    ...live,
    ...printing(root, groups, view),
    destroy: () => {
      live.destroy();
      root.remove();
    },
  };
}

function showNothing(place, lang) {
  const note = element('p', { class: 'charts-nothing' }, chartTexts[lang].nothing);
  const nothing = () => {};
  place.append(note);
  return {
    setRange: nothing,
    redraw: nothing,
    forPrint: nothing,
    afterPrint: nothing,
    destroy: () => note.remove(),
  };
}

// What all charts of the archive have in common.
function viewOf(archive, rows, groups, options) {
  return {
    lang: options.lang,
    rows,
    letters: labelLetters(groups, options.lang),
    marks: { ...toldRanges(archive, rows), changes: options.marks?.changes ?? [] },
    sync: `charts ${(shown += 1)}`,
  };
}

function showLive(root, archive, groups, view, options) {
  const head = makeCursorLine(archive, view);
  let charts = [];
  let colours = {};
  const readColours = () => (colours = coloursAt(root));
  view.colours = () => colours;
  view.onCursor = (plot) => (plot.cursor.idx == null ? head.rest() : head.follow(plot));
  view.zoom = makeZoom(view.rows, options.range, (range, own) => {
    view.range = range;
    for (const { plot } of charts) plot.setScale('x', range);
    head.rest();
    if (own) options.onRange?.(range.min, range.max);
  });
  view.range = view.zoom.range();
  readColours();
  const live = element('div', { class: 'charts-live' }, headOf(head.line, view));
  root.append(live);
  charts = groups.map((group) => showChart(group, view, root.clientWidth));
  live.append(...charts.map(({ chart }) => chart), keyOf(view));
  head.rest();
  const redraw = () => {
    readColours();
    for (const { plot } of charts) plot.redraw(false);
  };
  return { setRange: view.zoom.set, redraw, destroy: watch(root, charts, redraw) };
}

function headOf(line, { lang, zoom }) {
  const texts = chartTexts[lang];
  const tool = (sign, name, act) => button(sign, act, { title: name, 'aria-label': name });
  const tools = element(
    'div',
    { class: 'charts-tools screen-only' },
    tool('−', texts.zoomOut, () => zoom.by(2)),
    tool('+', texts.zoomIn, () => zoom.by(0.5)),
  );
  return element('div', { class: 'charts-head' }, line, tools);
}

// What the marks on the axes mean, where there are any.
function keyOf({ lang, marks }) {
  const texts = chartTexts[lang].marks;
  const kinds = Object.keys(texts).filter((kind) => marks[kind].length > 0);
  const entries = kinds.map((kind) => element('span', {}, markSample(kind), ' ', texts[kind]));
  return element('p', { class: 'charts-key' }, ...entries);
}

// The charts follow the width of their place and the colours of the page. Returns how to stop.
function watch(root, charts, redraw) {
  let width = root.clientWidth;
  const fit = () => {
    if (root.clientWidth === width || root.clientWidth === 0) return;
    width = root.clientWidth;
    for (const { plot } of charts) plot.setSize(sizeFor(width));
  };
  // Not at once: a new height within the observer's call would be reported as a loop.
  const sizes = new ResizeObserver(() => requestAnimationFrame(fit));
  const dark = matchMedia('(prefers-color-scheme: dark)');
  sizes.observe(root);
  dark.addEventListener('change', redraw);
  return () => {
    sizes.disconnect();
    dark.removeEventListener('change', redraw);
    for (const { plot } of charts) plot.destroy();
  };
}

function printing(root, groups, view) {
  let sheet = null;
  const afterPrint = () => {
    sheet?.remove();
    sheet = null;
    root.classList.remove('charts-printed');
  };
  const forPrint = () => {
    afterPrint();
    const range = element('p', { class: 'charts-at' }, rangeText(view));
    sheet = element('div', { class: 'charts-paper' }, range);
    root.append(sheet);
    root.classList.add('charts-printed');
    fillPaper(sheet, groups, view);
    sheet.append(keyOf(view));
  };
  return { forPrint, afterPrint };
}
