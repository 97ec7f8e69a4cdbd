// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// What the page holds of the scans. Numbers lie in blocks of the page as base64, little endian.

/** Time of a point that has none [us]. */
const NO_TIME = 0xffffffff;

/** Bytes of a block; the block leaves the page. @param {number} number @returns {ArrayBuffer} */
function takeBlock(number) {
    const block = byId(`block-${number}`);
    const text = atob(block.textContent);
    block.remove();
    const bytes = new Uint8Array(text.length);
    for (let i = 0; i < text.length; ++i) {
        bytes[i] = text.charCodeAt(i);
    }
    return bytes.buffer;
}

/** A block as numbers; null when there is none. */
function takeNumbers(ArrayType, number) {
    return number === null || number === undefined ? null : new ArrayType(takeBlock(number));
}

/** Positions in steps from an origin. */
class Positions {
    constructor(written, origin) {
        this.steps = takeNumbers(Int32Array, written.positions) || new Int32Array(0);
        this.step = written.step;
        this.origin = origin;
        this.count = this.steps.length / 3;
    }

    /** World coordinates. @param {number} i */
    world(i) {
        return [0, 1, 2].map((axis) => this.origin[axis] + this.steps[3 * i + axis] * this.step);
    }

    /** From their origin, in single precision. */
    floats() {
        const floats = new Float32Array(this.steps.length);
        for (let i = 0; i < floats.length; ++i) {
            floats[i] = this.steps[i] * this.step;
        }
        return floats;
    }
}

/** One scan. Times are scan times [s], coordinates world coordinates. */
class Scan {
    constructor(said, number) {
        this.number = number;
        this.name = said.name;
        this.file = said.file;
        this.address = said.address;
        this.columns = said.columns;
        this.rows = said.rows;
        this.isMobile = said.mobile;
        this.origin = said.origin;
        this.duration = said.duration || 0;
        this.histogram = said.histogram || null;
        this.clock = said.clock || null;
        this.position = said.position || null;
        this.panorama = said.panorama || null;
        this.returns = said.points.of;
        this.tooFar = said.points.tooFar;
        this.isShown = true;
        this.readPoints(said.points);
        this.readPath(said.path);
    }

    readPoints(said) {
        this.points = new Positions(said, this.origin);
        this.indices = takeNumbers(Uint32Array, said.indices) || new Uint32Array(0);
        this.reflections = takeNumbers(Uint16Array, said.reflections);
        this.colors = takeNumbers(Uint8Array, said.colors);
        this.times = takeNumbers(Uint32Array, said.times);
        this.floats = this.points.floats();
        this.separateReflection = said.separateReflection;
    }

    readPath(said) {
        this.path = null;
        if (said) {
            this.path = new Positions(said.nodes, this.origin);
            this.nodeTimes = takeNumbers(Float64Array, said.nodes.times);
            this.nodeLengths = takeNumbers(Float64Array, said.nodes.lengths);
            this.nodeCount = said.nodes.of;
            this.bins = new Positions(said.bins, this.origin);
        }
    }

    /** Whether something happens in time. */
    get hasClock() {
        return this.isMobile && this.duration > 0 && (this.path !== null || this.times !== null);
    }

    /** Scan time of a point [s]; null when it has none. */
    timeOf(i) {
        return this.times === null || this.times[i] === NO_TIME ? null : this.times[i] / 1e6;
    }

    /** Red, green and blue of a point; null when it has none. */
    colorOf(i) {
        return this.colors !== null && this.colors[4 * i + 3] ?
            this.colors.subarray(4 * i, 4 * i + 3) :
            null;
    }

    /** Reflection of a point, 0 to 65535; null when it has none. */
    reflectionOf(i) {
        const has = this.reflections !== null && (this.separateReflection || !this.colorOf(i));
        return has ? this.reflections[i] : null;
    }
}

/** Everything that the page holds. */
function readPage() {
    const said = JSON.parse(byId('description').textContent);
    const scans = said.scans.map((scan, number) => new Scan(scan, number));
    return {...said, scans};
}
