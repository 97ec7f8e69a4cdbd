// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// The texts about the page, the settings of the display, and what was picked.

const VIEWS = {
    oblique: {direction: [-0.5, -1, 0.75], isParallel: false},
    // A little from the south, so that north is up.
    top: {direction: [0, -1e-4, 1], isParallel: true},
    front: {direction: [0, -1, 0], isParallel: true},
    side: {direction: [1, 0, 0], isParallel: true},
};

function showFacts(page) {
    document.title = page.title;
    byId('title').textContent = page.title;
    const kept = page.scans.reduce((sum, scan) => sum + scan.points.count, 0);
    const all = page.scans.reduce((sum, scan) => sum + scan.returns, 0);
    const far = page.scans.reduce((sum, scan) => sum + scan.tooFar, 0);
    let counts = pointsText(all);
    if (page.spacing > 0) {
        const size = `${fixedText(page.spacing, 3)} ${page.unit}`;
        counts = `${countText(kept)} of ${pointsText(all)}, one in each cube of ${size}`;
    }
    byId('counts').textContent =
        counts + (far ? `; ${countText(far)} too far off for this page` : '');
    byId('system').textContent = page.system;
    byId('program').textContent = `Made by ${page.program}.`;
    byId('licence-text').textContent = byId('licence').content.textContent;
}

/** Lists the scans, with a box to hide each. */
function listScans(page, view, changed, openPanorama) {
    byId('scans').replaceChildren(...page.scans.map((scan) => {
        const item = element('li');
        const box = element('input');
        box.type = 'checkbox';
        box.checked = true;
        box.addEventListener('change', () => {
            scan.isShown = box.checked;
            view.objects[scan.number].visible = box.checked;
            changed();
        });
        const label = element('label');
        label.title = `${scan.file}: ${pointsText(scan.returns)}`;
        const color = element('i');
        color.style.background = cssColor(scanColor(scan));
        label.append(box, color, element('span', scan.name));
        const find = element('button', '◎');
        find.type = 'button';
        find.title = 'Look at this scan';
        find.setAttribute('aria-label', `Look at ${scan.name}`);
        find.addEventListener('click', () => view.approachScan(scan));
        item.append(label, find);
        if (scan.panorama) {
            const button = element('button', 'Panorama');
            button.type = 'button';
            button.addEventListener('click', () => openPanorama(scan));
            item.append(button);
        }
        return item;
    }));
}

/** The ways to colour the points that the scans allow. */
class ColorChoice {
    constructor(page, view) {
        this.page = page;
        this.view = view;
        this.choice = byId('color-mode');
        const known = Object.entries(COLOR_MODES)
                          .filter(([, mode]) => page.scans.some((scan) => mode.has(scan)));
        this.choice.replaceChildren(...known.map(([key, mode]) => new Option(mode.label, key)));
        this.choice.value = page.scans.some(hasSomeColor) ? 'rgb' : 'height';
        this.choice.addEventListener('change', () => this.apply());
        this.apply();
    }

    next() {
        this.choice.selectedIndex = (this.choice.selectedIndex + 1) % this.choice.length;
        this.apply();
    }

    apply() {
        const key = this.choice.value;
        const mode = COLOR_MODES[key];
        const range = colorRange(this.page.scans, key);
        this.view.setColors(key, range);
        byId('legend').hidden = !range;
        if (range) {
            const context = byId('ramp').getContext('2d');
            const table = rampTable(mode.ramp);
            for (let x = 0; x < 200; ++x) {
                const entry = 3 * Math.round(x / 199 * 255);
                context.fillStyle = cssColor(table.subarray(entry, entry + 3));
                context.fillRect(x, 0, 1, 10);
            }
            const texts = [
                fixedText(range.low, mode.digits), mode.unit(this.page),
                fixedText(range.high, mode.digits)
            ];
            byId('ramp-text').replaceChildren(...texts.map((text) => element('span', text)));
        }
    }
}

/** "world [m]", with the unit of heights where it is another one. */
function worldLabel({unit, heightUnit}) {
    return unit === heightUnit ? `world [${unit}]` : `world [${unit}, z in ${heightUnit}]`;
}

/** What is known of a point, as pairs of name and text. */
function describePoint(page, {scan, index}) {
    const world = scan.points.world(index);
    const number = scan.indices[index];
    const rows = [['scan', scan.name], [worldLabel(page), pointText(world)]];
    if (scan.isMobile) {
        rows.push(['number', String(number)]);
    } else {
        rows.push(
            ['row, column', `${Math.floor(number / scan.columns)}, ${number % scan.columns}`]);
    }
    const seconds = scan.timeOf(index);
    if (seconds !== null) {
        rows.push(['time', `${fixedText(seconds, 6)} s`]);
    }
    const scanner = !scan.isMobile    ? scan.position :
        seconds !== null && scan.path ? positionAt(scan, clamp(seconds, 0, scan.duration)) :
                                        null;
    if (scanner) {
        rows.push(['scanner at', pointText(scanner)]);
        rows.push(['away from it', distanceText(page, scanner, world)]);
    }
    const reflection = scan.reflectionOf(index);
    rows.push(['reflection', reflection === null ? 'none' : String(reflection)]);
    const color = scan.colorOf(index);
    rows.push(['colour', color ? Array.from(color).join(', ') : 'none']);
    return rows;
}

/** What is known of a place on a path. */
function describePlace(page, {scan, seconds}) {
    const measured = pointsBetween(scan, seconds - 0.5, seconds + 0.5);
    return [
        ['scan', scan.name], ['time', `${fixedText(seconds, 3)} s`],
        [`position [${page.unit}]`, pointText(positionAt(scan, seconds))],
        ['speed', `${fixedText(speedAt(scan, seconds), 2)} ${page.unit}/s`],
        ['points within 0.5 s', scan.times === null ? 'not known' : countText(measured)]
    ];
}

function distanceText(page, a, b) {
    if (!page.hasDistances) {
        return 'none: heights have another unit';
    }
    return `${fixedText(Math.hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]), 3)} ${page.unit}`;
}

function factTable(rows) {
    const table = element('table');
    for (const [name, text] of rows) {
        const line = element('tr');
        const head = element('th', name);
        head.scope = 'row';
        line.append(head, element('td', text));
        table.append(line);
    }
    return table;
}

/** Shows picked points, up to two, and a picked place on a path. */
function showPicked(page, points, place) {
    const card = byId('picked');
    card.replaceChildren();
    card.hidden = points.length === 0 && !place;
    points.forEach((point, i) => {
        card.append(element('h2', `Point ${'AB'[i]}`), factTable(describePoint(page, point)));
    });
    if (points.length === 2) {
        const [a, b] = points.map(({scan, index}) => scan.points.world(index));
        const apart = b.map((value, axis) => value - a[axis]);
        card.append(element('h2', 'From A to B'), factTable([
                        ['distance', distanceText(page, a, b)],
                        ['level', `${fixedText(Math.hypot(apart[0], apart[1]), 3)} ${page.unit}`],
                        ['x, y, z', pointText(apart)],
                    ]));
    }
    if (place) {
        card.append(element('h2', 'On the path'), factTable(describePlace(page, place)));
    }
}
