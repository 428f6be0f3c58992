// The completeness of an instrument's archives as maps: a place for each record.
import { countStates } from './attention.js';
import { stripsOf } from './coverage_grid.js';
import { timeOfPeriod } from './data.js';
import { element, foreign, section, svgElement } from './dom.js';
import { numberText, recordTime, shortMonth } from './formats.js';
import { kindOf, partOf, partsOf } from './systems.js';
import { words } from './texts/index.js';

const STATES = ['kept', 'missing', 'absent', 'unasked'];
const CELL = 4;  // of the picture's own units
const WIDE_PIXELS = { hours: 3, days: 10, months: 36 };
const TALL_PIXELS = { hours: 3, days: 4, months: 8 };
// Hours of a year, which share the width of the page where it is narrow.
const LEAST_PIXELS_OF_DAY = 0.9;
const DAYS_OF_YEAR = 366;
const LEAST_PIXELS = 36;

function stateWord(state) {
  return words.coverage[STATES[state]] ?? words.none;
}

// Hatches that tell the states apart without colour, for all maps of the page.
export function mapPatterns() {
  const pattern = (name, size, path) =>
    svgElement('pattern', { id: `map-${name}`, width: size, height: size,
      patternUnits: 'userSpaceOnUse' },
    svgElement('rect', { class: `${name}-ground`, width: size, height: size }),
    svgElement('path', { class: `${name}-line`, d: path }));
  return svgElement('svg', { class: 'patterns', width: 0, height: 0, 'aria-hidden': 'true' },
    svgElement('defs', {},
      pattern('missing', 4, 'M-1 1L1 -1M0 4L4 0M3 5L5 3'),
      pattern('absent', 6, 'M3 2V4M2 3H4'),
      pattern('unasked', 6, 'M0 3H6')));
}

function titleOf(archive, rectangle) {
  const time = (interval) =>
    recordTime(timeOfPeriod(archive.kind, interval + (archive.endDated ? 1 : 0)), archive.kind);
  const { first, count, state } = rectangle;
  const last = count > 1 ? time(first + count - 1) : null;
  return words.coverage.state(stateWord(state), time(first), last, count);
}

function drawRectangle(archive, strip, rectangle) {
  const { column, row, width, height, state } = rectangle;
  return svgElement('rect', {
    class: STATES[state] ?? 'unasked',
    x: (column - strip.first) * CELL,
    y: row * CELL,
    width: width * CELL,
    height: height * CELL,
  }, state !== 0 && svgElement('title', {}, titleOf(archive, rectangle)));
}

// Where a label stands in a strip, as a share of its width.
function label(text, share) {
  const node = element('span', {}, text);
  node.style.left = `${share * 100}%`;
  return node;
}

// Of the months that begin in a strip of days; of the one that it begins in where none does.
function dayLabels({ group, first, columns }) {
  const labels = [];
  for (let month = 0; month < 12; ++month) {
    const share = (Date.UTC(group, month, 1) / 86400e3 - first) / columns;
    if (share >= 0 && share < 1) labels.push(label(shortMonth(month), share));
  }
  const begin = new Date(first * 86400e3).getUTCMonth();
  return labels.length > 0 ? labels : [label(shortMonth(begin), 0)];
}

function yearLabels({ first, columns }, perYear) {
  const labels = [];
  for (let year = Math.ceil(first / perYear); year * perYear < first + columns; ++year) {
    labels.push(label(String(year), (year * perYear - first) / columns));
  }
  return labels.length > 0 ? labels : [label(String(Math.floor(first / perYear)), 0)];
}

function labelsOf(kind, strip) {
  if (kind === 'hours') return dayLabels(strip);
  return yearLabels(strip, kind === 'days' ? 12 : 1);
}

function setWidth(box, kind, columns) {
  const pixels = (width) => `${Math.max(columns * width, LEAST_PIXELS)}px`;
  box.style.maxWidth = pixels(WIDE_PIXELS[kind]);
  if (kind === 'hours') box.style.width = `${(columns / DAYS_OF_YEAR) * 100}%`;
  box.style.minWidth = pixels(kind === 'hours' ? LEAST_PIXELS_OF_DAY : WIDE_PIXELS[kind]);
}

function drawStrip(archive, strip, summary) {
  const { columns, rows } = strip;
  const drawing = svgElement('svg', {
    viewBox: `0 0 ${columns * CELL} ${rows * CELL}`,
    preserveAspectRatio: 'none',
    role: 'img',
    'aria-label': summary,
  }, strip.rectangles.map((rectangle) => drawRectangle(archive, strip, rectangle)));
  const box = element('div', { class: 'strip' }, drawing,
    element('div', { class: 'labels', 'aria-hidden': 'true' }, labelsOf(archive.kind, strip)));
  setWidth(box, archive.kind, columns);
  drawing.style.height = `${rows * TALL_PIXELS[archive.kind]}px`;
  return [strip.group != null && element('div', { class: 'group' }, String(strip.group)), box];
}

// "8,756 of 8,760 kept, 3 without answer, 1 not held".
function shareText(counts) {
  const all = counts.reduce((sum, count) => sum + count, 0);
  const rest = [1, 2, 3].filter((state) => counts[state] > 0)
    .map((state) => words.coverage.parts[state](numberText(counts[state])));
  return [words.coverage.share(numberText(counts[0]), numberText(all)), ...rest].join(', ');
}

function drawMap(archive) {
  const counts = countStates(archive.coverage);
  const share = shareText(counts);
  const kind = words.archive.kinds[kindOf(archive)] ?? '';
  return element('figure', { class: 'map', 'data-kind': kindOf(archive) },
    element('figcaption', {},
      element('strong', {}, foreign(partOf(archive.system)), ` · ${kind}`), ` ${share}`),
    element('div', { class: 'scroll strips', tabindex: 0 }, stripsOf(archive).map((strip) =>
      drawStrip(archive, strip, `${kind}: ${share}`))));
}

function legend() {
  return element('ul', { class: 'legend' }, STATES.map((state) => element('li', {},
    svgElement('svg', { width: 16, height: 12, 'aria-hidden': 'true' },
      svgElement('rect', { class: state, width: 16, height: 12 })),
    ` ${words.coverage[state]}`)));
}

export function coverageSection(instrument) {
  const known = partsOf(instrument).flatMap(({ archives }) => archives)
    .filter(({ coverage }) => coverage?.ranges?.length > 0);
  const content = known.length > 0
    ? [legend(), element('div', { class: 'maps' }, known.map(drawMap))]
    : element('p', { class: 'empty' }, words.coverage.none);
  return section('coverage', words.coverage.title, content);
}
