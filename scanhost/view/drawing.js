// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// Drawing: the points as the graphics card gets them, and when how many of them are drawn.

const FRAME_TIME = 120;  // of drawing points [ms]
const ONE_GO = 150000;   // points that are drawn in one go by every computer
const FEWEST = 20000;    // points that a frame draws

const POINT_VERTEX = `
attribute vec4 tint;
attribute float time;
uniform float size;      // of a point at depth 1 [pixels]
uniform vec2 sizes;      // the smallest and the largest [pixels]
uniform vec2 heights;    // what is cut off lies outside
uniform vec2 lit;        // from when to when points are lit [s]
uniform vec4 unlit;      // colour of the others, and how much of it they get; above 1 hides them
varying vec3 shade;
void main() {
    gl_Position = projectionMatrix * (modelViewMatrix * vec4(position, 1.0));
    gl_PointSize = clamp(size / gl_Position.w, sizes.x, sizes.y);
    bool isLit = time >= lit.x && time <= lit.y;
    shade = isLit ? tint.rgb : mix(tint.rgb, unlit.rgb, min(unlit.a, 1.0));
    if (position.z < heights.x || position.z > heights.y || (!isLit && unlit.a > 1.0)) {
        gl_Position = vec4(2.0, 2.0, 2.0, 1.0);
    }
}`;
const POINT_FRAGMENT = `
varying vec3 shade;
void main() {
    gl_FragColor = vec4(shade, 1.0);
}`;

/** Draws the points of scans. Who derives from this has a camera, and prepares it for a picture. */
class Drawing {
    /** @param {any} canvas @param {any} scans @param {any} origin of the scene in the world */
    constructor(canvas, scans, origin) {
        this.canvas = canvas;
        this.scans = scans;
        this.origin = origin;
        this.renderer =
            new THREE.WebGLRenderer({canvas, antialias: false, preserveDrawingBuffer: true});
        this.renderer.autoClear = false;
        this.scene = new THREE.Scene();
        this.camera = null;
        this.count = scans.reduce((sum, scan) => sum + scan.points.count, 0);
        this.share = Math.min(1, ONE_GO / this.count);  // of the points, that a frame draws
        this.drawn = 0;                                 // share that is in the picture
        this.isStale = true;
        this.isScheduled = false;
        this.afterDrawing = [];
        this.objects = scans.map((scan) => this.addPoints(scan));
    }

    /** From world coordinates into the scene's. */
    toScene(world) {
        return new THREE.Vector3(...world.map((value, axis) => value - this.origin[axis]));
    }

    /** Sets what depends on the camera. */
    prepare() {}

    addPoints(scan) {
        const geometry = new THREE.BufferGeometry();
        geometry.setAttribute('position', new THREE.BufferAttribute(scan.floats, 3));
        const tint = new THREE.BufferAttribute(new Uint8Array(4 * scan.points.count), 4, true);
        geometry.setAttribute('tint', tint);
        if (scan.times !== null) {
            const seconds =
                Float32Array.from(scan.times, (time) => time === NO_TIME ? -1 : time / 1e6);
            geometry.setAttribute('time', new THREE.BufferAttribute(seconds, 1));
        }
        const material = new THREE.ShaderMaterial({
            vertexShader: POINT_VERTEX,
            fragmentShader: POINT_FRAGMENT,
            uniforms: {
                size: {value: 1},
                sizes: {value: new THREE.Vector2(1.5, 14)},
                heights: {value: new THREE.Vector2(-1e30, 1e30)},
                lit: {value: new THREE.Vector2(-1e30, 1e30)},
                unlit: {value: new THREE.Vector4(0, 0, 0, 0)},
            },
        });
        const object = new THREE.Points(geometry, material);
        object.frustumCulled = false;
        object.position.copy(this.toScene(scan.origin));
        this.scene.add(object);
        return object;
    }

    setColors(mode, range) {
        this.scans.forEach((scan, number) => {
            const {tint} = this.objects[number].geometry.attributes;
            paintScan(scan, mode, range, tint.array);
            tint.needsUpdate = true;
        });
        this.requestDrawing();
    }

    /** Lights the points of some scan times. @param {any} ranges for each scan {from, to} */
    setLit(ranges, background, hidesOthers) {
        this.objects.forEach((object, number) => {
            const {lit, unlit} = object.material.uniforms;
            lit.value.set(ranges[number].from, ranges[number].to);
            unlit.value.set(background.r, background.g, background.b, hidesOthers ? 2 : 0.82);
        });
        this.requestDrawing();
    }

    /** Cuts off what lies below and above two world heights. */
    setClip(low, high) {
        this.objects.forEach((object, number) => {
            const zero = this.scans[number].origin[2];
            object.material.uniforms.heights.value.set(low - zero, high - zero);
        });
        this.requestDrawing();
    }

    /** Has the picture drawn anew, soon. */
    requestDrawing() {
        this.isStale = true;
        this.schedule();
    }

    schedule() {
        if (!this.isScheduled) {
            this.isScheduled = true;
            requestAnimationFrame(() => {
                this.isScheduled = false;
                this.draw(this.share);
                if (this.drawn < 1) {
                    this.schedule();
                }
            });
        }
    }

    /**
     * Draws a part of the points: over those of before, unless the picture is stale. So a view that
     * turns or plays shows a thinner picture soon, and one that stands still gets all of it.
     * @param {number} share of all points
     */
    draw(share) {
        const isNew = this.isStale;
        if (isNew) {
            this.isStale = false;
            this.drawn = 0;
            this.prepare();
            this.renderer.clear();
        }
        const end = Math.min(1, this.drawn + share);
        this.scans.forEach((scan, number) => {
            const [first, after] =
                [this.drawn, end].map((part) => Math.floor(part * scan.points.count));
            this.objects[number].geometry.setDrawRange(first, after - first);
        });
        const began = performance.now();
        this.renderer.render(this.scene, this.camera);
        if (this.count > ONE_GO) {
            this.learnFrom(performance.now() - began + this.waitForPixels(), end - this.drawn);
        }
        this.drawn = end;
        if (isNew) {
            this.afterDrawing.forEach((tell) => tell());
        }
    }

    /** Waits until what was told to be drawn is drawn. @return how long that took [ms] */
    waitForPixels() {
        const began = performance.now();
        const gl = this.renderer.getContext();
        gl.readPixels(0, 0, 1, 1, gl.RGBA, gl.UNSIGNED_BYTE, new Uint8Array(4));
        return performance.now() - began;
    }

    /** Chooses the share of the points that a frame draws. @param {number} took [ms] for a share */
    learnFrom(took, share) {
        const fitting = share * FRAME_TIME / Math.max(took, 1);
        this.share = clamp(fitting, Math.max(this.share / 2, FEWEST / this.count), this.share * 2);
    }

    /** Draws all points at once. */
    drawAll() {
        this.isStale = true;
        this.draw(1);
    }
}
