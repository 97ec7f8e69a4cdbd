// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "sample/SampleScan.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "sample/House.h"

namespace ScanHost::Sample {

namespace {

constexpr std::uint64_t kSeed = 20260511;

// Two degrees between rows and between columns.
constexpr std::size_t kStanceCols = 180;
constexpr std::size_t kStanceRows = 73;
constexpr double kStanceStep = 1.0 / 180.0;
constexpr double kLowestElevation = -30.0 / 180.0;

struct Stance {
    Vec3 position;  // house frame
    double heading;
    double pitch;
};
constexpr std::array<Stance, 2> kStances{
    Stance{{2.3, 2.1, 1.5}, 0.07, 0.004},
    Stance{{9.6, 3.4, 1.6}, 0.53, -0.003},
};

/// A place on the walk, passed at a time with a velocity.
struct Waypoint {
    double time;     // [s] since the start
    Vec3 position;   // house frame
    Vec3 velocity;   // [m/s]
    double heading;  // [turns]
};
constexpr std::array<Waypoint, 9> kWaypoints{
    Waypoint{0.0, {1.0, 1.0, 1.55}, {0.5, 0.0, 0.0}, 0.00},
    Waypoint{5.0, {4.2, 1.2, 1.60}, {0.5, 0.3, 0.0}, 0.05},
    Waypoint{9.0, {4.9, 2.5, 1.55}, {0.0, 0.0, 0.0}, 0.10},
    Waypoint{11.0, {4.9, 2.5, 1.55}, {0.0, 0.0, 0.0}, 0.40},
    Waypoint{14.0, {6.1, 2.55, 1.60}, {0.6, 0.0, 0.0}, 0.95},
    Waypoint{18.0, {7.6, 4.0, 1.55}, {0.5, 0.3, 0.0}, 1.10},
    Waypoint{22.5, {10.0, 3.6, 1.60}, {0.1, -0.6, 0.0}, 0.80},
    Waypoint{27.0, {9.4, 1.2, 1.55}, {-0.6, -0.1, 0.0}, 0.50},
    Waypoint{kWalkDuration, {7.0, 1.6, 1.60}, {-0.3, 0.4, 0.0}, 0.35},
};

constexpr int kPulses = 20000;

/// The cubic between two waypoints, by values and slopes at its ends (Hermite form).
double between(double part, double span, double from, double fromSlope, double to, double toSlope) {
    const double rest = 1.0 - part;
    return rest * rest * ((1.0 + 2.0 * part) * from + part * span * fromSlope) +
           part * part * ((1.0 + 2.0 * rest) * to - rest * span * toSlope);
}

/// Position in the house frame and heading at a time.
Waypoint walkAt(double seconds) {
    std::size_t i = 1;
    while (i + 1 < kWaypoints.size() && kWaypoints[i].time < seconds) {
        ++i;
    }
    const Waypoint& a = kWaypoints[i - 1];
    const Waypoint& b = kWaypoints[i];
    const double span = b.time - a.time;
    const double part = std::clamp((seconds - a.time) / span, 0.0, 1.0);
    Waypoint result{seconds, {}, {}, between(part, span, a.heading, 0.0, b.heading, 0.0)};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        result.position[axis] = between(part, span, a.position[axis], a.velocity[axis],
                                        b.position[axis], b.velocity[axis]);
    }
    return result;
}

Quaternion walkRotation(double seconds) {
    // Every step nods the scanner a little.
    const double nod = 0.008 * sineCosine(seconds * 0.9).sine;
    return orientationOf(walkAt(seconds).heading, nod);
}

/// What the scanner keeps of a hit; weaker at grazing angles, with a per cent of noise.
Return returnOf(const Hit& hit, const Vec3& point, Random& random) {
    const double noise = 0.99 + 0.02 * random.next();
    const double light = House::reflectionOf(hit.surface) * (0.3 + 0.7 * hit.facing) * noise;
    return {point, static_cast<std::uint16_t>(std::clamp(light, 0.0, 1.0) * 65535.0),
            House::colorAt(hit.surface, hit.point)};
}

struct SurfacePoint {
    WalkScan::Point point;
    Surface surface;
};

void addPulse(int pulse, Random& random, std::vector<SurfacePoint>& points) {
    const double seconds = (pulse + 0.5) * (kWalkDuration / kPulses);
    const Mat4 pose = poseOf(walkRotation(seconds), walkAt(seconds).position);
    // Evenly over the sphere: elevations with equal areas between them, a turning azimuth.
    const double height = 2.0 * random.next() - 1.0;
    const double flat = std::sqrt(1.0 - height * height);
    const SineCosine turn = sineCosine(random.next());
    const Vec3 beam = rotate(pose, {turn.cosine * flat, turn.sine * flat, height});
    const Vec3 origin{pose(0, 3), pose(1, 3), pose(2, 3)};
    for (const double side : {1.0, -1.0}) {
        if (const std::optional<Hit> hit = House::cast(origin, beam * side)) {
            const Return value = returnOf(*hit, hit->point + House::kCorner, random);
            points.push_back({{value, kWalkStart + seconds}, hit->surface});
        }
    }
}

}  // namespace

StanceScan simulateStance(int number) {
    const Stance& stance = kStances.at(static_cast<std::size_t>(number));
    Random random(kSeed + static_cast<std::uint64_t>(number));
    const Quaternion rotation = orientationOf(stance.heading, stance.pitch);
    const Mat4 inHouse = poseOf(rotation, stance.position);
    StanceScan scan{
        kStanceRows, kStanceCols, {}, poseOf(rotation, stance.position + House::kCorner)};
    for (std::size_t row = 0; row < scan.rows; ++row) {
        for (std::size_t col = 0; col < scan.cols; ++col) {
            const Vec3 beam =
                directionOf(-static_cast<double>(col) * kStanceStep,
                            kLowestElevation + static_cast<double>(row) * kStanceStep);
            const std::optional<Hit> hit = House::cast(stance.position, rotate(inHouse, beam));
            scan.cells.push_back(
                hit ? StanceScan::Cell{returnOf(*hit, beam * hit->distance, random), true}
                    : StanceScan::Cell{});
        }
    }
    return scan;
}

WalkScan simulateWalk() {
    Random random(kSeed + kStances.size());
    std::vector<SurfacePoint> points;
    for (int pulse = 0; pulse < kPulses; ++pulse) {
        addPulse(pulse, random, points);
    }
    // Processing software delivers a scan object by object, not as it was measured.
    std::stable_sort(
        points.begin(), points.end(),
        [](const SurfacePoint& a, const SurfacePoint& b) { return a.surface < b.surface; });
    WalkScan scan;
    for (const SurfacePoint& p : points) {
        scan.points.push_back(p.point);
    }
    const int steps = static_cast<int>(std::lround(kWalkDuration / kNodeStep));
    for (int i = 0; i <= steps; ++i) {
        const double seconds = i * kNodeStep;
        scan.nodes.push_back({kWalkStart + seconds, walkPosition(seconds), walkRotation(seconds)});
    }
    return scan;
}

Vec3 walkPosition(double seconds) {
    return walkAt(seconds).position + House::kCorner;
}

}  // namespace ScanHost::Sample
