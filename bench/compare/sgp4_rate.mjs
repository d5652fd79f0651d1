// The rate of SGP4 in the WebAssembly form of satellite.js, for comparison with bench/sgp4_rate.cpp.
//
//   node sgp4_rate.mjs PACKAGE CATALOGUE [RUNS]
//
// PACKAGE is the folder of the installed package (.../node_modules/satellite.js), CATALOGUE a file of entries of three
// lines. Every entry is propagated over the 1,440 minutes of 2018 January 20, on one thread. A first run is not
// counted: in it the module is compiled. The time is the CPU time of the whole process while the propagator runs;
// reading and initialising stand outside of it. The sums are over all states without an error.
import { readFileSync } from 'node:fs';
import { join, resolve } from 'node:path';
import { pathToFileURL } from 'node:url';

const minutes = 1440;
const start = Date.UTC(2018, 0, 20);

function entries(file) {
    const lines = readFileSync(file, 'utf8').split(/\r?\n/);
    const found = [];
    for (let i = 0; i + 1 < lines.length; ++i)
        if (lines[i].startsWith('1 ') && lines[i + 1].startsWith('2 '))
            found.push([lines[i], lines[i + 1]]);
    return found;
}

function sums({ position, velocity, error }) {
    let r = 0, v = 0, failed = 0;
    for (let i = 0; i < error.length; ++i) {
        if (error[i] !== 0) {
            ++failed;
            continue;
        }
        for (let c = 3 * i; c < 3 * i + 3; ++c) {
            r += Math.abs(position[c]);
            v += Math.abs(velocity[c]);
        }
    }
    return { r, v, failed };
}

const [folder, catalogue, runs = '5'] = process.argv.slice(2);
if (!catalogue) {
    console.error('usage: node sgp4_rate.mjs PACKAGE CATALOGUE [RUNS]');
    process.exit(2);
}
const satellite = await import(pathToFileURL(join(resolve(folder), 'dist', 'index.js')));
const runtime = await satellite.createSingleThreadRuntime();
const records = entries(catalogue).map(([one, two]) => satellite.twoline2satrec(one, two));
const dates = Array.from({ length: minutes }, (_, i) => new Date(start + 60000 * i));
const propagator = new satellite.BulkPropagator({
    runtime,
    calculators: [new satellite.EciBaseCalculator()],
    satRecsCount: records.length,
    datesCount: dates.length,
});
propagator.setSatRecs(records);
propagator.setDates(dates);
propagator.run();

const evaluations = records.length * minutes;
const rates = [];
for (let run = 0; run < Number(runs); ++run) {
    const before = process.cpuUsage();
    propagator.run();
    const { user, system } = process.cpuUsage(before);
    rates.push(evaluations / ((user + system) / 1e6));
}
const { r, v, failed } = sums(propagator.getRawOutput().eci);
rates.sort((a, b) => a - b);
console.log(`satellite.js: ${records.length} entries, ${evaluations} evaluations, ${failed} failed`);
console.log(`sums: ${r.toFixed(3)} km ${v.toFixed(6)} km/s`);
console.log(`evaluations per CPU second: median ${rates[rates.length >> 1].toFixed(0)}, ` +
            `${rates[0].toFixed(0)} to ${rates.at(-1).toFixed(0)} in ${rates.length} runs`);
propagator.dispose();
