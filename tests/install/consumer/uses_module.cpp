// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <iostream>
#include <memory>

#include "dataobj/VardexDataObj.h"
#include "mobile/CorvinMobilePointSet.h"
#include "pointset/CorvinPointSet.h"
#include "pointset/PointRecordLayout.h"
#include "stance/CorvinStancePointSet.h"
#include "stance/ScanPolar3d.h"
#include "stance/UnifiedPolar3d.h"
#include "trajectory/TrajectoryNode.h"

// Another module, linked with this one: its public headers and some operations of every class.

int main() {
    Vardex::CorvinStancePointSet stance(L"stance");
    Tq_1_1::Mat4d<double> pose = Tq_1_1::Mat4d<double>::identity();
    pose.values[12] = 7.0;
    stance.setSlamPose(pose);

    Vardex::CorvinMobilePointSet mobile(L"mobile");
    const auto start = std::make_shared<Vardex::TrajectoryNode>();
    const auto end = std::make_shared<Vardex::TrajectoryNode>();
    end->time = 2.0;
    end->pose[12] = 4.0;
    mobile.setTrajectoryNodes({start, end});
    mobile.setMaxScanPointTime(2.0);
    const auto position = mobile.getRecordingPositionForTime(2.0);

    const Vardex::ScanPolar3d<double> scanPolar(2.0, 0.0, 0.0);
    const Hx::UnifiedPolar3d<double> polar = scanPolar.getUnified();
    const Tq_1_1::SmartPtr<Vardex::VardexDataObj> object(new Vardex::VardexDataObj);
    const bool works = stance.getSlamPose().values[12] == 7.0 && position.has_value() &&
                       position->x == 4.0 && polar.getCartesian() != Tq_1_1::Vec3d<double>{} &&
                       object->getClassType() == Vardex::VardexDataObj::Class();
    std::cout << (works ? "works" : "does not work");
    return works ? 0 : 1;
}
