// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// Where the scanner was. The module's positions lie at equal steps of scan time: the first at 0,
// the last at the scan's duration. Functions of this file ask scans with a path.

/** The module's position for a scan time: the nearest one, the later of two equally near ones. */
function positionAt(scan, seconds) {
    const place = seconds / scan.duration * (scan.bins.count - 1);
    return scan.bins.world(clamp(Math.floor(place + 0.5), 0, scan.bins.count - 1));
}

/** A position on the straight line between the module's two nearest ones: for a smooth motion. */
function glideAt(scan, seconds) {
    const place = clamp(seconds / scan.duration * (scan.bins.count - 1), 0, scan.bins.count - 1);
    const before = scan.bins.world(Math.floor(place));
    const after = scan.bins.world(Math.ceil(place));
    return before.map((value, axis) => value + (after[axis] - value) * (place - Math.floor(place)));
}

/** Index of the first node at or after a scan time; their count when there is none. */
function firstNodeFrom(scan, seconds) {
    let low = 0;
    let high = scan.nodeTimes.length;
    while (low < high) {
        const middle = (low + high) >> 1;
        if (scan.nodeTimes[middle] < seconds) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

/** The nodes of a span of scan time with both ends: index of the first and of the one after. */
function nodesBetween(scan, from, to) {
    const first = firstNodeFrom(scan, from);
    let end = firstNodeFrom(scan, to);
    while (end < scan.nodeTimes.length && scan.nodeTimes[end] === to) {
        ++end;
    }
    return {first, end: Math.max(first, end)};
}

/** Length of the path along the nodes of a span. */
function lengthBetween(scan, from, to) {
    const {first, end} = nodesBetween(scan, from, to);
    return end > first ? scan.nodeLengths[end - 1] - scan.nodeLengths[first] : 0;
}

/** Length of the path from the first node to a scan time. */
function lengthUntil(scan, seconds) {
    const after = clamp(firstNodeFrom(scan, seconds), 1, scan.nodeTimes.length - 1);
    const step = scan.nodeTimes[after] - scan.nodeTimes[after - 1];
    const share = step > 0 ? clamp((seconds - scan.nodeTimes[after - 1]) / step, 0, 1) : 1;
    return scan.nodeLengths[after - 1] +
        (scan.nodeLengths[after] - scan.nodeLengths[after - 1]) * share;
}

/** Speed along the path over half a second around a scan time [units / s]. */
function speedAt(scan, seconds) {
    if (scan.nodeTimes.length < 2) {
        return 0;
    }
    const from = clamp(seconds - 0.25, 0, scan.duration);
    const to = clamp(seconds + 0.25, 0, scan.duration);
    return to > from ? (lengthUntil(scan, to) - lengthUntil(scan, from)) / (to - from) : 0;
}

/** How many of the page's points were measured in a span of scan time, both ends included. */
function pointsBetween(scan, from, to) {
    let count = 0;
    if (scan.times !== null) {
        const first = from * 1e6;
        const last = to * 1e6;
        for (const time of scan.times) {
            count += time !== NO_TIME && time >= first && time <= last ? 1 : 0;
        }
    }
    return count;
}
