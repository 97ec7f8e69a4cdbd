// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// Puts the parts of the page together.

const KEYS = [
    ['1 2 3 4', 'oblique, top, front, side view'],
    ['F', 'everything into view'],
    ['arrows', 'turn'],
    ['Shift + arrows', 'move'],
    ['+ −', 'closer, farther'],
    ['P', 'parallel projection'],
    ['C', 'next colouring'],
    ['S, Shift + S', 'larger, smaller points'],
    ['X, Shift + X', 'cut off less, more from above'],
    ['Space', 'play, pause'],
    [', .', 'one of the module\u2019s positions back, on'],
    ['[ ]', 'start, end of the span here'],
    ['L', 'next way to light points'],
    ['Enter', 'pick what is in the middle of the view'],
    ['N', 'panorama of the next stance'],
    ['Esc', 'forget what was picked'],
    ['T', 'dark or light'],
    ['H', 'these keys'],
];

class Page {
    constructor(page) {
        this.page = page;
        this.points = [];
        this.place = null;
        this.view = new View(byId('canvas'), page);
        this.paths =
            page.scans.filter((scan) => scan.path).map((scan) => new PathMark(this.view, scan));
        this.marks = new Marks(this.view, byId('markers'));
        this.panorama = new Panorama(page);
        this.colors = new ColorChoice(page, this.view);
        this.addMarks();
        listScans(page, this.view, () => this.changed(), (scan) => this.panorama.show(scan));
        this.connect();
        const clocks = page.scans.filter((scan) => scan.hasClock);
        this.timeline =
            clocks.length > 0 ? new Timeline(clocks, page.unit, () => this.changed()) : null;
        this.setTheme(matchMedia('(prefers-color-scheme: light)').matches ? 'light' : 'dark');
        this.setClip();
        this.lookFrom('oblique');
        this.view.afterDrawing.push(() => this.showScale());
    }

    addMarks() {
        for (const scan of this.page.scans.filter((candidate) => candidate.position)) {
            this.marks.put(`stance ${scan.number}`, scan.position, () => {
                const mark = markOf('stance', scan.name, 'button');
                mark.title = scan.panorama ? 'Show the panorama' : '';
                mark.addEventListener('click', () => scan.panorama && this.panorama.show(scan));
                return mark;
            });
        }
        for (const {scan} of this.paths) {
            this.marks.put(
                `start ${scan.number}`, scan.path.world(0), () => markOf('end', 'start'));
            this.marks.put(
                `end ${scan.number}`, scan.path.world(scan.path.count - 1),
                () => markOf('end', 'end'));
        }
    }

    connect() {
        for (const button of byId('views').children) {
            button.addEventListener('click', () => this.lookFrom(button.dataset.view));
        }
        byId('parallel')
            .addEventListener('change', () => this.view.useCamera(byId('parallel').checked));
        byId('point-size').addEventListener('input', () => this.setPointSize());
        byId('cut-above').addEventListener('input', () => this.setClip());
        byId('cut-below').addEventListener('input', () => this.setClip());
        byId('theme').addEventListener('click', () => this.toggleTheme());
        byId('help-button').addEventListener('click', () => this.showHelp());
        byId('keys').append(...KEYS.map(([key, does]) => {
            const row = element('tr');
            const cell = element('td');
            cell.append(element('kbd', key));
            row.append(cell, element('td', does));
            return row;
        }));
        document.addEventListener('keydown', (event) => pressKey(this, event));
        // A click is a press that ends where it began: what moved turned the view.
        let pressed = null;
        const canvas = byId('canvas');
        canvas.addEventListener('pointerdown', (event) => {
            pressed =
                event.isPrimary && event.button === 0 ? {x: event.clientX, y: event.clientY} : null;
        });
        canvas.addEventListener('pointerup', (event) => {
            const {clientX: x, clientY: y} = event;
            if (pressed && Math.hypot(x - pressed.x, y - pressed.y) < 4) {
                this.pick(x, y);
            }
            pressed = null;
        });
    }

    lookFrom(name) {
        const {direction, isParallel} = VIEWS[name];
        this.direction = name;
        byId('parallel').checked = isParallel;
        this.view.look(direction, isParallel);
    }

    setPointSize() {
        this.view.sizeFactor = 2 ** Number(byId('point-size').value);
        this.view.requestDrawing();
    }

    setClip() {
        const {low, high} = this.view.heights;
        const height = (id) => low + (high - low) * Number(byId(id).value);
        const [below, above] = [byId('cut-below'), byId('cut-above')];
        const from = Number(below.value) > 0 ? height('cut-below') : -1e30;
        const to = Number(above.value) < 1 ? height('cut-above') : 1e30;
        this.view.setClip(from, to);
        const unit = this.page.heightUnit;
        const ends = [
            from > -1e30 ? `from ${fixedText(from, 2)}` : '',
            to < 1e30 ? `up to ${fixedText(to, 2)}` : ''
        ];
        const text = ends.filter((end) => end).join(' ');
        byId('cut-text').textContent = text ? `heights ${text} ${unit}` : '';
    }

    setTheme(theme) {
        document.documentElement.dataset.theme = theme;
        const style = getComputedStyle(document.documentElement);
        this.background = new THREE.Color(style.getPropertyValue('--back').trim());
        this.view.renderer.setClearColor(this.background, 1);
        for (const path of this.paths) {
            path.setColors(
                style.getPropertyValue('--path').trim(), style.getPropertyValue('--span').trim());
        }
        if (this.timeline) {
            this.timeline.update();
        } else {
            this.changed();
        }
    }

    toggleTheme() {
        this.setTheme(document.documentElement.dataset.theme === 'light' ? 'dark' : 'light');
    }

    showHelp() { byId('help').showModal(); }

    /** Brings marks, paths and lit points to what time, span and boxes say. */
    changed() {
        const always = {from: -1e30, to: 1e30};
        const {timeline} = this;
        this.view.setLit(
            this.page.scans.map((scan) => timeline ? timeline.litRange(scan) : always),
            this.background, byId('hide-others').checked);
        for (const path of this.paths) {
            const isCurrent = timeline && path.scan === timeline.scan;
            path.setShown(path.scan.isShown);
            path.setSpan(
                isCurrent ? timeline.from * path.scan.duration : 0,
                isCurrent ? timeline.to * path.scan.duration : path.scan.duration);
            for (const end of ['start', 'end']) {
                const world = path.scan.path.world(end === 'start' ? 0 : path.scan.path.count - 1);
                this.marks.put(
                    `${end} ${path.scan.number}`, path.scan.isShown ? world : null, () => null);
            }
        }
        if (timeline) {
            this.marks.put(
                'scanner', timeline.scan.isShown ? timeline.position : null,
                () => markOf('scanner'));
        }
        for (const scan of this.page.scans.filter((candidate) => candidate.position)) {
            this.marks.put(
                `stance ${scan.number}`, scan.isShown ? scan.position : null, () => null);
        }
    }

    /** Picks what is seen at a pixel: a place on a path before a point. */
    pick(x, y) {
        const place = pickPath(this.view, this.paths, x, y);
        const point = place ? null : pickPoint(this.view, x, y);
        if (place && this.timeline && this.timeline.scans.includes(place.scan)) {
            this.place = place;
            if (this.timeline.scan !== place.scan) {
                this.timeline.choose(place.scan);
            }
            byId('light').value = 'last';
            byId('last-seconds').value = 1;
            this.timeline.play(false);
            this.timeline.goTo(Math.min(place.seconds + 0.5, place.scan.duration));
        } else if (point) {
            this.points = this.points.length === 2 ? [point] : [...this.points, point];
            this.place = null;
        }
        this.showPicks();
    }

    forget() {
        this.points = [];
        this.place = null;
        this.showPicks();
    }

    showPicks() {
        ['A', 'B'].forEach((name, i) => {
            const point = this.points[i];
            this.marks.put(
                `pick ${name}`, point ? point.scan.points.world(point.index) : null,
                () => markOf('pick', name));
        });
        showPicked(this.page, this.points, this.place);
    }

    nextPanorama() {
        const stances = this.page.scans.filter((scan) => scan.panorama);
        if (stances.length > 0) {
            const next = stances.indexOf(this.panorama.scan) + 1;
            this.panorama.show(stances[next % stances.length]);
        }
    }

    /** A bar of a round length in the middle of the view. */
    showScale() {
        const perUnit = this.view.pixelsPerUnit;
        const length = roundDown(160 / perUnit);
        byId('scale-bar').style.width = `${length * perUnit}px`;
        byId('scale-text').textContent = lengthText(length, this.page.unit);
    }
}
