// Bundles the page's scripts and styles and writes them as C++: node build.mjs FOLDER
import { createHash } from 'node:crypto';
import { mkdirSync, readFileSync, writeFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { build } from 'esbuild';

const here = dirname(fileURLToPath(import.meta.url));
const target = process.argv[2];

// The libraries' licences ask to be kept in every copy.
function licences() {
  const packages = JSON.parse(readFileSync(join(here, 'package.json'))).dependencies;
  return Object.entries(packages)
    .map(([name, version]) => {
      const text = readFileSync(join(here, 'node_modules', name, 'LICENSE'), 'utf8');
      return `${name} ${version}\n\n${text.trim()}`;
    })
    .join('\n\n');
}

async function bundle(entry, banner) {
  const result = await build({
    entryPoints: [join(here, entry)],
    absWorkingDir: here,
    bundle: true,
    minify: true,
    write: false,
    format: 'iife',
    target: ['chrome100', 'firefox100', 'safari15'],
    charset: 'utf8',
    legalComments: 'none',
    banner,
    logLevel: 'warning',
  });
  return result.outputFiles[0].text.trim();
}

// What would end the element that the text stands in.
function requireEmbeddable(text) {
  for (const ending of ['</script', '</style', '<!--']) {
    if (text.toLowerCase().includes(ending)) throw new Error(`the bundle contains ${ending}`);
  }
}

function bytesOf(text) {
  const bytes = [...Buffer.from(text, 'utf8')];
  const lines = [];
  for (let i = 0; i < bytes.length; i += 24) lines.push(bytes.slice(i, i + 24).join(','));
  return lines.join(',\n');
}

function asset(name, text) {
  requireEmbeddable(text);
  const hash = createHash('sha256').update(text).digest('base64');
  return (
    `constexpr unsigned char k${name}[] = {\n${bytesOf(text)}};\n` +
    `PageAsset ${name}() {\n` +
    `  return {{reinterpret_cast<const char*>(k${name}), sizeof k${name}}, "${hash}"};\n}\n`
  );
}

const script = await bundle('main.js', { js: `/*!\n${licences()}\n*/` });
const style = await bundle('page.css', {});
mkdirSync(target, { recursive: true });
writeFileSync(
  join(target, 'page_assets.cpp'),
  `// Made from host/report/page.\n#include "host/report/page_assets.h"\n\n` +
    `namespace host {\n\n${asset('PageScript', script)}\n${asset('PageStyle', style)}\n` +
    `}  // namespace host\n`,
);
