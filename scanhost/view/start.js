// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// Opens the page, or says why that cannot be.

function hasWebGl() {
    const canvas = element('canvas');
    return Boolean(canvas.getContext('webgl2') || canvas.getContext('webgl'));
}

function openPage() {
    const page = readPage();
    showFacts(page);
    if (!hasWebGl()) {
        byId('panel').hidden = true;
        byId('message').textContent =
            'This page draws its points with WebGL. This browser has none, or it is switched ' +
            'off: allow hardware acceleration or WebGL in its settings, or take another browser.';
        return null;
    }
    const opened = new Page(page);
    byId('message').textContent = '';
    return opened;
}

/** The open page, for the browser's console; null when it could not be opened. */
let scanPage = null;
// After the first words are on the screen: reading the points takes a moment.
requestAnimationFrame(() => setTimeout(() => {
                          try {
                              scanPage = openPage();
                          } catch (problem) {
                              byId('message').textContent =
                                  `The page cannot be shown: ${problem.message}`;
                              throw problem;
                          }
                      }));
