// What the check of the store has found, in the page's language.
import { secondsOf } from './data.js';
import { button, element, foreign, section } from './dom.js';
import { dateText, recordTime } from './formats.js';
import { words, wordOf } from './texts/index.js';

// By the rule's numbers; the given sentence where the page's language has no sentence of its own.
function sentenceOf(finding) {
  const { rule } = finding;
  const hasNumbers = finding.found != null && finding.expected != null;
  const makes = Object.hasOwn(words.sentences, rule) && (hasNumbers || rule === 'replaced');
  return (makes ? words.sentences[rule](finding) : finding.text) ?? '';
}

// Records of days and months are dated without an hour.
function timeOf(text, kind) {
  const seconds = secondsOf(text);
  const isLong = kind === 'days' || kind === 'months';
  return isLong && seconds != null ? recordTime(seconds, kind) : dateText(text);
}

function periodOf({ from, to, kind }) {
  const first = timeOf(from, kind);
  return to && to !== from ? `${first} – ${timeOf(to, kind)}` : first;
}

function sectionNodes({ system, kind }) {
  if (!system && !kind) return null;
  return element('span', {}, foreign(system), ' ',
    foreign(wordOf(words.archive.kinds, kind ?? '').toLowerCase()));
}

function findingItem(finding, show) {
  return element('li', { class: finding.note ? 'note' : 'fault' },
    element('div', { class: 'what' },
      element('strong', {}, foreign(wordOf(words.rules, finding.rule ?? ''))),
      finding.note && element('span', { class: 'chip order' }, words.instrument.note),
      sectionNodes(finding),
      element('span', { class: 'nowrap' }, foreign(periodOf(finding)))),
    element('div', {}, foreign(sentenceOf(finding))),
    show && finding.from && button(words.instrument.show, () => show(finding),
      { class: 'screen-only' }));
}

// show: zooms to a finding; null where there are no charts to zoom.
export function findingsSection({ findings }, show) {
  const content = findings.length > 0
    ? element('ul', {}, findings.map((finding) => findingItem(finding, show)))
    : element('p', { class: 'empty' }, words.instrument.noFindings);
  return section('findings', words.instrument.findings, content);
}
