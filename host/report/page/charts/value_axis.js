// The range and the labels of a chart's values.
import { decimalsOfStep, numberText } from './numbers.js';

// A share of the value: what hardly moves is not shown as if it did, and labels stay short.
const LEAST_SPAN = 0.01;
const MOST_STEPS = 5;

// Amounts are read against zero; a temperature or a pressure by how it moves.
export function rangeOfAmounts(plot, min, max) {
  if (min == null || max == null) return [0, 1];
  const low = Math.min(min, 0);
  const high = Math.max(max, 0);
  const margin = (high - low || 1) * 0.08;
  return [low < 0 ? low - margin : 0, high > 0 || low === 0 ? high + margin : 0];
}

export function rangeOfStates(plot, min, max) {
  if (min == null || max == null) return [0, 1];
  const span = Math.max(max - min, Math.max(Math.abs(min), Math.abs(max)) * LEAST_SPAN) || 1;
  const middle = (min + max) / 2;
  return [middle - span * 0.58, middle + span * 0.58];
}

export function valueLabels(lang) {
  return (plot, splits, axis, space, step) =>
    splits.map((value) => numberText(value, decimalsOfStep(step), lang));
}

// All charts have axes of one width, so that their times stand below each other.
export function labelLetters(groups, lang) {
  return Math.max(4, ...groups.map((group) => lettersOf(group, lang)));
}

// The label of the largest value, with a sign, and with the decimals of the smallest step.
function lettersOf({ steps, series }, lang) {
  const largest = Math.max(...series.map(({ drawn }) => largestOf(drawn)));
  if (largest === 0) return 0;
  const step = (steps ? largest : largest * LEAST_SPAN) / MOST_STEPS;
  const decimals = Math.min(Math.max(0, -Math.floor(Math.log10(step))), 6);
  return numberText(-largest * 1.08, decimals, lang).length;
}

function largestOf(values) {
  return values.reduce((most, value) => Math.max(most, Math.abs(value ?? 0)), 0);
}
