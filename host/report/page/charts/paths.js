// How the values of a series become lines.
import uPlot from 'uplot';

const line = uPlot.paths.linear();

// Below this many pixels a period the steps of amounts cannot be told from a line, and a line is
// drawn with at most a few strokes a pixel.
const NARROWEST_STEP = 2;

function pixelsOfPeriod(plot, rows) {
  const { min, max } = plot.scales.x;
  return (plot.bbox.width * rows.seconds) / (max - min);
}

const isDense = (plot, rows) => pixelsOfPeriod(plot, rows) < NARROWEST_STEP * uPlot.pxRatio;

// Each amount stands over the interval in which it was counted.
export function stepPaths(rows) {
  return (plot, at, first, last) => {
    if (isDense(plot, rows)) return line(plot, at, first, last);
    const stroke = new Path2D();
    let joined = false;
    for (let i = first; i <= last; i += 1) {
      const value = plot.data[at][i];
      if (value !== null) addStep(stroke, plot, value, rows.starts[i], rows.ends[i], joined);
      joined = value !== null;
    }
    return { stroke, fill: null, clip: null, band: null, gaps: null, flags: 0 };
  };
}

function addStep(path, plot, value, start, end, joined) {
  const y = plot.valToPos(value, 'y', true);
  const left = plot.valToPos(start, 'x', true);
  if (joined) path.lineTo(left, y);
  else path.moveTo(left, y);
  path.lineTo(plot.valToPos(end, 'x', true), y);
}

export const linePaths = line;

// Dots where there is room for them, else only where no line would show the value.
export function dots(series, rows, steps, size, colour) {
  const lonely = (first, last) => series.lonely.filter((i) => i >= first && i <= last);
  const roomy = (plot) => !steps && pixelsOfPeriod(plot, rows) > size * 4 * uPlot.pxRatio;
  return {
    size,
    width: 0,
    fill: colour,
    show: roomy,
    filter: (plot, at, shown) => {
      if (shown || (steps && !isDense(plot, rows))) return null;
      const [first, last] = plot.series[0].idxs;
      return lonely(first, last);
    },
  };
}
