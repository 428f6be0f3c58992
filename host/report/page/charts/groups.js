// Which charts an archive has, and what each shows.
import { decode } from '../data.js';
import { chartTexts, unitText } from '../texts/charts.js';
import { stylesOf } from './palette.js';
import { drawnValues, lonelyRows } from './rows.js';

const QUANTITIES = [
  'temperature',
  'pressure',
  'pressure difference',
  'volume flow',
  'working volume flow',
  'mass flow',
  'volume',
  'working volume',
  'mass',
  'heat',
];
const AMOUNTS = ['volume', 'working volume', 'mass', 'heat'];

// Returns [{title, steps, series: [{column, values, drawn, leftOut, lonely, style}]}]. steps:
// whether its values are amounts that stand over intervals; values by record, drawn by row.
export function groupsOf(archive, rows, lang) {
  const groups = new Map();
  archive.columns.forEach((column, i) => {
    const values = decode(archive).values[i];
    if (!isDrawn(column, values)) return;
    const key = [quantityOf(column), column.span === 'total', column.unit ?? ''].join('\n');
    if (!groups.has(key)) groups.set(key, groupOf(archive, column, lang));
    groups.get(key).series.push(seriesOf(column, values, rows));
  });
  const found = [...groups.values()].sort((one, other) => one.rank - other.rank);
  for (const group of found) addStyles(group);
  return found;
}

// A difference of temperatures is read beside the temperatures that it is made of.
function quantityOf(column) {
  return column.quantity === 'temperature difference' ? 'temperature' : column.quantity;
}

function isDrawn(column, values) {
  if (column.decimals == null || !QUANTITIES.includes(quantityOf(column))) return false;
  return values.some((value) => value !== null);
}

function groupOf(archive, column, lang) {
  const words = chartTexts[lang];
  const quantity = quantityOf(column);
  const amount = AMOUNTS.includes(quantity);
  const total = amount && (archive.totals || column.span === 'total');
  const parts = [words.quantities[quantity], total && words.total, unitText(column.unit, lang)];
  return {
    title: parts.filter(Boolean).join(', '),
    rank: QUANTITIES.indexOf(quantity) * 2 + (total ? 1 : 0),
    steps: amount && !total,
    series: [],
  };
}

function seriesOf(column, values, rows) {
  const { drawn, leftOut } = drawnValues(rows, values);
  return { column, values, drawn, leftOut, lonely: lonelyRows(drawn) };
}

function addStyles(group) {
  const styles = stylesOf(group.series.map((series) => series.column.pipe));
  group.series.forEach((series, i) => (series.style = styles[i]));
}
