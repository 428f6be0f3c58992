// Charts are drawn anew for paper, as wide as it and in dark on white, and back again.

const shown = new Set();

// Returns the charts, which are drawn for print from now on.
export function keepForPrint(charts) {
  shown.add(charts);
  return charts;
}

export function dropCharts(charts) {
  shown.delete(charts);
  charts.destroy();
}

export function dropAllCharts() {
  for (const charts of [...shown]) dropCharts(charts);
}

export function watchPrinting() {
  addEventListener('beforeprint', () => shown.forEach((charts) => charts.forPrint()));
  addEventListener('afterprint', () => shown.forEach((charts) => charts.afterPrint()));
}
