// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// Texts and elements. What comes from a scan goes into elements as text, never as HTML.

/** @param {string} id @returns {any} */
function byId(id) { return document.getElementById(id); }

/** A new element. @param {string} tag @param {string} text @returns {any} */
function element(tag, text = '') {
    const made = document.createElement(tag);
    made.textContent = text;
    return made;
}

/** Fixed notation; a value that rounds to zero has no minus sign. */
function fixedText(value, digits) {
    const text = value.toFixed(digits);
    return Number(text) === 0 ? text.replace('-', '') : text;
}

/** Three coordinates to the millimetre. */
function pointText(point) { return Array.from(point, (value) => fixedText(value, 3)).join(', '); }

/** Scan time or duration [s]. */
function secondsText(seconds) { return `${fixedText(seconds, 3)} s`; }

/** A count with its digits in groups of three. */
function countText(count) { return String(count).replace(/\B(?=(\d{3})+$)/g, '\u202f'); }

/** "1 point", "2 points". */
function pointsText(count) { return `${countText(count)} ${count === 1 ? 'point' : 'points'}`; }

/** The largest of 1, 2 or 5 times a power of ten that is not above a value. */
function roundDown(value) {
    const power = 10 ** Math.floor(Math.log10(value));
    return [5, 2, 1].map((factor) => factor * power).find((round) => round <= value) || power;
}

/** A length of one digit with its unit. */
function lengthText(length, unit) {
    const digits = Math.max(0, Math.min(6, Math.ceil(-Math.log10(length) - 0.001)));
    return `${length.toFixed(digits)} ${unit}`;
}

function clamp(value, low, high) { return Math.min(Math.max(value, low), high); }
