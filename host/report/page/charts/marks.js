// What stands on the time axis: a band for unusual situations, a thinner one for diagnostic codes,
// an arrow for a changed parameter.
import uPlot from 'uplot';

// Below the axis, in pixels from it.
const SITUATIONS = { top: 1, height: 4 };
const DIAGNOSTICS = { top: 6, height: 2 };
const BANDS = 8;
const ARROW = 5;

export function drawMarks(plot, marks, colours, scale) {
  const ratio = uPlot.pxRatio * scale;
  const { ctx, bbox } = plot;
  ctx.save();
  ctx.beginPath();
  ctx.rect(bbox.left, bbox.top, bbox.width, bbox.height + BANDS * ratio);
  ctx.clip();
  drawBand(plot, marks.situations, colours.situations, SITUATIONS, ratio);
  drawBand(plot, marks.diagnostics, colours.diagnostics, DIAGNOSTICS, ratio);
  drawChanges(plot, marks.changes, colours.changes, ratio);
  ctx.restore();
}

function drawBand({ ctx, bbox, valToPos }, ranges, colour, { top, height }, ratio) {
  ctx.fillStyle = colour;
  const bottom = bbox.top + bbox.height;
  for (const { from, to } of ranges) {
    const left = valToPos(from, 'x', true);
    const width = Math.max(valToPos(to, 'x', true) - left, 1.5 * ratio);
    ctx.fillRect(left, bottom + top * ratio, width, height * ratio);
  }
}

function drawChanges({ ctx, bbox, valToPos }, changes, colour, ratio) {
  ctx.fillStyle = ctx.strokeStyle = colour;
  ctx.lineWidth = ratio;
  ctx.setLineDash([2 * ratio, 4 * ratio]);
  const bottom = bbox.top + bbox.height;
  for (const { time } of changes) {
    const x = Math.round(valToPos(time, 'x', true));
    ctx.beginPath();
    ctx.moveTo(x, bbox.top);
    ctx.lineTo(x, bottom);
    ctx.stroke();
    drawArrow(ctx, x, bottom, ARROW * ratio);
  }
}

function drawArrow(ctx, x, bottom, size) {
  ctx.beginPath();
  ctx.moveTo(x, bottom);
  ctx.lineTo(x - size, bottom - 1.6 * size);
  ctx.lineTo(x + size, bottom - 1.6 * size);
  ctx.fill();
}
