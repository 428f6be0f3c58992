// A chart on the screen: its heading, its legend of live values and what hands do to it.
import uPlot from 'uplot';
import { element } from '../dom.js';
import { chartTexts } from '../texts/charts.js';
import { dragCursor, listenToKeys } from './gestures.js';
import { nameOf, noteOf, plotData, plotOptions } from './plot.js';

// Below this width of the page a chart has less height too.
const NARROW = 520;

export function sizeFor(width) {
  return { width: Math.max(width, 200), height: width < NARROW ? 170 : 210, scale: 1 };
}

// view as for plotOptions, and {sync: name of the shared cursor, zoom, onCursor(plot)}.
export function showChart(group, view, width) {
  const texts = chartTexts[view.lang];
  const legend = element('div', { class: 'chart-legend' });
  const area = element('div', { class: 'chart-area' });
  const title = element('figcaption', { class: 'chart-title' }, group.title);
  const chart = element('figure', { class: 'chart' }, title, legend, area, noteOf(group, texts));
  const options = { ...plotOptions(group, view, sizeFor(width)), ...handling(view, legend) };
  options.hooks = { ...options.hooks, ...hooks(view) };
  const plot = new uPlot(options, plotData(group, view.rows), area);
  makeSwitches(legend, group, view.lang);
  area.setAttribute('aria-label', texts.chart(group.title));
  listenToKeys(area, view.zoom);
  dragCursor(plot);
  return { chart, plot };
}

// What is done to one chart is done to all by the view; only the cursor goes by uPlot's own way.
function handling(view, legend) {
  const all = () => () => view.zoom.all();
  return {
    legend: {
      mount: (plot, table) => legend.append(table),
      markers: { show: false, stroke: () => 'inherit' },
    },
    cursor: {
      y: false,
      drag: { x: true, y: false, setScale: false },
      bind: { dblclick: all },
      points: { size: 7 },
      sync: { key: view.sync, setSeries: false, filters: { pub: (type) => type === 'mousemove' } },
    },
  };
}

function hooks(view) {
  return {
    setCursor: [view.onCursor],
    setSelect: [
      (plot) => {
        const { left, width } = plot.select;
        if (width < 4) return;
        view.zoom.to(plot.posToVal(left, 'x'), plot.posToVal(left + width, 'x'));
        plot.setSelect({ left: 0, top: 0, width: 0, height: 0 }, false);
      },
    ],
  };
}

// The names in the legend show and hide their lines, by keys too.
function makeSwitches(legend, group, lang) {
  const heads = [...legend.querySelectorAll('.u-series th')].slice(-group.series.length);
  heads.forEach((head, i) => {
    head.tabIndex = 0;
    head.setAttribute('role', 'button');
    head.title = chartTexts[lang].toggle(nameOf(group.series[i], lang));
    head.addEventListener('keydown', (event) => {
      if (event.key !== 'Enter' && event.key !== ' ') return;
      event.preventDefault();
      head.click();
    });
  });
}
