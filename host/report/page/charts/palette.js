// How the pipes are told apart: by a colour (a custom property of charts.css), and for those who do
// not see colours and for grey paper by the width and the dashes of the line.
const PIPES = {
  supply: { name: 'supply', width: 2, dash: [] },
  return: { name: 'return', width: 1.25, dash: [] },
  third: { name: 'third', width: 1.5, dash: [7, 3] },
  fourth: { name: 'fourth', width: 1.5, dash: [2, 2.5] },
  'cold water': { name: 'cold-water', width: 1.5, dash: [10, 3, 2, 3] },
  'hot water': { name: 'hot-water', width: 1.5, dash: [4, 2] },
  air: { name: 'air', width: 1.5, dash: [1.5, 3] },
  'gas 1': { name: 'gas-1', width: 2, dash: [] },
  'gas 2': { name: 'gas-2', width: 1.25, dash: [] },
  'gas 3': { name: 'gas-3', width: 1.5, dash: [7, 3] },
  'gas 4': { name: 'gas-4', width: 1.5, dash: [2, 2.5] },
};
const NO_PIPE = { name: 'whole', width: 1.75, dash: [] };
const CHART_COLOURS = ['ink', 'grid', 'situations', 'diagnostics', 'changes'];
const EVERY = [...Object.values(PIPES), NO_PIPE];

// Returns {name, width, dash} for each; a second column of the same pipe takes what is free.
export function stylesOf(pipes) {
  const wanted = pipes.map((pipe) => PIPES[pipe] ?? NO_PIPE);
  const free = EVERY.filter((style) => !wanted.includes(style));
  return wanted.map((style, i) => (wanted.indexOf(style) === i ? style : (free.pop() ?? style)));
}

export function propertyOf(style) {
  return `--pipe-${style.name}`;
}

// The colours in force for an element, by the names of their properties without the dashes.
export function coloursAt(element) {
  const computed = getComputedStyle(element);
  const read = (name) => computed.getPropertyValue(name).trim();
  const colours = {};
  for (const style of EVERY) colours[style.name] = read(propertyOf(style));
  for (const name of CHART_COLOURS) colours[name] = read(`--chart-${name}`);
  return colours;
}
