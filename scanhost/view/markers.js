// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// What is drawn over the points: paths in the scene, and marks with words that follow their place.

const MOST_PATH_DOTS = 20000;

/** The path of a scan: a line, dots along it where a line is too thin to be seen, and its span. */
class PathMark {
    constructor(view, scan) {
        this.view = view;
        this.scan = scan;
        const geometry = new THREE.BufferGeometry();
        geometry.setAttribute('position', new THREE.BufferAttribute(scan.path.floats(), 3));
        this.line = this.add(new THREE.Line(geometry, new THREE.LineBasicMaterial()));
        this.span = this.add(new THREE.Line(geometry.clone(), new THREE.LineBasicMaterial()));
        this.dots = this.add(this.dotsOf());
        this.spanDots = this.add(this.dotsOf());
        this.spanDots.material.size = 5;
    }

    dotsOf() {
        const step = Math.ceil(this.scan.path.count / MOST_PATH_DOTS);
        const kept = [];
        this.dotNodes = [];
        for (let i = 0; i < this.scan.path.count; i += step) {
            kept.push(...this.scan.path.steps.subarray(3 * i, 3 * i + 3));
            this.dotNodes.push(i);
        }
        const floats = Float32Array.from(kept, (value) => value * this.scan.path.step);
        const geometry = new THREE.BufferGeometry();
        geometry.setAttribute('position', new THREE.BufferAttribute(floats, 3));
        return new THREE.Points(
            geometry, new THREE.PointsMaterial({size: 3, sizeAttenuation: false}));
    }

    add(object) {
        object.frustumCulled = false;
        object.position.copy(this.view.toScene(this.scan.origin));
        // Through walls, too: a path is what one looks for.
        object.material.depthTest = false;
        object.renderOrder = 1;
        this.view.scene.add(object);
        return object;
    }

    setShown(isShown) {
        for (const object of [this.line, this.dots, this.span, this.spanDots]) {
            object.visible = isShown;
        }
    }

    setColors(path, span) {
        this.line.material.color.set(path);
        this.dots.material.color.set(path);
        this.span.material.color.set(span);
        this.spanDots.material.color.set(span);
    }

    /** Marks a span of scan time; none when it is the whole scan. */
    setSpan(from, to) {
        const isWhole = from <= 0 && to >= this.scan.duration;
        const {first, end} = isWhole ? {first: 0, end: 0} : nodesBetween(this.scan, from, to);
        this.span.geometry.setDrawRange(first, end - first);
        const dot = this.dotNodes.findIndex((node) => node >= first);
        const dots = this.dotNodes.filter((node) => node >= first && node < end).length;
        this.spanDots.geometry.setDrawRange(Math.max(0, dot), dots);
    }
}

/** Elements of the page that stay at places of the world. */
class Marks {
    constructor(view, parent) {
        this.view = view;
        this.parent = parent;
        this.marks = new Map();
        view.afterDrawing.push(() => this.follow());
    }

    /** Adds or moves a mark. @param {any} world null hides it @returns {any} */
    put(key, world, make) {
        if (!this.marks.has(key)) {
            const node = make();
            this.parent.append(node);
            this.marks.set(key, {node, world});
        }
        this.marks.get(key).world = world;
        this.view.requestDrawing();
        return this.marks.get(key).node;
    }

    follow() {
        for (const {node, world} of this.marks.values()) {
            const place = world && this.view.onScreen(world);
            node.style.visibility = place ? 'visible' : 'hidden';
            if (place) {
                node.style.transform =
                    `translate(${place.x.toFixed(1)}px, ${place.y.toFixed(1)}px)`;
            }
        }
    }
}

function markOf(className, text = '', tag = 'div') {
    const mark = element(tag, '');
    mark.className = className;
    if (text) {
        mark.append(element('span', text));
    }
    return mark;
}
