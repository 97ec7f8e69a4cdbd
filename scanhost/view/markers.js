// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// What is drawn over the points: paths in the scene, and marks with words that follow their place.

// A line of more pieces takes long to draw and looks the same.
const MOST_PIECES = 6000;

/** The path of a scan: a line, dots along it where a line is too thin to be seen, and its span. */
class PathMark {
    constructor(view, scan) {
        this.view = view;
        this.scan = scan;
        this.takeNodes();
        this.line = this.add(new THREE.Line(this.geometry(), new THREE.LineBasicMaterial()));
        this.span = this.add(new THREE.Line(this.geometry(), new THREE.LineBasicMaterial()));
        this.dots = this.add(new THREE.Points(this.geometry(), this.dotMaterial(3)));
        this.spanDots = this.add(new THREE.Points(this.geometry(), this.dotMaterial(5)));
    }

    /** Chooses the nodes that are drawn. */
    takeNodes() {
        const {count, step, steps} = this.scan.path;
        const stride = Math.ceil(count / MOST_PIECES);
        this.nodes = [];
        for (let node = 0; node < count; node += stride) {
            this.nodes.push(node);
        }
        if ((count - 1) % stride > 0) {
            this.nodes.push(count - 1);
        }
        this.floats = new Float32Array(this.nodes.length * 3);
        this.nodes.forEach((node, i) => {
            for (let axis = 0; axis < 3; ++axis) {
                this.floats[3 * i + axis] = steps[3 * node + axis] * step;
            }
        });
    }

    geometry() {
        const geometry = new THREE.BufferGeometry();
        geometry.setAttribute('position', new THREE.BufferAttribute(this.floats, 3));
        return geometry;
    }

    dotMaterial(size) { return new THREE.PointsMaterial({size, sizeAttenuation: false}); }

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
        const start = Math.max(0, this.nodes.findIndex((node) => node >= first));
        const drawn = this.nodes.filter((node) => node >= first && node < end).length;
        this.span.geometry.setDrawRange(start, drawn);
        this.spanDots.geometry.setDrawRange(start, drawn);
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
