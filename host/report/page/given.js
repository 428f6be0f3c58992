// What the page was given, with a list wherever one may have been left out.

const LISTS = ['current', 'parameters', 'changes', 'findings', 'logs', 'archives'];

function withLists(object, names) {
  return { ...object, ...Object.fromEntries(names.map((name) => [name, object[name] ?? []])) };
}

function completeInstrument(instrument) {
  const complete = withLists(instrument, LISTS);
  const each = (list, names) => list.map((entry) => withLists(entry, names));
  return {
    ...complete,
    current: each(complete.current, ['values']),
    parameters: each(complete.parameters, ['values']),
    logs: each(complete.logs, ['columns', 'rows']),
    archives: each(complete.archives, ['columns']),
  };
}

export function readGiven(text) {
  const given = withLists(JSON.parse(text), ['instruments']);
  return { ...given, instruments: given.instruments.map(completeInstrument) };
}
