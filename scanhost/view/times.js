// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// Times as words and as a picture.

/** A span on the clock of the points file, with dates where known; empty without a clock. */
function fileTimesText(scan, start, end) {
    if (!scan.clock) {
        return '';
    }
    const {zero, utc} = scan.clock;
    const times = `file times ${fixedText(zero + start, 3)} .. ${fixedText(zero + end, 3)} s`;
    return utc === null ? times :
                          `${times} (${dateText(utc + start)} .. ${dateText(utc + end)} UTC)`;
}

/** Date and time of day in UTC, to a tenth of a second. @param {number} seconds since 1970 */
function dateText(seconds) {
    const date = new Date(Math.floor(seconds * 10) * 100);
    return Number.isNaN(date.getTime()) ? secondsText(seconds) :
                                          date.toISOString().slice(0, 21).replace('T', ' ');
}

/** Draws how many points were measured when, the span, and now. */
function drawHistogram({scan, from, to, now}) {
    const canvas = byId('histogram');
    const {clientWidth: width, clientHeight: height} = canvas;
    canvas.width = width;
    canvas.height = height;
    const context = canvas.getContext('2d');
    const style = getComputedStyle(document.documentElement);
    const paint = (name, x, y, w, h) => {
        context.fillStyle = style.getPropertyValue(name);
        context.fillRect(x, y, w, h);
    };
    paint('--track', 0, 0, width, height);
    const counts = scan.histogram || [];
    const most = Math.max(1, ...counts);
    counts.forEach((count, i) => {
        const left = Math.floor(i / counts.length * width);
        const right = Math.ceil((i + 1) / counts.length * width);
        const bar = count > 0 ? Math.max(1, count / most * height) : 0;
        const share = (i + 0.5) / counts.length;
        const isInside = share >= from && share <= to;
        paint(isInside ? '--bar' : '--dim', left, height - bar, right - left, bar);
    });
    paint('--span', from * width, height - 2, (to - from) * width, 2);
    paint('--path', now / scan.duration * width - 1, 0, 2, height);
}
