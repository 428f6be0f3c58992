// Findings as Russian sentences, made of their numbers. Codes and names of other instruments stand
// in the given sentence only. A rule that is not here keeps the given sentence.
import { durationText, numberText, withUnit } from '../formats.js';

const DIGITS = 7;

function amount(value, unit) {
  return withUnit(value == null ? null : Number(value.toPrecision(DIGITS)), unit);
}

function differenceOf({ expected, found, unit }) {
  const difference = found - expected;
  const sign = difference < 0 ? '−' : '+';
  const rounded = (value) => Number(Math.abs(value).toPrecision(4));
  if (expected === 0) return sign + withUnit(rounded(difference), unit);
  return `${sign}${numberText(rounded((difference / expected) * 100))} %`;
}

// parts, whole: what was added up, and what it was compared with.
function sum(parts, whole) {
  return (finding) => {
    const { field, records, expected, found, unit } = finding;
    const row = records > 1 ? `; записей подряд: ${numberText(records)}, здесь худшая` : '';
    const comparison = `сумма ${parts} ${amount(found, unit)}, ${whole} ${amount(expected, unit)}`;
    return `${field}: ${comparison} (${differenceOf(finding)})${row}`;
  };
}

function clock({ found, records }) {
  const way = found < 0 ? 'отставали' : 'спешили';
  return `часы ${way} на ${durationText(found)}; записей за это время: ${numberText(records)}`;
}

function difference(seconds) {
  if (seconds === 0) return 'без отклонения';
  return `${seconds < 0 ? 'отставание' : 'опережение'} ${durationText(seconds)}`;
}

function clockChanged({ expected, found }) {
  const way = found > expected ? 'вперёд' : 'назад';
  const change = durationText(found - expected);
  return `часы переведены ${way} на ${change}: было ${difference(expected)}, ` +
    `стало ${difference(found)}`;
}

function situations({ records, kind, text }) {
  const codes = /codes? ([\d, ]+?)(?: and|$)/.exec(text ?? '')?.[1];
  const what = kind === 'days' ? 'суток' : 'часов';
  return `НС подряд ${numberText(records)} ${what}${codes ? `, коды: ${codes}` : ''}`;
}

function replaced({ text }) {
  const named = /^it has replaced (.+) at (.+)$/.exec(text ?? '');
  if (!named) return text;
  const [, instrument, place] = named;
  return `заменил прибор ${instrument.replace(', number ', ' № ')}; место: ${place}`;
}

export const sentences = {
  'hours-days': sum('часовых записей', 'в суточной'),
  'days-months': sum('суточных записей', 'в месячной'),
  'hours-months': sum('часовых записей', 'в месячной'),
  totals: ({ field, expected, found, unit }) =>
    `${field}: итог уменьшился с ${amount(expected, unit)} до ${amount(found, unit)}`,
  clock,
  'clock-changed': clockChanged,
  ahead: ({ records, found }) =>
    `записей из будущего: ${numberText(records)}, опережают чтение до ${durationText(found)}`,
  situations,
  'working-time': ({ expected, found }) =>
    `отработано ${numberText(found)} из ${numberText(expected)} ч`,
  replaced,
};
