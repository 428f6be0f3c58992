// The page: what it was given, shown as its address says.
import { readAddress } from './address.js';
import { mapPatterns } from './coverage_map.js';
import { element } from './dom.js';
import { everythingView } from './everything.js';
import { monthName, useFormats } from './formats.js';
import { readGiven } from './given.js';
import { instrumentView, nameNodes } from './instrument.js';
import { overviewView } from './overview.js';
import { dropAllCharts, watchPrinting } from './print.js';
import { statementView } from './statement.js';
import { useLanguage, words } from './texts/index.js';

const given = readGiven(document.getElementById('data').textContent);
const place = element('main', { class: 'report' });

// Returns {title, node, start}.
function viewOf(address) {
  if (given.statement) {
    return { title: monthName(given.statement), node: statementView(given) };
  }
  if (address.all) return { title: words.overview.printAll, ...everythingView(given) };
  if (address.index != null) {
    const title = element('h1', {}, nameNodes(given.instruments[address.index])).textContent;
    return { title, ...instrumentView(given, address.index) };
  }
  return { title: words.overview.title, node: overviewView(given) };
}

// Marks of direction, which would turn round what stands behind them.
const DIRECTIONS = /[\u061c\u200e\u200f\u202a-\u202e\u2066-\u2069]/g;

function show() {
  dropAllCharts();
  const { title, node, start } = viewOf(readAddress(location.hash, given.instruments.length));
  document.title = [title, given.store].filter(Boolean).join(' — ').replace(DIRECTIONS, '');
  place.replaceChildren(node);
  start?.();
  scrollTo(0, 0);
}

useLanguage(given.lang);
useFormats(given.lang);
document.body.append(mapPatterns(), place);
watchPrinting();
addEventListener('hashchange', show);
show();
