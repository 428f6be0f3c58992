// Numbers in the page's language.
const LARGEST_WRITTEN_OUT = 1e12;
const EXPONENT = { notation: 'scientific', maximumFractionDigits: 3 };
const formats = new Map();

export function numberText(value, decimals, lang) {
  const huge = Math.abs(value) >= LARGEST_WRITTEN_OUT;
  return formatOf(huge ? null : Math.min(Math.max(decimals, 0), 10), lang).format(value);
}

// decimals: null for a number with an exponent.
function formatOf(decimals, lang) {
  const key = `${lang} ${decimals}`;
  if (!formats.has(key)) {
    const fixed = { minimumFractionDigits: decimals, maximumFractionDigits: decimals };
    formats.set(key, new Intl.NumberFormat(lang, decimals === null ? EXPONENT : fixed));
  }
  return formats.get(key);
}

// How many decimals tell apart numbers that are this far from each other.
export function decimalsOfStep(step) {
  const lost = (decimals) => Math.abs(step - Number(step.toFixed(decimals)));
  let decimals = 0;
  while (decimals < 6 && lost(decimals) > step / 1000) decimals += 1;
  return decimals;
}
