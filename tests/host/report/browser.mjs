// A page of irvela report in headless Chromium, watched: what it says on the console and what it
// asks for from elsewhere.
import { createRequire } from 'node:module';
import { pathToFileURL } from 'node:url';

const require = createRequire(new URL('../../../host/report/page/', import.meta.url));
const { chromium } = require('playwright-core');

// Nothing that the browser does by itself, of which the network is no part.
const ARGUMENTS = ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
  '--disable-background-networking', '--disable-component-update', '--disable-sync'];

export function openBrowser() {
  return chromium.launch({ executablePath: '/usr/bin/chromium', args: ARGUMENTS });
}

// Returns {page, complaints}: complaints grows with whatever should not be. options: as a browser
// context takes them.
export async function openPage(browser, path, options = {}) {
  const context = await browser.newContext({ viewport: { width: 1280, height: 900 }, ...options });
  const page = await context.newPage();
  const own = pathToFileURL(path).href;
  const complaints = [];
  page.on('console', (message) => complaints.push(`${message.type()}: ${message.text()}`));
  page.on('pageerror', (error) => complaints.push(error.stack));
  page.on('request', (request) => {
    const url = request.url();
    if (!url.startsWith(own) && !url.startsWith('data:')) complaints.push(`asks for ${url}`);
  });
  await page.goto(own);
  return { page, complaints };
}

// Shows what an address of the page ("#all") names.
export async function show(page, address) {
  await page.evaluate((hash) => { location.hash = hash; }, address);
  await page.waitForFunction((hash) => location.hash === hash, address);
  await settle(page);
}

// Until what was asked for is drawn.
export function settle(page) {
  return page.evaluate(() => new Promise((done) => {
    requestAnimationFrame(() => requestAnimationFrame(() => setTimeout(done, 0)));
  }));
}

// How many different colours each canvas holds that can be seen. They are read from a copy: the
// browser warns of reading what is to be drawn on again.
export function coloursOf(page, selector) {
  return page.$$eval(selector, (canvases) => canvases.map((canvas) => {
    const copy = new OffscreenCanvas(canvas.width, canvas.height).getContext('2d');
    copy.drawImage(canvas, 0, 0);
    const { data } = copy.getImageData(0, 0, canvas.width, canvas.height);
    const colours = new Set();
    for (let i = 0; i < data.length; i += 4) {
      if (data[i + 3] > 128) colours.add(`${data[i] >> 4},${data[i + 1] >> 4},${data[i + 2] >> 4}`);
    }
    return colours.size;
  }));
}
