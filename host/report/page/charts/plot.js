// One chart, on the screen or on paper: what uPlot is told.
import uPlot from 'uplot';
import { element, foreign } from '../dom.js';
import { pipeText } from '../texts/charts.js';
import { drawMarks } from './marks.js';
import { numberText } from './numbers.js';
import { propertyOf } from './palette.js';
import { dots, linePaths, stepPaths } from './paths.js';
import { lineSample } from './samples.js';
import { timeLabels, timeSteps, timeTicks } from './time_axis.js';
import { rangeOfAmounts, rangeOfStates, valueLabels } from './value_axis.js';

// What is common to a screen's and a paper's plot. view: {lang, rows, marks, letters, range: {min,
// max}, colours: a function}; size: {width, height, scale}, scale for how many times larger than
// on the screen everything is drawn.
export function plotOptions(group, view, size) {
  const { scale } = size;
  const series = group.series.map((each) => seriesOptions(each, group, view, scale));
  return {
    width: Math.round(size.width),
    height: Math.round(size.height),
    padding: [8 * scale, 18 * scale, 0, 0],
    scales: scalesOf(group, view.range),
    series: [{ value: () => '' }, ...series],
    axes: [timeAxis(view, scale), valueAxis(view, scale)],
    hooks: { draw: [(plot) => drawMarks(plot, view.marks, view.colours(), scale)] },
  };
}

export function plotData(group, rows) {
  return [rows.times, ...group.series.map((series) => series.drawn)];
}

function scalesOf(group, { min, max }) {
  return {
    x: { time: false, auto: false, min, max, range: (plot, from, to) => [from, to] },
    y: { range: group.steps ? rangeOfAmounts : rangeOfStates },
  };
}

function seriesOptions(series, group, view, scale) {
  const { style } = series;
  const colour = () => view.colours()[style.name];
  return {
    label: labelOf(series, view.lang),
    stroke: colour,
    width: style.width * scale,
    dash: style.dash.map((length) => length * scale * uPlot.pxRatio),
    paths: group.steps ? stepPaths(view.rows) : linePaths,
    points: dots(series, view.rows, group.steps, 4 * scale, colour),
    value: (plot, drawn, at, row) => valueText(series, view, row),
  };
}

export function nameOf({ column }, lang) {
  return [column.caption, pipeText(column.pipe, lang)].filter(Boolean).join(' · ');
}

// What a chart does not show, or null.
export function noteOf(group, texts) {
  const leftOut = group.series.reduce((sum, series) => sum + series.leftOut, 0);
  return leftOut ? element('p', { class: 'chart-note' }, texts.notDrawn(leftOut)) : null;
}

export function labelOf(series, lang) {
  const sample = lineSample(series.style, propertyOf(series.style));
  const pipe = pipeText(series.column.pipe, lang);
  const caption = foreign(series.column.caption);
  return element('span', { class: 'chart-label' }, sample, caption, pipe && ` · ${pipe}`);
}

// The value as it was kept, even where it was not drawn.
function valueText({ column, values }, { lang, rows }, row) {
  const value = row == null ? null : values[rows.records[row]];
  return value == null ? null : numberText(value, column.decimals, lang);
}

function axisOf(view, scale) {
  const lines = { stroke: () => view.colours().grid, width: scale };
  return {
    stroke: () => view.colours().ink,
    font: `${Math.round(12 * scale)}px system-ui, sans-serif`,
    lineGap: 1.25,
    grid: lines,
    ticks: { ...lines, size: 6 * scale },
    border: { show: true, ...lines },
  };
}

function timeAxis(view, scale) {
  return {
    ...axisOf(view, scale),
    size: 40 * scale,
    gap: 3 * scale,
    space: 46 * scale,
    incrs: timeSteps,
    splits: timeTicks,
    values: timeLabels(view.lang, scale),
  };
}

function valueAxis(view, scale) {
  return {
    ...axisOf(view, scale),
    size: (14 + view.letters * 7) * scale,
    gap: 4 * scale,
    space: 28 * scale,
    values: valueLabels(view.lang),
  };
}
