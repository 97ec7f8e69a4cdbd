// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// Which point or which place on a path is seen at a pixel.

const POINT_REACH = 12;  // pixels from a point that was missed
const PATH_REACH = 7;    // pixels

/** From positions of an object of the scene to pixels: x and y of the page, and depth. */
class Projection {
    constructor(view, object) {
        view.prepare();
        const matrix = new THREE.Matrix4().multiplyMatrices(
            view.camera.projectionMatrix, view.camera.matrixWorldInverse);
        object.updateMatrixWorld();
        this.elements = matrix.multiply(object.matrixWorld).elements;
        this.halfWidth = view.canvas.clientWidth / 2;
        this.halfHeight = view.canvas.clientHeight / 2;
        this.x = 0;
        this.y = 0;
        this.depth = 0;
        this.w = 1;
    }

    /** Projects the position at 3 i. @return whether it lies in front of the eye */
    take(floats, i) {
        const m = this.elements;
        const x = floats[3 * i];
        const y = floats[3 * i + 1];
        const z = floats[3 * i + 2];
        this.w = m[3] * x + m[7] * y + m[11] * z + m[15];
        if (!(this.w > 0)) {
            return false;
        }
        this.depth = (m[2] * x + m[6] * y + m[10] * z + m[14]) / this.w;
        this.x = ((m[0] * x + m[4] * y + m[8] * z + m[12]) / this.w + 1) * this.halfWidth;
        this.y = (1 - (m[1] * x + m[5] * y + m[9] * z + m[13]) / this.w) * this.halfHeight;
        return this.depth >= -1 && this.depth <= 1;
    }
}

/** Whether a point of an object is drawn. */
function drawnTest(object, scan) {
    const {heights, lit, unlit} = object.material.uniforms;
    const times = scan.times === null ? null : object.geometry.attributes.time.array;
    return (i) => {
        const z = scan.floats[3 * i + 2];
        const time = times ? times[i] : 0;
        return z >= heights.value.x && z <= heights.value.y &&
            (unlit.value.w <= 1 || (time >= lit.value.x && time <= lit.value.y));
    };
}

/**
 * The point that is seen at a pixel: of those whose square covers it the nearest to the eye, else
 * the one next to the pixel. @return {any} {scan, index}; null when none is near
 */
function pickPoint(view, x, y) {
    let best = null;
    let covered = {depth: Infinity};
    let missed = {away: POINT_REACH};
    view.scans.filter((scan) => scan.isShown).forEach((scan) => {
        const object = view.objects[scan.number];
        const isDrawn = drawnTest(object, scan);
        const projection = new Projection(view, object);
        const {sizes} = object.material.uniforms;
        for (let i = 0; i < scan.points.count; ++i) {
            if (!projection.take(scan.floats, i)) {
                continue;
            }
            const away = Math.max(Math.abs(projection.x - x), Math.abs(projection.y - y));
            if (away >= POINT_REACH) {
                continue;
            }
            const half = clamp(view.pixelSize / projection.w, sizes.value.x, sizes.value.y) / 2;
            if (away <= half && projection.depth < covered.depth && isDrawn(i)) {
                covered = {depth: projection.depth, scan, index: i};
            } else if (away < missed.away && isDrawn(i)) {
                missed = {away, scan, index: i};
            }
        }
    });
    best = covered.scan ? covered : missed;
    return best.scan ? {scan: best.scan, index: best.index} : null;
}

/** How far along a line from a to b a pixel lies, 0 to 1, and how far from the line. */
function nearestOnLine(a, b, x, y) {
    const dx = b.x - a.x;
    const dy = b.y - a.y;
    const square = dx * dx + dy * dy;
    const share = square > 0 ? clamp(((x - a.x) * dx + (y - a.y) * dy) / square, 0, 1) : 0;
    return {share, away: Math.hypot(a.x + share * dx - x, a.y + share * dy - y)};
}

/** The place on a path that is seen at a pixel. @return {any} {scan, seconds}; null when far */
function pickPath(view, pathMarks, x, y) {
    let best = null;
    let nearest = PATH_REACH;
    for (const mark of pathMarks.filter((candidate) => candidate.line.visible)) {
        const {scan} = mark;
        const floats = scan.path.floats();
        const projection = new Projection(view, mark.line);
        let before = null;
        for (let i = 0; i < scan.path.count; ++i) {
            const node = projection.take(floats, i) ? {x: projection.x, y: projection.y} : null;
            if (before && node) {
                const {share, away} = nearestOnLine(before, node, x, y);
                if (away < nearest) {
                    nearest = away;
                    const [from, to] = [scan.nodeTimes[i - 1], scan.nodeTimes[i]];
                    best = {scan, seconds: clamp(from + (to - from) * share, 0, scan.duration)};
                }
            }
            before = node;
        }
    }
    return best;
}
