// The page: what it was given, shown as its address says.
import { readAddress } from './address.js';
import { mapPatterns } from './coverage_map.js';
import { element } from './dom.js';
import { everythingView } from './everything.js';
import { monthName, useFormats } from './formats.js';
import { readGiven } from './given.js';
import { instrumentView, nameOf } from './instrument.js';
import { overviewView } from './overview.js';
import { dropAllCharts, watchPrinting } from './print.js';
import { statementView } from './statement.js';
import { useLanguage, words } from './texts/index.js';

const given = readGiven(document.getElementById('data').textContent);
const place = element('div', { class: 'report' });

// Returns {title, node, start}.
function viewOf(address) {
  if (given.statement) {
    return { title: monthName(given.statement), node: statementView(given) };
  }
  if (address.all) return { title: words.overview.printAll, ...everythingView(given) };
  if (address.index != null) {
    const title = nameOf(given.instruments[address.index]);
    return { title, ...instrumentView(given, address.index) };
  }
  return { title: words.overview.title, node: overviewView(given) };
}

function show() {
  dropAllCharts();
  const { title, node, start } = viewOf(readAddress(location.hash, given.instruments.length));
  document.title = [title, given.store].filter(Boolean).join(' — ');
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
