// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// Time: where the scanner is, what is lit, and the span between two handles.

const SPAN_DIGITS = 6;  // of fractions of the scan

class Timeline {
    /** @param {any} scans with a clock; at least one @param {() => void} changed */
    constructor(scans, unit, changed) {
        this.scans = scans;
        this.unit = unit;
        this.changed = changed;
        this.isPlaying = false;
        this.connect();
        this.take(scans[0]);
        byId('timeline').hidden = false;
    }

    connect() {
        const choice = byId('time-scan');
        choice.replaceChildren(...this.scans.map((scan, i) => new Option(scan.name, String(i))));
        byId('scan-label').hidden = this.scans.length < 2;
        choice.addEventListener('change', () => this.choose(this.scans[Number(choice.value)]));
        byId('play').addEventListener('click', () => this.play(!this.isPlaying));
        byId('time').addEventListener('input', () => this.goTo(Number(byId('time').value)));
        byId('time-field')
            .addEventListener('change', () => this.goTo(Number(byId('time-field').value)));
        byId('span-from')
            .addEventListener(
                'input', () => this.setSpan(Number(byId('span-from').value), this.to));
        byId('span-to').addEventListener(
            'input', () => this.setSpan(this.from, Number(byId('span-to').value)));
        for (const id of ['light', 'last-seconds', 'hide-others']) {
            byId(id).addEventListener('change', () => this.update());
        }
        byId('copy').addEventListener('click', () => this.copy());
        for (const id of ['time', 'span-from', 'span-to']) {
            byId(id).addEventListener('keydown', (event) => this.stepByKey(id, event));
        }
        new ResizeObserver(() => drawHistogram(this)).observe(byId('histogram'));
    }

    choose(scan) {
        this.play(false);
        this.take(scan);
        this.update();
    }

    take(scan) {
        this.scan = scan;
        this.now = 0;
        this.from = 0;
        this.to = 1;
        byId('time').max = scan.duration;
        byId('time-field').max = scan.duration;
    }

    /** Arrow keys step by 0.1 % of the scan, with shift by one of the module's positions. */
    stepByKey(id, event) {
        const way = {
            ArrowRight: 1,
            ArrowUp: 1,
            ArrowLeft: -1,
            ArrowDown: -1,
            PageUp: 20,
            PageDown: -20
        }[event.key];
        if (!way) {
            return;
        }
        event.preventDefault();
        event.stopPropagation();
        const step = way * (event.shiftKey ? 1 / 9999 : 1 / 1000);
        if (id === 'time') {
            this.goTo(this.now + step * this.scan.duration);
        } else if (id === 'span-from') {
            this.setSpan(this.from + step, this.to);
        } else {
            this.setSpan(this.from, this.to + step);
        }
    }

    goTo(seconds) {
        this.now = clamp(Number.isFinite(seconds) ? seconds : 0, 0, this.scan.duration);
        this.update();
    }

    /** @param {number} from @param {number} to fractions of the scan */
    setSpan(from, to) {
        const round = (value) => Number(clamp(value, 0, 1).toFixed(SPAN_DIGITS));
        this.from = Math.min(round(from), round(to));
        this.to = Math.max(round(from), round(to));
        this.update();
    }

    play(isPlaying) {
        if (isPlaying === this.isPlaying) {
            return;
        }
        this.isPlaying = isPlaying;
        byId('play').textContent = isPlaying ? '⏸' : '▶';
        byId('play').setAttribute('aria-label', isPlaying ? 'Pause' : 'Play');
        if (!isPlaying) {
            this.update();
            return;
        }
        if (this.now >= this.scan.duration) {
            this.now = 0;
        }
        if (byId('light').value === 'all') {
            byId('light').value = 'until';
        }
        let last = performance.now();
        const step = (time) => {
            if (!this.isPlaying) {
                return;
            }
            // A slow frame must not let the scanner leap.
            const passed = clamp((time - last) / 1000, 0, 0.5);
            last = time;
            this.now =
                Math.min(this.now + passed * Number(byId('speed').value), this.scan.duration);
            this.update();
            if (this.now >= this.scan.duration) {
                this.play(false);
            } else {
                requestAnimationFrame(step);
            }
        };
        requestAnimationFrame(step);
    }

    /** Where the scanner is; null for a scan without a path. */
    get position() {
        if (!this.scan.path) {
            return null;
        }
        return this.isPlaying ? glideAt(this.scan, this.now) : positionAt(this.scan, this.now);
    }

    /** From when to when points of a scan are lit [s]. */
    litRange(scan) {
        const always = {from: -1e30, to: 1e30};
        const never = {from: 1, to: 0};
        const seconds = Math.max(0, Number(byId('last-seconds').value) || 0);
        const ranges = {
            all: always,
            until: {from: 0, to: this.now},
            last: {from: Math.max(0, this.now - seconds), to: this.now},
            span: {from: this.from * this.scan.duration, to: this.to * this.scan.duration},
        };
        const mode = byId('light').value;
        return scan === this.scan && scan.times !== null ? ranges[mode] :
            mode === 'all'                               ? always :
                                                           never;
    }

    update() {
        byId('time').value = this.now;
        byId('time').setAttribute('aria-valuetext', secondsText(this.now));
        if (document.activeElement !== byId('time-field')) {
            byId('time-field').value = Number(this.now.toFixed(6));
        }
        byId('span-from').value = this.from;
        byId('span-to').value = this.to;
        byId('last-label').hidden = byId('light').value !== 'last';
        const {position} = this;
        const speed =
            position ? `, ${fixedText(speedAt(this.scan, this.now), 2)} ${this.unit}/s` : '';
        byId('now-text').textContent = position ? `scanner at ${pointText(position)}${speed}` : '';
        this.tellSpan();
        drawHistogram(this);
        this.changed();
    }

    /** The command line that gives the span's path; empty for a scan without one. */
    get command() {
        return this.scan.path ?
            `scanhost path ${this.scan.address} --from ${this.from} --to ${this.to}` :
            '';
    }

    tellSpan() {
        const [start, end] = [this.from * this.scan.duration, this.to * this.scan.duration];
        const parts = [
            `span ${fixedText(this.from, SPAN_DIGITS)} .. ${fixedText(this.to, SPAN_DIGITS)}`,
            `${fixedText(start, 3)} .. ${fixedText(end, 3)} s`
        ];
        const clock = fileTimesText(this.scan, start, end);
        if (clock) {
            parts.push(clock);
        }
        if (this.scan.path) {
            parts.push(`path ${fixedText(lengthBetween(this.scan, start, end), 3)} ${this.unit}`);
        }
        byId('span-text').textContent = parts.join('; ');
        byId('span-command').textContent = this.command;
        byId('span-line').hidden = !this.command;
    }

    async copy() {
        const code = byId('span-command');
        getSelection().selectAllChildren(code);
        // Pages that were opened as files may have no clipboard of their own.
        const isDone = navigator.clipboard ?
            await navigator.clipboard.writeText(this.command).then(() => true, () => false) :
            false;
        byId('copy').textContent = isDone || document.execCommand('copy') ? 'Copied' : 'Marked';
    }
}
