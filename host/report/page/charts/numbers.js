// Numbers in the page's language.
const LARGEST_WRITTEN_OUT = 1e12;
const formats = new Map();

export function numberText(value, decimals, lang) {
  if (Math.abs(value) >= LARGEST_WRITTEN_OUT) return value.toExponential(3).replace('e+', 'e');
  return formatOf(Math.min(Math.max(decimals, 0), 10), lang).format(value);
}

function formatOf(decimals, lang) {
  const key = `${lang} ${decimals}`;
  if (!formats.has(key)) {
    const options = { minimumFractionDigits: decimals, maximumFractionDigits: decimals };
    formats.set(key, new Intl.NumberFormat(lang, options));
  }
  return formats.get(key);
}

// How many decimals tell apart numbers that are this far from each other.
export function decimalsOfStep(step) {
  let decimals = 0;
  while (decimals < 6 && Math.abs(step - Number(step.toFixed(decimals))) > step / 1000) decimals += 1;
  return decimals;
}
