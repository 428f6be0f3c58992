// The range and the labels of a chart's values.
import { decimalsOfStep, numberText } from './numbers.js';

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
  const span = max - min || Math.abs(max) * 0.1 || 1;
  return [min - span * 0.08, max + span * 0.08];
}

export function valueLabels(lang) {
  return (plot, splits, axis, space, step) =>
    splits.map((value) => numberText(value, decimalsOfStep(step), lang));
}

// All charts have axes of one width, so that their times stand below each other.
export function labelLetters(groups, lang) {
  const lengths = groups.flatMap((group) => group.series.map((series) => lettersOf(series, lang)));
  return Math.max(4, ...lengths);
}

function lettersOf(series, lang) {
  const largest = series.drawn.reduce((most, value) => Math.max(most, Math.abs(value ?? 0)), 0);
  return numberText(-largest * 1.08, largest < 0.5 ? 3 : largest < 5 ? 2 : largest < 50 ? 1 : 0, lang).length;
}
