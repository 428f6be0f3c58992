// An instrument's archives: which one is looked at, its charts and the table behind them.
import { showCharts } from './charts.js';
import { decode, secondsOf } from './data.js';
import { button, element, foreign, section } from './dom.js';
import { dropCharts, keepForPrint } from './print.js';
import { namedRange, paddedRange, rangeNames, steppedRange, wholeRange } from './ranges.js';
import { recordTable } from './record_table.js';
import { kindOf, partOf, partsOf } from './systems.js';
import { words } from './texts/index.js';

const FIRST_RANGE = { hours: 'month', days: 'year', months: 'all' };

// Parameter changes of a part of the instrument, and of what is common to all parts, to be marked
// on the axis.
export function changeMarks(instrument, part) {
  const others = new Set(instrument.archives.map(({ system }) => partOf(system)));
  others.delete(part);
  return instrument.changes
    .filter(({ system }) => !others.has(partOf(system)))
    .map((change) => ({
      time: secondsOf(change.time ?? change.noticed),
      text: `${change.caption || change.field}: ${change.former ?? words.none} → ` +
        `${change.value ?? words.none}`,
    }))
    .filter(({ time }) => time != null);
}

// The archive that a finding is about: a control archive is one of days as well.
function archiveOf({ system, kind }, { archives }) {
  const alike = archives.filter((archive) => archive.kind === kind);
  return alike.find((archive) => archive.system === system) ?? alike[0];
}

function choice(name, label, choices, chosen, choose) {
  return element('div', { class: `choice ${name}`, role: 'group', 'aria-label': label },
    choices.map(({ value, text }) => button(text, () => choose(value), {
      'aria-pressed': String(value === chosen),
      'data-value': name === 'parts' ? null : String(value),
    })));
}

class ArchivePanel {
  constructor(instrument, lang) {
    this.instrument = instrument;
    this.lang = lang;
    this.parts = partsOf(instrument);
    this.part = this.parts[0];
    this.archive = this.part?.archives[0];
    this.tools = element('div', { class: 'tools' });
    this.chosen = element('p', { class: 'paper-only' });
    this.place = element('div', { class: 'chart-place' });
    this.table = element('div', { class: 'records' });
    this.node = section('archive', words.archive.title, this.tools, this.chosen,
      this.place, this.table);
  }

  // Once the panel is in the page, which gives the charts their width.
  start() {
    if (this.archive) this.showArchive(this.archive);
    else this.place.append(element('p', { class: 'empty' }, words.archive.none));
  }

  // range: null shows what is usual for the kind of archive.
  showArchive(archive, range = null) {
    this.archive = archive;
    this.data = decode(archive);
    this.whole = wholeRange(this.data.times);
    this.rangeName = range ? null : FIRST_RANGE[archive.kind] ?? 'all';
    this.range = range ?? (this.whole && namedRange(this.rangeName, this.whole.max, this.whole));
    this.drawTools();
    this.drawCharts();
    this.table.replaceChildren();
    if (this.whole) this.table.append(recordTable(archive, this.data));
  }

  drawCharts() {
    if (this.charts) dropCharts(this.charts);
    this.charts = null;
    this.place.replaceChildren();
    if (!this.whole) {
      const text = this.data.broken ? words.archive.broken : words.archive.empty;
      this.place.append(element('p', { class: 'empty' }, text));
      return;
    }
    this.charts = keepForPrint(showCharts(this.place, this.archive, {
      lang: this.lang,
      marks: { changes: changeMarks(this.instrument, this.part.part) },
      range: this.range,
      onRange: (min, max) => this.takeRange(min, max),
    }));
  }

  // The charts were zoomed or moved by hand.
  takeRange(min, max) {
    if (this.range && this.range.min === min && this.range.max === max) return;
    this.range = { min, max };
    this.rangeName = null;
    this.drawTools();
  }

  setRange(range, name) {
    this.range = range;
    this.rangeName = name;
    this.charts?.setRange(range.min, range.max);
    this.drawTools();
  }

  choosePart(part) {
    this.part = part;
    const same = part.archives.find((archive) => kindOf(archive) === kindOf(this.archive));
    this.showArchive(same ?? part.archives[0]);
  }

  step(direction) {
    const name = this.rangeName === 'all' ? null : this.rangeName;
    this.setRange(steppedRange(this.range, name, direction, this.whole), this.rangeName);
  }

  // The focus stays on the button that was pressed, which is another one now.
  drawTools() {
    const buttons = () => [...this.tools.querySelectorAll('button')];
    const focused = buttons().indexOf(document.activeElement);
    this.tools.replaceChildren(...this.makeTools());
    if (focused >= 0) buttons()[focused]?.focus({ preventScroll: true });
  }

  makeTools() {
    const text = words.archive;
    const kindName = (archive) => text.kinds[kindOf(archive)] ?? kindOf(archive);
    this.chosen.replaceChildren(foreign(this.part.part), ` · ${kindName(this.archive)}`);
    const parts = this.parts.map((part) => ({ value: part, text: foreign(part.part) }));
    const kinds = this.part.archives.map((archive) =>
      ({ value: archive, text: kindName(archive) }));
    return [
      choice('parts', text.system, parts, this.part, (part) => this.choosePart(part)),
      choice('kinds', text.kind, kinds, this.archive, (archive) => this.showArchive(archive)),
      this.whole && this.makeRangeTools(),
    ].filter(Boolean);
  }

  makeRangeTools() {
    const text = words.archive;
    const names = rangeNames(this.archive.kind).map((name) =>
      ({ value: name, text: text.ranges[name] }));
    const choose = (name) => {
      const max = Math.min(this.range.max, this.whole.max);
      this.setRange(namedRange(name, max, this.whole), name);
    };
    return element('div', { class: 'stepping' },
      button('‹', () => this.step(-1), { 'aria-label': text.back, title: text.back }),
      choice('ranges', text.range, names, this.rangeName, choose),
      button('›', () => this.step(1), { 'aria-label': text.forward, title: text.forward }));
  }

  // Shows what a finding is about: its archive, or the one looked at, around its time.
  showFinding(finding) {
    const part = this.parts.find(({ part }) => part === partOf(finding.system)) ?? this.part;
    const from = secondsOf(finding.from);
    const to = secondsOf(finding.to) ?? from;
    if (!part || from == null) return;
    this.part = part;
    const archive = archiveOf(finding, part) ??
      (part.archives.includes(this.archive) ? this.archive : part.archives[0]);
    this.showArchive(archive, paddedRange(from, to, archive.kind));
    this.node.scrollIntoView({ block: 'start' });
  }
}

// Returns {node, start, showFinding}; start once the node is in the page.
export function archivePanel(instrument, lang) {
  return new ArchivePanel(instrument, lang);
}
