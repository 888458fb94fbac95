// The npm package rtttl-parse: nanoseconds of processor time a byte, as the other programs here print them.
//   node peer.mjs TUNES SONG    files of RTTTL: a tune a line, and one long tune
import fs from "node:fs";
import rtttl from "rtttl-parse";

console.warn = () => {};

function bestPass(work) {
  let best = Infinity;
  for (let pass = 0; pass < 7; ++pass) {
    const start = process.cpuUsage();
    work();
    const took = process.cpuUsage(start);
    best = Math.min(best, took.user + took.system);
  }
  return best * 1000;
}

function measure(what, texts) {
  const bytes = texts.reduce((sum, text) => sum + text.length, 0);
  const best = bestPass(() => {
    for (const text of texts) {
      try {
        rtttl.parse(text);
      } catch {
        // A tune that it refuses took its time, too.
      }
    }
  });
  console.log(`${what}\t${best / bytes}\tns a byte`);
}

const [tunes, song] = process.argv.slice(2).map((file) => fs.readFileSync(file, "latin1"));
measure("read-tunes", tunes.split(/\r?\n/).filter(Boolean));
measure("read-rtttl", [song.trim()]);
