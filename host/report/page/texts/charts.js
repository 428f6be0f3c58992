// The words of the charts.
export const chartTexts = {
  en: {
    quantities: {
      temperature: 'Temperature',
      pressure: 'Pressure',
      'pressure difference': 'Pressure difference',
      'volume flow': 'Volume flow',
      'working volume flow': 'Working volume flow',
      'mass flow': 'Mass flow',
      volume: 'Volume',
      'working volume': 'Working volume',
      mass: 'Mass',
      heat: 'Heat',
    },
    pipes: {},
    units: { m3: 'm³', 'm3/h': 'm³/h', 'kgf/cm2': 'kgf/cm²' },
    months: ['Jan', 'Feb', 'Mar', 'Apr', 'May', 'Jun', 'Jul', 'Aug', 'Sep', 'Oct', 'Nov', 'Dec'],
    total: 'total',
    situation: 'situation',
    diagnostic: 'diagnostics',
    noRecord: 'no record',
    more: (count) => `${count} more`,
    marks: {
      situations: 'unusual situation',
      diagnostics: 'diagnostic code other than 0',
      changes: 'parameter change',
    },
    notDrawn: (count) => `Values beyond reason, not drawn: ${count}`,
    zoomIn: 'Zoom in',
    zoomOut: 'Zoom out',
    nothing: 'No values to draw.',
    toggle: (name) => `Show or hide ${name}`,
    chart: (title) =>
      `Chart: ${title}. Left and right arrows move in time, plus and minus zoom, zero shows all.`,
  },
  ru: {
    quantities: {
      temperature: 'Температура',
      pressure: 'Давление',
      'pressure difference': 'Перепад давления',
      'volume flow': 'Объёмный расход',
      'working volume flow': 'Объёмный расход в рабочих условиях',
      'mass flow': 'Массовый расход',
      volume: 'Объём',
      'working volume': 'Объём в рабочих условиях',
      mass: 'Масса',
      heat: 'Тепловая энергия',
    },
    pipes: {
      supply: 'подающий',
      return: 'обратный',
      third: 'третий',
      fourth: 'четвёртый',
      'cold water': 'холодная вода',
      'hot water': 'горячая вода',
      air: 'воздух',
      'gas 1': 'газ 1',
      'gas 2': 'газ 2',
      'gas 3': 'газ 3',
      'gas 4': 'газ 4',
    },
    units: {
      m3: 'м³',
      t: 'т',
      Gcal: 'Гкал',
      GJ: 'ГДж',
      MWh: 'МВт·ч',
      'kgf/cm2': 'кгс/см²',
      MPa: 'МПа',
      kPa: 'кПа',
      bar: 'бар',
      'm3/h': 'м³/ч',
      't/h': 'т/ч',
      h: 'ч',
      s: 'с',
    },
    months: ['янв', 'фев', 'мар', 'апр', 'май', 'июн', 'июл', 'авг', 'сен', 'окт', 'ноя', 'дек'],
    total: 'нарастающим итогом',
    situation: 'ситуация',
    diagnostic: 'диагностика',
    noRecord: 'нет записи',
    more: (count) => `ещё ${count}`,
    marks: {
      situations: 'нештатная ситуация',
      diagnostics: 'ненулевой диагностический код',
      changes: 'изменение параметра',
    },
    notDrawn: (count) => `Значений вне разумных пределов, не показано: ${count}`,
    zoomIn: 'Крупнее',
    zoomOut: 'Мельче',
    nothing: 'Нет значений для графиков.',
    toggle: (name) => `Показать или скрыть ${name}`,
    chart: (title) =>
      `График: ${title}. Стрелки влево и вправо сдвигают время, плюс и минус меняют масштаб, ` +
      'ноль показывает всё.',
  },
};

// A gas corrector's unit has words after it that say what the pressure is counted from.
export function unitText(unit, lang) {
  if (!unit) return '';
  const [first, ...rest] = unit.split(' ');
  return [wordOf(chartTexts[lang].units, first), ...rest].join(' ');
}

export function pipeText(pipe, lang) {
  return wordOf(chartTexts[lang].pipes, pipe ?? '');
}

// A text that is in no table stays as it is, even if every object has a member of its name.
function wordOf(words, text) {
  return Object.hasOwn(words, text) ? words[text] : text;
}
