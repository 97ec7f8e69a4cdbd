// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// The grid of a stance as the scanner saw it, in a dialog.

const NO_RETURN = [190, 40, 190];

const PANORAMA_MODES = {
    colors: {
        label: 'colour',
        has: (said) => said.colors,
        color: (cells, i) => cells.colors.subarray(3 * i, 3 * i + 3),
    },
    reflections: {
        label: 'reflection',
        has: (said) => said.reflections,
        color: (cells, i) => Array(3).fill(cells.reflections[i]),
    },
    ranges: {
        label: 'range',
        has: () => true,
        color: (cells, i) => {
            const place = clamp(cells.ranges[i] / cells.usualRange, 0, 1);
            const entry = 3 * Math.round((1 - place) * 255);
            return cells.table.subarray(entry, entry + 3);
        },
    },
};

class Panorama {
    constructor(page) {
        this.unit = page.unit;
        this.dialog = byId('panorama');
        this.canvas = byId('panorama-canvas');
        this.mode = byId('panorama-mode');
        this.text = byId('panorama-text');
        this.mode.addEventListener('change', () => this.draw());
        this.canvas.addEventListener('pointermove', (event) => this.tell(event));
    }

    /** Decodes the cells of a stance at its first showing. */
    cellsOf(scan) {
        if (!scan.cells) {
            const said = scan.panorama;
            const ranges = new Uint16Array(takeBlock(said.ranges));
            const usual = rangeOfMost(ranges.filter((range) => range > 0), 0.02).high;
            scan.cells = {
                ranges,
                reflections: takeNumbers(Uint8Array, said.reflections),
                colors: takeNumbers(Uint8Array, said.colors),
                usualRange: Math.max(1, usual),
                table: rampTable(RAMPS.viridis),
            };
        }
        return scan.cells;
    }

    show(scan) {
        this.scan = scan;
        this.cells = this.cellsOf(scan);
        byId('panorama-title').textContent = `Panorama of ${scan.name}`;
        const known = Object.entries(PANORAMA_MODES).filter(([, mode]) => mode.has(this.cells));
        const before = this.mode.value;
        this.mode.replaceChildren(...known.map(([key, mode]) => new Option(mode.label, key)));
        this.mode.value = known.some(([key]) => key === before) ? before : known[0][0];
        if (!this.dialog.open) {
            this.dialog.showModal();
        }
        this.draw();
    }

    draw() {
        const {rows, cols, rowAngle, colAngle} = this.scan.panorama;
        this.canvas.width = cols;
        this.canvas.height = rows;
        const aspect = rows * (rowAngle || colAngle) / (cols * colAngle);
        const width = Math.min(window.innerWidth * 0.9, window.innerHeight * 0.72 / aspect);
        this.canvas.style.width = `${width}px`;
        this.canvas.style.height = `${width * aspect}px`;
        const picture = new ImageData(cols, rows);
        const {color} = PANORAMA_MODES[this.mode.value];
        for (let i = 0; i < rows * cols; ++i) {
            picture.data.set(this.cells.ranges[i] === 0 ? NO_RETURN : color(this.cells, i), 4 * i);
            picture.data[4 * i + 3] = 255;
        }
        this.canvas.getContext('2d').putImageData(picture, 0, 0);
        this.text.textContent = 'Cells without a return are magenta. Point at a cell to read it.';
    }

    /** Says what the cell under the pointer holds. */
    tell(event) {
        const {rows, cols, step, upsideDown, mirrored, longest} = this.scan.panorama;
        const box = this.canvas.getBoundingClientRect();
        const x = clamp(Math.floor((event.clientX - box.left) / box.width * cols), 0, cols - 1);
        const y = clamp(Math.floor((event.clientY - box.top) / box.height * rows), 0, rows - 1);
        const row = upsideDown ? this.scan.rows - 1 - y * step : y * step;
        const col = mirrored ? this.scan.columns - 1 - x * step : x * step;
        const range = this.cells.ranges[y * cols + x];
        const found =
            range === 0 ? 'no return' : `range ${lengthOf(range / 65535 * longest, this.unit)}`;
        this.text.textContent = `row ${row}, column ${col}: ${found}`;
    }
}

/** A length to the centimetre, as the ranges of a panorama are kept. */
function lengthOf(length, unit) { return `${fixedText(length, 2)} ${unit}`; }
