// The overview and every instrument on one page, to be printed.
import { OVERVIEW } from './address.js';
import { changeMarks } from './archive_panel.js';
import { showCharts } from './charts.js';
import { decode } from './data.js';
import { button, element, foreign, section } from './dom.js';
import { sectionsOf } from './instrument.js';
import { overviewView } from './overview.js';
import { keepForPrint } from './print.js';
import { wholeRange } from './ranges.js';
import { recordPages } from './record_table.js';
import { kindOf, partsOf } from './systems.js';
import { words } from './texts/index.js';

// On paper a year is better told by its days than by its hours.
const BEST_FOR_PAPER = ['days', 'hours', 'months', 'control'];

function paperArchive(archives) {
  const place = (archive) => BEST_FOR_PAPER.indexOf(kindOf(archive));
  return archives
    .filter((archive) => decode(archive).times.length > 0)
    .sort((one, other) => place(one) - place(other))[0];
}

function monthTable(archives) {
  const months = archives.find(({ kind }) => kind === 'months');
  const data = months && decode(months);
  if (!data || data.times.length === 0) return null;
  return element('div', { class: 'records' }, recordPages(months, data, true));
}

// Returns {node, start}: the charts of one part of the instrument and its months.
function partOnPaper(given, instrument, { part, archives }) {
  const archive = paperArchive(archives);
  if (!archive) return null;
  const place = element('div', { class: 'chart-place' });
  const kind = words.archive.kinds[kindOf(archive)] ?? kindOf(archive);
  const node = section('archive', [foreign(part), ` · ${kind}`], place, monthTable(archives));
  const start = () => keepForPrint(showCharts(place, archive, {
    lang: given.lang,
    marks: { changes: changeMarks(instrument, part) },
    range: wholeRange(decode(archive).times),
    onRange: () => {},
  }));
  return { node, start };
}

function instrumentOnPaper(given, instrument, index) {
  const parts = partsOf(instrument)
    .map((part) => partOnPaper(given, instrument, part))
    .filter(Boolean);
  const { before, after } = sectionsOf(given, index, null);
  const node = element('div', { class: 'instrument' }, before,
    parts.map((part) => part.node), after);
  return { node, start: () => parts.forEach((part) => part.start()) };
}

function notice(given) {
  return element('nav', { class: 'screen-only' },
    element('span', {}, words.print.ready(words.instruments(given.instruments.length))),
    button(words.print.print, () => print()),
    element('a', { href: OVERVIEW }, words.print.back));
}

// Returns {node, start}; start once the node is in the page.
export function everythingView(given) {
  const instruments = given.instruments.map((instrument, index) =>
    instrumentOnPaper(given, instrument, index));
  const node = element('div', { class: 'everything' }, notice(given), overviewView(given),
    instruments.map((each) => each.node));
  return { node, start: () => instruments.forEach((each) => each.start()) };
}
