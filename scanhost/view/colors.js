// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// Colours of points. The ramps grow lighter from end to end, so they can be read in grey and by
// people who are colour-blind.

const RAMPS = {
    /** "viridis" of matplotlib, at nine places. */
    viridis: [
        [68, 1, 84], [71, 45, 123], [59, 82, 139], [44, 114, 142], [33, 145, 140], [40, 174, 128],
        [94, 201, 98], [173, 220, 48], [253, 231, 37]
    ],
    grey: [[45, 45, 45], [250, 250, 250]],
};

/** Colours of scans that stay apart for everybody, after Okabe and Ito. */
const SCAN_COLORS = [
    [230, 159, 0], [86, 180, 233], [0, 158, 115], [240, 228, 66], [0, 114, 178], [213, 94, 0],
    [204, 121, 167]
];
const NO_COLOR = [128, 128, 128];

function scanColor(scan) { return SCAN_COLORS[scan.number % SCAN_COLORS.length]; }

function cssColor(color) { return `rgb(${color.join(',')})`; }

/** Whether a scan has colours, and not just black: some programs write that for none. */
function hasSomeColor(scan) {
    return scan.colors !== null && scan.colors.some((channel, i) => i % 4 < 3 && channel > 0);
}

/** A ramp as 256 colours, one after the other. */
function rampTable(ramp) {
    const table = new Uint8Array(256 * 3);
    for (let i = 0; i < 256; ++i) {
        const place = i / 255 * (ramp.length - 1);
        const before = ramp[Math.floor(place)];
        const after = ramp[Math.ceil(place)];
        for (let axis = 0; axis < 3; ++axis) {
            table[3 * i + axis] = before[axis] + (after[axis] - before[axis]) * (place % 1);
        }
    }
    return table;
}

/** Where most of some values lie: without the lowest and the highest part of them. */
function rangeOfMost(values, part) {
    const sorted = Float64Array.from(values).sort();
    if (sorted.length === 0) {
        return {low: 0, high: 1};
    }
    const at = (share) => sorted[Math.round(share * (sorted.length - 1))];
    const low = at(part);
    return {low, high: Math.max(at(1 - part), low + 1e-9)};
}

/** A value of some of the points of all scans. */
function sampleOf(scans, value) {
    const values = [];
    for (const scan of scans) {
        const step = Math.max(1, Math.floor(scan.points.count / 20000));
        for (let i = 0; i < scan.points.count; i += step) {
            const found = value(scan, i);
            if (found !== null) {
                values.push(found);
            }
        }
    }
    return values;
}

const heightOf = (scan, i) =>
    scan.points.origin[2] + scan.points.steps[3 * i + 2] * scan.points.step;
const timeShareOf = (scan, i) => scan.times === null ? null : scan.timeOf(i);
const reflectionValue = (scan, i) => scan.reflectionOf(i);

/** The ways to colour points: what each is called, its ramp, and the value that picks from it. */
const COLOR_MODES = {
    rgb: {label: 'colour', has: (scan) => scan.colors !== null},
    reflection: {
        label: 'reflection',
        has: (scan) => scan.reflections !== null,
        ramp: RAMPS.grey,
        value: reflectionValue,
        unit: () => '',
        digits: 0,
    },
    height: {
        label: 'height',
        has: () => true,
        ramp: RAMPS.viridis,
        value: heightOf,
        unit: (page) => page.heightUnit,
        digits: 2,
    },
    time: {
        label: 'time',
        has: (scan) => scan.times !== null,
        ramp: RAMPS.viridis,
        value: timeShareOf,
        unit: () => 's',
        digits: 1,
    },
    scan: {label: 'scan', has: () => true},
};

/** The range that a mode's ramp spans; null for a mode without one. */
function colorRange(scans, mode) {
    const {value} = COLOR_MODES[mode];
    return value ? rangeOfMost(sampleOf(scans, value), mode === 'time' ? 0 : 0.01) : null;
}

/** Writes the colours of a scan's points. @param {Uint8Array} out four bytes for each point */
function paintScan(scan, mode, range, out) {
    if (mode === 'rgb') {
        paintOwn(scan, out);
    } else if (COLOR_MODES[mode].value) {
        paintRamp(scan, COLOR_MODES[mode], range, out);
    } else {
        const color = scanColor(scan);
        for (let i = 0; i < out.length; i += 4) {
            out.set(color, i);
        }
    }
}

/** A point's own colour, else its reflection as a grey. */
function paintOwn(scan, out) {
    const {colors, reflections} = scan;
    for (let i = 0; i < scan.points.count; ++i) {
        const hasOwn = colors !== null && colors[4 * i + 3] !== 0;
        const grey = reflections === null ? NO_COLOR[0] : reflections[i] >> 8;
        for (let axis = 0; axis < 3; ++axis) {
            out[4 * i + axis] = hasOwn ? colors[4 * i + axis] : grey;
        }
    }
}

function paintRamp(scan, {ramp, value}, range, out) {
    const table = rampTable(ramp);
    const scale = 255 / (range.high - range.low);
    for (let i = 0; i < scan.points.count; ++i) {
        const found = value(scan, i);
        const entry =
            found === null ? 0 : 3 * Math.round(clamp((found - range.low) * scale, 0, 255));
        for (let axis = 0; axis < 3; ++axis) {
            out[4 * i + axis] = found === null ? NO_COLOR[axis] : table[entry + axis];
        }
    }
}
