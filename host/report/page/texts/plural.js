// Forms of a noun by number: forms.one, .few, .many, .other as the language has them.
export function pluralOf(lang) {
  const rules = new Intl.PluralRules(lang);
  const numbers = new Intl.NumberFormat(lang);
  return (count, forms) => `${numbers.format(count)} ${forms[rules.select(count)] ?? forms.other}`;
}
