// The words of the page, in the one language that it was written in.
import { en } from './en.js';
import { ru } from './ru.js';

export let words = en;

export function useLanguage(lang) {
  words = lang === 'ru' ? ru : en;
}

// A word of a table by a name that others gave; the name itself when the table has none.
export function wordOf(table, name) {
  return Object.hasOwn(table, name) ? table[name] : name;
}
