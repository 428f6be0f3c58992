// The parts of an instrument, as its archives, values and logs name them.

// Some sections name what they hold behind the part: "ТВ1 Контрольный", "ТВ1 НС".
const KINDS = / (Тотальный|Контрольный|Изменения|События|ИЗМ|НС)$/;

export function partOf(system) {
  return String(system ?? '').replace(KINDS, '');
}

const ORDER = ['hours', 'days', 'months', 'control'];

export function kindOf(archive) {
  return archive.totals ? 'control' : archive.kind;
}

// [{part, archives}], the archives from hours to control.
export function partsOf(instrument) {
  const parts = new Map();
  for (const archive of instrument.archives) {
    const part = partOf(archive.system);
    if (!parts.has(part)) parts.set(part, []);
    parts.get(part).push(archive);
  }
  const place = (archive) => ORDER.indexOf(kindOf(archive));
  return [...parts].map(([part, archives]) => ({
    part,
    archives: archives.sort((one, other) => place(one) - place(other)),
  }));
}
