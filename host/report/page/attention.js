// What state an instrument is in, and which needs attention before which.
import { secondsOf } from './data.js';

const SECONDS_OF_DAY = 86400;
const MOST_DAYS_UNREAD = 3;

const MISSING = 1;
const ABSENT = 2;
const UNASKED = 3;

// The most urgent first. An instrument is in every state whose condition holds.
const STATES = [
  { name: 'unread', holds: isUnread },
  { name: 'findings', holds: (facts) => facts.findings > 0 },
  { name: 'gaps', holds: (facts) => facts.missing > 0 },
  { name: 'clock', holds: (facts) => Math.abs(facts.difference ?? 0) > facts.clockLimit },
  { name: 'situation', holds: (facts) => facts.situations.length > 0 },
];

function isUnread({ last, failed, sinceRead }) {
  if (!last || last.result === 'failed' || failed) return true;
  return sinceRead > MOST_DAYS_UNREAD * SECONDS_OF_DAY;
}

// Records of an archive in each of the four states, by state number.
export function countStates(coverage) {
  const counts = [0, 0, 0, 0];
  for (const [state, count] of coverage?.ranges ?? []) counts[state] += count;
  return counts;
}

function countAll(instrument) {
  const all = [0, 0, 0, 0];
  for (const { coverage } of instrument.archives) {
    countStates(coverage).forEach((count, state) => (all[state] += count));
  }
  return all;
}

// Codes other than 0 in the current values, each with its system.
function situationsOf(instrument) {
  return instrument.current.flatMap(({ system, values }) =>
    values
      .filter(({ quantity, value }) => quantity === 'situation code' && value && value !== '0')
      .map(({ value }) => ({ system, code: value })));
}

function countFindings(instrument, note) {
  return instrument.findings.filter((finding) => Boolean(finding.note) === note).length;
}

// The numbers that the overview shows of an instrument, and the states that follow from them.
export function factsOf(instrument, given) {
  const counts = countAll(instrument);
  const { last, failed } = instrument;
  const facts = {
    last,
    failed,
    sinceRead: last?.begun ? secondsOf(given.made) - secondsOf(last.begun) : Infinity,
    difference: instrument.difference,
    clockLimit: given.clockLimit ?? Infinity,
    missing: counts[MISSING] + counts[UNASKED],
    absent: counts[ABSENT],
    findings: countFindings(instrument, false),
    notes: countFindings(instrument, true),
    situations: situationsOf(instrument),
  };
  const states = STATES.filter(({ holds }) => holds(facts)).map(({ name }) => name);
  return { ...facts, states, urgency: urgencyOf(states) };
}

// Greater is more urgent: one urgent state goes before all less urgent ones together.
function urgencyOf(states) {
  return STATES.reduce((sum, { name }) => sum * 2 + (states.includes(name) ? 1 : 0), 0);
}
