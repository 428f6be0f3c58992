// All about one instrument.
import { OVERVIEW, addressOf } from './address.js';
import { archivePanel } from './archive_panel.js';
import { factsOf } from './attention.js';
import { coverageSection } from './coverage_map.js';
import { currentSection } from './current_values.js';
import { element, foreign, section } from './dom.js';
import { findingsSection } from './findings.js';
import { agoText, clockText, dateText, numberText } from './formats.js';
import { logsSection } from './logs.js';
import { resultOf, situationNodes } from './overview.js';
import { changesSection, parametersSection } from './parameters.js';
import { stateChips } from './state_chips.js';
import { words } from './texts/index.js';

// As nodes: the number keeps its direction whatever the model's name is made of.
export function nameNodes({ model, serial }) {
  return [foreign(model || words.instrument.unknownModel), ` ${words.number} `,
    foreign(serial || words.none)];
}

function neighbour(given, index, text, className) {
  const instrument = given.instruments[index];
  if (!instrument) return element('span', { class: 'nobody' }, text);
  return element('a', { href: addressOf(instrument, index), class: className }, text);
}

function navigation(given, index) {
  const { back, previous, next } = words.instrument;
  return element('nav', { class: 'screen-only' },
    element('a', { href: OVERVIEW }, `↑ ${back}`),
    neighbour(given, index - 1, `‹ ${previous}`, 'previous'),
    neighbour(given, index + 1, `${next} ›`, 'next'));
}

function lastReading({ last }, facts) {
  if (!last?.begun) return words.none;
  return `${dateText(last.begun)} (${agoText(facts.sinceRead)})`;
}

function failures({ failed }) {
  if (!failed) return null;
  const times = words.instrument.failedTimes(failed.count ?? 0);
  return [`${times}, ${dateText(failed.last)}`, failed.reason && ': ', foreign(failed.reason)];
}

function pairs(entries) {
  return element('dl', { class: 'pairs' }, entries
    .filter(([, value]) => value != null && value !== '')
    .map(([term, value]) => element('div', {}, element('dt', {}, term), element('dd', {}, value))));
}

function identity(instrument, facts) {
  const text = words.instrument;
  const { columns } = words.overview;
  const reason = instrument.last?.reason;
  return section('identity', text.identity, pairs([
    [text.place, foreign(instrument.place || words.none)],
    [text.version, instrument.version && foreign(instrument.version)],
    [text.readings, instrument.readings == null ? null : numberText(instrument.readings)],
    [text.last, lastReading(instrument, facts)],
    [text.result, [resultOf(instrument), reason && ': ', reason && foreign(reason)]],
    [text.failed, failures(instrument)],
    [text.clock, clockText(instrument.difference)],
    [columns.missing, numberText(facts.missing)],
    [columns.situation, situationNodes(facts.situations)],
  ]));
}

// The sections before and after the charts, which are different on the screen and for print.
export function sectionsOf(given, index, show) {
  const instrument = given.instruments[index];
  const facts = factsOf(instrument, given);
  const head = element('header', { class: 'masthead' },
    element('h1', {}, nameNodes(instrument), ' ', stateChips(facts.states)));
  return {
    before: [head, identity(instrument, facts), currentSection(instrument)],
    after: [coverageSection(instrument), findingsSection(instrument, show),
      changesSection(instrument), parametersSection(instrument), logsSection(instrument)],
  };
}

// Returns {node, start}; start once the node is in the page.
export function instrumentView(given, index) {
  const instrument = given.instruments[index];
  const panel = archivePanel(instrument, given.lang);
  const show = instrument.archives.length > 0 ? (finding) => panel.showFinding(finding) : null;
  const { before, after } = sectionsOf(given, index, show);
  const node = element('div', { class: 'instrument' },
    navigation(given, index), before, panel.node, after);
  return { node, start: () => panel.start() };
}
