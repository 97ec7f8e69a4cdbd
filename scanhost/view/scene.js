// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT
'use strict';

// The view of the scene: where the points lie, and the two cameras. Coordinates in the scene are
// world coordinates from an origin of the page on: single precision is enough then.

const FIELD_OF_VIEW = 50;  // degrees, from top to bottom
/** The range of most points along each axis, in world coordinates. */
function boxOfMost(scans) {
    return [0, 1, 2].map((axis) => {
        const values = sampleOf(
            scans, ({points}, i) => points.origin[axis] + points.steps[3 * i + axis] * points.step);
        return rangeOfMost(values, values.length > 1000 ? 0.003 : 0);
    });
}

/** Places of a scan beyond its points: its stance, or some of its path. */
function placesOf(scan) {
    const places = scan.position ? [scan.position] : [];
    if (scan.path) {
        const step = Math.ceil(scan.path.count / 1000);
        for (let i = 0; i < scan.path.count; i += step) {
            places.push(scan.path.world(i));
        }
    }
    return places;
}

class View extends Drawing {
    /** @param {any} canvas @param {any} page */
    constructor(canvas, page) {
        const largest = page.scans.reduce((a, b) => b.points.count > a.points.count ? b : a);
        super(canvas, page.scans, largest.origin);
        this.page = page;
        this.sizeFactor = 1;
        this.measure();
        this.makeCameras();
        new ResizeObserver(() => this.resize()).observe(canvas.parentElement);
        this.resize();
    }

    /** Where most of the points lie, and how densely. */
    measure() {
        const box = boxOfMost(this.scans);
        this.low = this.toScene(box.map((range) => range.low));
        this.high = this.toScene(box.map((range) => range.high));
        const extent = this.high.clone().sub(this.low);
        const area = extent.x * extent.y + extent.x * extent.z + extent.y * extent.z;
        const reach = Math.max(extent.length() * 10, 5);
        for (const place of this.scans.flatMap(placesOf)) {
            const spot = this.toScene(place);
            // Farther ones would leave a dot of the points; the list of scans finds them.
            if (spot.distanceTo(this.low) < reach) {
                this.low.min(spot);
                this.high.max(spot);
            }
        }
        this.heights = {low: this.low.z + this.origin[2], high: this.high.z + this.origin[2]};
        this.center = this.low.clone().add(this.high).multiplyScalar(0.5);
        this.radius = Math.max(this.low.distanceTo(this.high) / 2, 0.25);
        const apart = area > 0 ? Math.sqrt(2 * area / this.count) : this.radius;
        this.spacing = this.page.spacing || Math.min(apart, this.radius / 10);
    }

    makeCameras() {
        this.perspective = new THREE.PerspectiveCamera(FIELD_OF_VIEW, 1, 0.1, 1000);
        this.parallel = new THREE.OrthographicCamera(-1, 1, 1, -1, -1000, 1000);
        this.perspective.up.set(0, 0, 1);
        this.parallel.up.set(0, 0, 1);
        this.camera = this.perspective;
        this.controls = new THREE.OrbitControls(this.perspective, this.canvas);
        this.controls.enableKeys = false;
        this.controls.screenSpacePanning = true;
        this.controls.addEventListener('change', () => this.requestDrawing());
    }

    /** Looks at the middle of the points from a direction, so that the box around them is seen. */
    look(direction, isParallel) {
        const away = new THREE.Vector3(...direction).normalize();
        this.useCamera(isParallel);
        this.controls.target.copy(this.center);
        this.camera.position.copy(this.center).addScaledVector(away, this.radius * 4);
        this.controls.update();
        this.camera.updateMatrixWorld();
        this.parallel.zoom = 1;
        const distance = this.fittingDistance();
        this.camera.position.copy(this.center).addScaledVector(away, distance);
        this.parallel.zoom = this.zoomFor(distance);
        this.controls.update();
        this.requestDrawing();
    }

    /** The distance from the middle of the points from which the camera sees all their box. */
    fittingDistance() {
        const toCamera = new THREE.Matrix4().extractRotation(this.camera.matrixWorld).transpose();
        const half = this.high.clone().sub(this.low).multiplyScalar(0.5);
        const slope = 0.96 * Math.tan(FIELD_OF_VIEW * Math.PI / 360);
        let distance = this.radius * 0.2;
        for (let corner = 0; corner < 8; ++corner) {
            const signs = [corner & 1, corner & 2, corner & 4].map((bit) => bit ? 1 : -1);
            const place = half.clone().multiply(new THREE.Vector3(...signs)).applyMatrix4(toCamera);
            const side = Math.max(Math.abs(place.x) / this.perspective.aspect, Math.abs(place.y));
            distance = Math.max(distance, (this.isParallel ? 0 : place.z) + side / slope);
        }
        return distance;
    }

    /** Looks at a place from nearby, in the direction that one looks now. */
    approach(world, distance) {
        const away = this.camera.position.clone().sub(this.controls.target).normalize();
        this.controls.target.copy(this.toScene(world));
        this.camera.position.copy(this.controls.target).addScaledVector(away, distance);
        this.parallel.zoom = this.zoomFor(distance);
        this.controls.update();
        this.requestDrawing();
    }

    /** Looks at the points of one scan, in the direction that one looks now. */
    approachScan(scan) {
        const box = boxOfMost([scan]);
        const extent = Math.hypot(...box.map(({low, high}) => high - low));
        this.approach(box.map(({low, high}) => (low + high) / 2), Math.max(extent, 1));
    }

    /** The parallel camera's zoom that shows the target as large as the other from a distance. */
    zoomFor(distance) { return 1 / (distance * Math.tan(FIELD_OF_VIEW * Math.PI / 360)); }

    get isParallel() { return this.camera === this.parallel; }

    useCamera(isParallel) {
        const next = isParallel ? this.parallel : this.perspective;
        const away = this.camera.position.clone().sub(this.controls.target);
        if (next !== this.camera) {
            if (isParallel) {
                this.parallel.zoom = this.zoomFor(away.length());
            } else {
                away.setLength(this.zoomFor(1) / this.parallel.zoom);
            }
            next.position.copy(this.controls.target).add(away);
        }
        this.camera = next;
        this.controls.object = next;
        this.controls.update();
        this.requestDrawing();
    }

    resize() {
        const {clientWidth, clientHeight} = this.canvas.parentElement;
        const aspect = clientWidth / Math.max(1, clientHeight);
        this.renderer.setPixelRatio(Math.min(window.devicePixelRatio, 2));
        this.renderer.setSize(clientWidth, clientHeight, false);
        this.perspective.aspect = aspect;
        this.parallel.left = -aspect;
        this.parallel.right = aspect;
        this.requestDrawing();
    }

    /** How many pixels of the page a unit of length is at the middle of the view. */
    get pixelsPerUnit() {
        const half = this.canvas.clientHeight / 2;
        const distance = this.camera.position.distanceTo(this.controls.target);
        return this.isParallel ? half * this.parallel.zoom : half * this.zoomFor(distance);
    }

    prepare() {
        const reach = this.camera.position.distanceTo(this.center) + this.radius * 20;
        const near = this.camera.position.distanceTo(this.controls.target) / 50;
        this.perspective.near = near;
        this.perspective.far = Math.min(reach, near * 5e5);  // what 24 bits of depth can tell apart
        this.parallel.near = -reach;
        this.parallel.far = reach;
        this.camera.updateProjectionMatrix();
        this.camera.updateMatrixWorld();
        this.pixelSize = this.spacing * 1.6 * this.sizeFactor * this.canvas.clientHeight / 2 *
            (this.isParallel ? this.parallel.zoom : this.zoomFor(1));
        for (const object of this.objects) {
            object.material.uniforms.size.value = this.pixelSize * this.renderer.getPixelRatio();
        }
    }

    /** Where a world position is seen [pixels]; null unless it lies in front of the eye. */
    onScreen(world) {
        const seen = this.toScene(world).applyMatrix4(this.camera.matrixWorldInverse);
        if (!this.isParallel && seen.z > -this.perspective.near) {
            return null;
        }
        seen.applyMatrix4(this.camera.projectionMatrix);
        return {
            x: (seen.x + 1) / 2 * this.canvas.clientWidth,
            y: (1 - seen.y) / 2 * this.canvas.clientHeight,
        };
    }
}
