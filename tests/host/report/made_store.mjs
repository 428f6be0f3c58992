// Stores for the page: instruments that the simulators are, read by the program.
import { execFileSync, spawnSync } from 'node:child_process';
import { join } from 'node:path';

export class MadeStore {
  constructor(irvela, folder) {
    this.irvela = irvela;
    this.folder = folder;
    this.db = join(folder, 'page.db');
  }

  // Six weeks of a meter of two systems, whose units were changed on the way, with records that were
  // lost and a value beyond reason; a gas corrector; a meter of the newer protocol.
  fill() {
    const meter = ['--simulate', '523', '--db', this.db];
    const lost = ['--fault', 'frozen:200:1', '--attempts', '1', '--retry-gaps', '0'];
    this.read([...meter, '--clock', '2016-10-01 12:10:00', '--from', '2016-08-28', ...lost], 3);
    this.read([...meter, '--clock', '2016-10-12 12:10:00', '--since-last', '--sim-units', '1'], 0);
    for (const model of ['721', 'k7-521']) {
      this.read(['--simulate', model, '--db', this.db, '--clock', '2016-10-12 12:10:00',
        '--from', '2016-08-28'], 0);
    }
    this.sql("UPDATE records_523_hours SET v1 = 3e38 WHERE time = '2016-09-07 08:00:00'");
  }

  read(options, expected) {
    const { status, stderr } =
      spawnSync(this.irvela, ['read', ...options, '--format', 'csv'], { encoding: 'utf8' });
    if (status !== expected) throw new Error(`a reading ended with ${status}: ${stderr}`);
  }

  // Returns the path of the page.
  report(name, ...options) {
    const path = join(this.folder, name);
    execFileSync(this.irvela, ['report', '--db', this.db, '-o', path, ...options],
      { stdio: ['ignore', 'ignore', 'pipe'] });
    return path;
  }

  // What the store keeps, row by row.
  rows(...options) {
    const lines = execFileSync(this.irvela,
      ['export', '--db', this.db, '--format', 'jsonl', ...options],
      { encoding: 'utf8', maxBuffer: 1 << 28, stdio: ['ignore', 'pipe', 'ignore'] });
    return lines.trim().split('\n').map((line) => JSON.parse(line));
  }

  sql(statement) {
    execFileSync('sqlite3', [this.db, statement]);
  }
}
