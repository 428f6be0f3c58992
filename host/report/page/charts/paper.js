// The charts for print: drawn anew, larger and in the colours of paper, and shown instead of those
// of the screen, which stay as they are.
import uPlot from 'uplot';
import { element } from '../dom.js';
import { chartTexts } from '../texts/charts.js';
import { coloursAt } from './palette.js';
import { labelOf, noteOf, plotData, plotOptions } from './plot.js';

const CSS_DPI = 96;
const PAPER_DPI = 216;
const WIDTH = (180 / 25.4) * CSS_DPI;
const HEIGHT = 172;

// The sheet must stand in the page already: its colours are read from there.
export function fillPaper(sheet, groups, view) {
  const colours = coloursAt(sheet);
  const paperView = { ...view, colours: () => colours };
  sheet.append(...groups.map((group) => paperChart(group, paperView)));
}

function paperChart(group, view) {
  const labels = group.series.map((series) => labelOf(series, view.lang));
  return element(
    'figure',
    { class: 'chart-paper' },
    element('figcaption', { class: 'chart-title' }, group.title),
    element('div', { class: 'chart-legend' }, ...labels),
    drawnCanvas(group, view),
    noteOf(group, chartTexts[view.lang]),
  );
}

// uPlot draws for the pixels of the screen: the rest of the density comes from the size. It would
// draw later; batch draws at once, before the page is printed.
function drawnCanvas(group, view) {
  const scale = PAPER_DPI / CSS_DPI / uPlot.pxRatio;
  const options = {
    ...plotOptions(group, view, { width: WIDTH * scale, height: HEIGHT * scale, scale }),
    legend: { show: false },
    cursor: { show: false },
  };
  const plot = new uPlot(options, plotData(group, view.rows));
  plot.batch(() => {});
  const { canvas } = plot.ctx;
  plot.destroy();
  return canvas;
}
