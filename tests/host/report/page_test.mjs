// The page of irvela report as a browser shows it: node page_test.mjs IRVELA
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdtempSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, before, test } from 'node:test';
import { coloursOf, openBrowser, openPage, settle, show } from './browser.mjs';
import { MadeStore } from './made_store.mjs';

const folder = mkdtempSync(join(tmpdir(), 'irvela-page-'));
const store = new MadeStore(process.argv[2], folder);
let browser;

before(async () => {
  store.fill();
  browser = await openBrowser();
});
after(async () => {
  await browser?.close();
  rmSync(folder, { recursive: true, force: true });
});

const addresses = (page) =>
  page.$$eval('.overview tbody a', (links) => links.map((link) => link.getAttribute('href')));
const given = (page) =>
  page.$eval('#data', (element) => JSON.parse(element.textContent));
async function showModel(page, model) {
  const { instruments } = await given(page);
  await show(page, `#${instruments.findIndex((each) => each.model === model) + 1}-`);
}
const widths = (page) =>
  page.evaluate(() => [document.documentElement.scrollWidth, innerWidth]);
const buttons = (page, group) => page.locator(`.archive .${group} button`);

test('every view is quiet and draws all of its charts', async () => {
  const looks = [
    ['en', { colorScheme: 'light' }],
    ['ru', { colorScheme: 'dark', viewport: { width: 360, height: 740 } }],
  ];
  for (const [lang, look] of looks) {
    const { page, complaints } =
      await openPage(browser, store.report(`${lang}.html`, '--lang', lang), look);
    const instruments = await addresses(page);
    assert.equal(instruments.length, 3);
    for (const address of instruments) {
      await show(page, address);
      for (let part = 0; part < await buttons(page, 'parts').count(); ++part) {
        await buttons(page, 'parts').nth(part).click();
        for (let kind = 0; kind < await buttons(page, 'kinds').count(); ++kind) {
          await buttons(page, 'kinds').nth(kind).click();
          await settle(page);
          const drawn = await coloursOf(page, '.chart canvas');
          assert.ok(drawn.length > 1, `${address} has ${drawn.length} charts`);
          assert.ok(drawn.every((colours) => colours > 3), `${address}: ${drawn}`);
        }
      }
      const [content, window] = await widths(page);
      assert.ok(content <= window, `${address} is ${content} wide on ${window}`);
    }
    assert.deepEqual(complaints, []);
  }
});

test('zoom and cursor are shared, and a click on a name hides its line', async () => {
  const { page, complaints } = await openPage(browser, store.report('zoom.html'));
  await showModel(page, 'УРМ521');
  await page.locator('.archive .ranges button').last().click();
  const shownRange = () => page.$eval('.charts-at', (line) => line.textContent);
  const whole = await shownRange();
  const before = await page.$$eval('.chart canvas', (all) => all.map((each) => each.toDataURL()));

  const box = await page.locator('.chart .u-over').first().boundingBox();
  const drag = async (from, to) => {
    await page.mouse.move(box.x + box.width * from, box.y + box.height / 2);
    await page.mouse.down();
    await page.mouse.move(box.x + box.width * to, box.y + box.height / 2, { steps: 5 });
    await page.mouse.up();
    await page.mouse.move(0, 0);
    await settle(page);
  };
  await drag(0.4, 0.5);
  assert.notEqual(await shownRange(), whole);
  const zoomed = await page.$$eval('.chart canvas', (all) => all.map((each) => each.toDataURL()));
  zoomed.forEach((picture, i) => assert.notEqual(picture, before[i], `chart ${i} did not zoom`));
  await page.locator('.chart .u-over').first().dblclick();
  await settle(page);
  await page.mouse.move(0, 0);
  assert.equal(await shownRange(), whole);

  await page.mouse.move(box.x + box.width * 0.45, box.y + box.height / 2);
  await settle(page);
  const values = await page.$$eval('.chart', (charts) => charts.map((chart) =>
    [...chart.querySelectorAll('.u-series:not(:first-child) .u-value')]
      .map((value) => value.textContent)));
  assert.ok(values.every((chart) => chart.length > 0 && chart.every((text) => /\d/.test(text))),
    JSON.stringify(values));

  const lines = () => coloursOf(page, '.chart canvas');
  await page.mouse.move(0, 0);
  const [all] = await lines();
  for (const name of await page.locator('.chart').first().locator('.u-series th').all()) {
    if (await name.isVisible()) await name.click();
  }
  await settle(page);
  assert.ok((await lines())[0] < all, 'hidden lines are still drawn');
  assert.deepEqual(complaints, []);
});

test('the tables hold what the store keeps', async () => {
  const { page } = await openPage(browser, store.report('tables.html'));
  const data = await given(page);
  for (const [index, { serial, model, archives }] of data.instruments.entries()) {
    const hours = archives.find(({ kind }) => kind === 'hours');
    await show(page, `#${index + 1}-${serial}`);
    await page.locator('.records summary').click();
    await page.locator('.records select').selectOption({ index: 1 });
    const shown = await page.$$eval('.records tbody tr:not(.gap)', (rows) => rows.map((row) =>
      [...row.children].map((cell) => cell.textContent)));
    const expected = store.rows('--serial', serial, '--system', hours.system, '--groups', 'H')
      .filter((row) => row.model === model);
    const used = hours.columns.filter(({ field }) => expected.some((row) => row[field] != null));
    const month = expected.filter(({ time }) => time.startsWith('2016-09'));
    assert.equal(shown.length, month.length, model);
    month.forEach((row, i) => {
      assert.equal(shown[i][0], row.time.slice(0, 16), model);
      used.forEach(({ field, decimals }, column) => {
        const text = shown[i][column + 1].replace(/[,\s]/g, '').replace('−', '-');
        const number = /\d/.test(text) ? Number(text) : null;
        if (row[field] == null) return assert.equal(number, null, `${field} ${row.time}`);
        const off = Math.abs(number - row[field]);
        const most = Math.max(0.51 * 10 ** -decimals, Math.abs(row[field]) * 1e-7);
        assert.ok(off <= most, `${row.time} ${field}: ${text}, ${row[field]}`);
      });
    });
  }
});

// Pages, and the text of each.
function printed(name) {
  const path = join(folder, name);
  const pages = Number(/Pages:\s+(\d+)/.exec(execFileSync('pdfinfo', [path], { encoding: 'utf8' }))[1]);
  const texts = execFileSync('pdftotext', ['-layout', path, '-'], { encoding: 'utf8' }).split('\f');
  return { pages, texts: texts.slice(0, pages) };
}

test('it prints on whole pages', async () => {
  const { page, complaints } = await openPage(browser, store.report('print.html'));
  const print = (name) => page.pdf({ path: join(folder, name), preferCSSPageSize: true });
  await print('overview.pdf');
  assert.equal(printed('overview.pdf').pages, 1);

  await showModel(page, 'УРМ523');
  const canvases = () => page.$$eval('canvas', (all) => all.length);
  const before = await canvases();
  await print('instrument.pdf');
  assert.equal(await canvases(), before, 'what was drawn for print is still there');
  const sheets = printed('instrument.pdf');
  assert.ok(sheets.pages >= 2);
  assert.ok(sheets.texts.some((text) => /^ *ТВ1 · Hours$/m.test(text)), 'what is drawn is not told');

  await show(page, '#all');
  await print('all.pdf');
  const all = printed('all.pdf').texts;
  for (const { serial, model } of (await given(page)).instruments) {
    const begins = all.filter((text) => text.trimStart().startsWith(`${model} `) &&
      text.includes(serial));
    assert.equal(begins.length, 1, `${model} begins ${begins.length} pages`);
  }
  assert.deepEqual(complaints, []);
});

test('a statement has a sheet for each heat system, and its sums are right', async () => {
  const path = store.report('statement.html', '--statement', '2016-09');
  const { page, complaints } = await openPage(browser, path);
  await page.pdf({ path: join(folder, 'statement.pdf'), preferCSSPageSize: true });
  const data = await given(page);
  const systems = data.instruments.flatMap(({ archives }) =>
    archives.filter(({ kind, totals }) => kind === 'days' && !totals));
  const sheets = printed('statement.pdf').texts.filter((text) => /September 2016/.test(text));
  assert.equal(sheets.length, systems.length);

  const tables = await page.$$eval('.sheet', (sheets) => sheets.map((sheet) => ({
    days: sheet.querySelectorAll('tbody tr').length,
    columns: [...sheet.querySelectorAll('tbody tr:first-child td')].map((_, i) => ({
      values: [...sheet.querySelectorAll(`tbody td:nth-child(${i + 2})`)]
        .map((cell) => cell.textContent),
      sum: sheet.querySelector(`tfoot tr:first-child td:nth-child(${i + 2})`)?.textContent ?? '',
    })),
  })));
  const numberIn = (text) => Number(text.replace(/[,\s]/g, ''));
  for (const { days, columns } of tables) {
    assert.equal(days, 30);
    const summed = columns.filter(({ sum }) => /\d/.test(sum));
    assert.ok(summed.length > 2);
    for (const { values, sum } of summed) {
      const total = values.reduce((all, text) => all + (/\d/.test(text) ? numberIn(text) : 0), 0);
      assert.ok(Math.abs(total - numberIn(sum)) < 1e-6, `${total}, not ${sum}`);
    }
  }
  assert.deepEqual(complaints, []);
});

// Of every table: whether a row is not as wide as its head.
const unevenTables = (page) => page.$$eval('table', (tables) => tables.filter((table) => {
  const width = (row) => [...row.cells].reduce((sum, cell) => sum + cell.colSpan, 0);
  const [head] = table.tHead?.rows ?? [];
  return head && [...table.tBodies].some((body) =>
    [...body.rows].some((row) => width(row) !== width(head)));
}).map((table) => table.textContent.slice(0, 80)));

// The store's own texts, made hostile: what instruments and settings may hold.
test('hostile texts stay texts', async () => {
  const text = `</script><script>window.taken=1</script><img src=x onerror="window.taken=1">'"\u202e\u2028`;
  const quoted = text.replaceAll("'", "''");
  const json = JSON.stringify(text).replaceAll("'", "''");
  store.sql(`UPDATE instruments SET place = '${quoted}', version = '${quoted}';
    UPDATE instruments SET serial = serial || '${quoted}' WHERE model = 'УРМ523';
    UPDATE columns SET caption = '${quoted}' WHERE field <> 'time';
    UPDATE readings SET reason = '${quoted}';
    UPDATE snapshots SET content = json_set(content, '$.to_time', json('${json}'));
    UPDATE log_entries SET entry = json_set(entry, '$.change', json('${json}'));`);
  for (const options of [[], ['--statement', '2016-09', '--lang', 'ru']]) {
    const { page, complaints } = await openPage(browser, store.report('hostile.html', ...options));
    const views = options.length > 0 ? [''] : [...await addresses(page), '#all'];
    for (const address of views) {
      await show(page, address);
      for (const summary of await page.locator('summary').all()) await summary.click();
      await settle(page);
      const found = await page.evaluate(() => ({
        taken: window.taken,
        scripts: document.scripts.length,
        images: document.images.length,
        texts: document.body.innerText.split('window.taken').length - 1,
      }));
      assert.deepEqual(await unevenTables(page), []);
      assert.equal(found.taken, undefined);
      assert.deepEqual([found.scripts, found.images], [2, 0]);
      assert.ok(found.texts > 0, `${address} does not show them`);
    }
    assert.deepEqual(complaints, []);
  }
});
