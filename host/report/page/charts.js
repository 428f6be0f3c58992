// The charts of one archive, which share the time and the cursor.
import { decode } from './data.js';
import { makeCursorLine, rangeText } from './charts/cursor_line.js';
import { element, markSample } from './charts/elements.js';
import { groupsOf } from './charts/groups.js';
import { coloursAt } from './charts/palette.js';
import { fillPaper } from './charts/paper.js';
import { rowsOf } from './charts/rows.js';
import { showChart, sizeFor } from './charts/screen.js';
import { situationRanges } from './charts/situations.js';
import { labelLetters } from './charts/value_axis.js';
import { makeZoom } from './charts/zoom.js';
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
  const root = element('div', 'charts');
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
  const note = element('p', 'charts-nothing', chartTexts[lang].nothing);
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
  const situations = situationRanges(archive, rows);
  return {
    lang: options.lang,
    rows,
    letters: labelLetters(groups, options.lang),
    marks: { situations, changes: options.marks?.changes ?? [] },
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
  const live = element('div', 'charts-live', headOf(head.line, view));
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
  const button = (sign, name, act) => {
    const made = element('button', '', sign);
    made.type = 'button';
    made.title = name;
    made.setAttribute('aria-label', name);
    made.addEventListener('click', act);
    return made;
  };
  const texts = chartTexts[lang];
  const tools = element(
    'div',
    'charts-tools',
    button('−', texts.zoomOut, () => zoom.by(2)),
    button('+', texts.zoomIn, () => zoom.by(0.5)),
    button(texts.all, texts.all, zoom.all),
  );
  return element('div', 'charts-head', line, tools);
}

// What the marks on the axes mean, where there are any.
function keyOf({ lang, marks }) {
  const { situationMark, changeMark } = chartTexts[lang];
  const entries = [];
  const add = (kind, text) => entries.push(element('span', '', markSample(kind), ' ', text));
  if (marks.situations.length) add('situation', situationMark);
  if (marks.changes.length) add('change', changeMark);
  return element('p', 'charts-key', ...entries);
}

// The charts follow the width of their place and the colours of the page. Returns how to stop.
function watch(root, charts, redraw) {
  const sizes = new ResizeObserver(() => {
    if (root.clientWidth === 0) return;
    for (const { plot } of charts) plot.setSize(sizeFor(root.clientWidth));
  });
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
    sheet = element('div', 'charts-paper', element('p', 'charts-at', rangeText(view)));
    root.append(sheet);
    root.classList.add('charts-printed');
    fillPaper(sheet, groups, view);
    sheet.append(keyOf(view));
  };
  return { forPrint, afterPrint };
}
