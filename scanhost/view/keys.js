// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// What keys do, wherever the focus is, unless it is where one writes or chooses.

/** Turns the view about its middle [rad]. */
function turn(view, sideways, upward) {
    const away = view.camera.position.clone().sub(view.controls.target);
    const seen = new THREE.Spherical().setFromVector3(new THREE.Vector3(away.x, away.z, -away.y));
    seen.theta -= sideways;
    seen.phi = clamp(seen.phi - upward, 1e-4, Math.PI - 1e-4);
    const turned = new THREE.Vector3().setFromSpherical(seen);
    view.camera.position.copy(view.controls.target)
        .add(new THREE.Vector3(turned.x, -turned.z, turned.y));
    view.controls.update();
    view.requestDrawing();
}

/** Moves the view by parts of what is seen. */
function move(view, sideways, upward) {
    const seen = view.canvas.clientHeight / view.pixelsPerUnit;
    view.camera.updateMatrixWorld();
    const {elements} = view.camera.matrixWorld;
    const shift = new THREE.Vector3(elements[0], elements[1], elements[2])
                      .multiplyScalar(sideways * seen)
                      .addScaledVector(
                          new THREE.Vector3(elements[4], elements[5], elements[6]), upward * seen);
    view.controls.target.add(shift);
    view.camera.position.add(shift);
    view.controls.update();
    view.requestDrawing();
}

/** Shows everything so many times as large. */
function enlarge(view, factor) {
    const away = view.camera.position.clone().sub(view.controls.target);
    view.parallel.zoom *= factor;
    view.camera.position.copy(view.controls.target).addScaledVector(away, 1 / factor);
    view.controls.update();
    view.requestDrawing();
}

function stepSlider(id, change) {
    const slider = byId(id);
    slider.value = Number(slider.value) + change;
    slider.dispatchEvent(new Event('input'));
}

function chooseNext(id) {
    const choice = byId(id);
    choice.selectedIndex = (choice.selectedIndex + 1) % choice.length;
    choice.dispatchEvent(new Event('change'));
}

const ARROWS = {
    ArrowLeft: [-1, 0],
    ArrowRight: [1, 0],
    ArrowUp: [0, 1],
    ArrowDown: [0, -1]
};

/** What keys do to time. */
const TIME_KEYS = {
    ' ': (timeline) => timeline.play(!timeline.isPlaying),
    ',': (timeline) => timeline.goTo(timeline.now - timeline.scan.duration / 9999),
    '.': (timeline) => timeline.goTo(timeline.now + timeline.scan.duration / 9999),
    '[': (timeline) => timeline.setSpan(timeline.now / timeline.scan.duration, timeline.to),
    ']': (timeline) => timeline.setSpan(timeline.from, timeline.now / timeline.scan.duration),
    'l': () => chooseNext('light'),
};

const PAGE_KEYS = {
    '1': (page) => page.lookFrom('oblique'),
    '2': (page) => page.lookFrom('top'),
    '3': (page) => page.lookFrom('front'),
    '4': (page) => page.lookFrom('side'),
    'f': (page) => page.lookFrom(page.direction),
    '+': (page) => enlarge(page.view, 1.2),
    '=': (page) => enlarge(page.view, 1.2),
    '-': (page) => enlarge(page.view, 1 / 1.2),
    'p': () => byId('parallel').click(),
    'c': (page) => page.colors.next(),
    's': () => stepSlider('point-size', 0.25),
    'S': () => stepSlider('point-size', -0.25),
    'x': () => stepSlider('cut-above', 0.02),
    'X': () => stepSlider('cut-above', -0.02),
    'n': (page) => page.nextPanorama(),
    't': (page) => page.toggleTheme(),
    'h': (page) => page.showHelp(),
    '?': (page) => page.showHelp(),
    'Escape': (page) => page.forget(),
};

/** @param {any} page @param {any} event */
function pressKey(page, event) {
    const {key, target} = event;
    const isField = target.matches('input[type=number], select');
    if (event.ctrlKey || event.altKey || event.metaKey || isField ||
        document.querySelector('dialog[open]')) {
        return;
    }
    if (ARROWS[key] && !target.matches('input')) {
        const [sideways, upward] = ARROWS[key];
        if (event.shiftKey) {
            move(page.view, 0.05 * sideways, 0.05 * upward);
        } else {
            turn(page.view, 0.08 * sideways, 0.08 * upward);
        }
    } else if (key === 'Enter' && target === page.view.canvas) {
        page.pick(page.view.canvas.clientWidth / 2, page.view.canvas.clientHeight / 2);
    } else if (
        TIME_KEYS[key] && page.timeline && !(key === ' ' && target.matches('button, input'))) {
        TIME_KEYS[key](page.timeline);
    } else if (PAGE_KEYS[key]) {
        PAGE_KEYS[key](page);
    } else {
        return;
    }
    event.preventDefault();
}
