// How long the pages of irvela report take in headless Chromium: node bench/report_page.mjs FILE...
import { statSync } from 'node:fs';
import { resolve } from 'node:path';
import { openBrowser, openPage, settle, show } from '../tests/host/report/browser.mjs';

const REPEATED = 9;

const median = (values) => [...values].sort((one, other) => one - other)[values.length >> 1];
const text = (values) => `${Math.round(median(values))} ms (${Math.round(Math.min(...values))} to ` +
  `${Math.round(Math.max(...values))})`;

async function timed(work) {
  const begin = performance.now();
  await work();
  return performance.now() - begin;
}

// From the begin of the navigation until the browser has painted.
async function firstPaint(page) {
  const entry = () => performance.getEntriesByName('first-contentful-paint')[0]?.startTime;
  return (await page.waitForFunction(entry)).jsonValue();
}

// Zooms all charts of the view step by step. Returns the ms of each until it is on the screen, the
// wait for a frame included.
const zooming = (page) => page.evaluate(async () => {
  const frame = () => new Promise((done) => { requestAnimationFrame(() => setTimeout(done)); });
  const range = () => document.querySelector('.charts-at').textContent;
  const area = document.querySelector('.chart-area');
  const times = [];
  for (const key of ['+', '+', '+', '+', '-', '-', '-', '-']) {
    await frame();
    const before = range();
    const begin = performance.now();
    area.dispatchEvent(new KeyboardEvent('keydown', { key, bubbles: true }));
    await frame();
    times.push(performance.now() - begin);
    if (range() === before) throw new Error('nothing was zoomed');
  }
  return times;
});

async function measure(browser, path) {
  const times = { paint: [], instrument: [], zoom: [] };
  for (let i = 0; i < REPEATED; ++i) {
    const { page } = await openPage(browser, path);
    times.paint.push(await firstPaint(page));
    times.instrument.push(await timed(() => show(page, '#1-')));
    await page.locator('.archive .ranges button').last().click();
    await settle(page);
    times.zoom.push(...await zooming(page));
    await page.context().close();
  }
  console.log(`${path}: ${(statSync(path).size / 1e6).toFixed(1)} MB`);
  console.log(`  first view painted        ${text(times.paint)}`);
  console.log(`  an instrument opened      ${text(times.instrument)}`);
  console.log(`  all of its charts zoomed  ${text(times.zoom)}`);
}

const browser = await openBrowser();
for (const path of process.argv.slice(2)) await measure(browser, resolve(path));
await browser.close();
