// The part of the address behind "#" that names what is shown.

export const OVERVIEW = '#';
export const ALL = '#all';

// Instruments are numbered from 1; the serial number is for people.
export function addressOf(instrument, index) {
  return `#${index + 1}-${encodeURIComponent(String(instrument.serial ?? '').slice(0, 40))}`;
}

// {all} or {index} or {}, the overview; index is -1 where the address names none of so many.
export function readAddress(hash, count) {
  if (hash === ALL) return { all: true };
  const number = Number(/^#(\d+)(?:-|$)/.exec(hash)?.[1] ?? 0);
  return number >= 1 && number <= count ? { index: number - 1 } : {};
}
