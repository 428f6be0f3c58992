// The states of an instrument, told by a sign and a word besides the colour.
import { element } from './dom.js';
import { words } from './texts/index.js';

const SIGNS = { unread: '✕', findings: '!', gaps: '▒', clock: '◷', situation: '▲', order: '✓' };

export function stateChips(states) {
  const shown = states.length > 0 ? states : ['order'];
  return element('span', { class: 'chips' }, shown.map((state) => [
    element('span', { class: `chip ${state}` },
      element('span', { 'aria-hidden': 'true' }, SIGNS[state]), ` ${words.states[state]}`), ' ']));
}
