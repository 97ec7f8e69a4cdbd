// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"
#include "Hx/Operation.h"
#include "Tq/SmartPtr.h"
#include "Tq/String.h"

namespace Hx {

class PointSet;

/// A picture of a scan.
class HOST_EXPORT Picture : public Tq_1_1::RefCounted<Picture> {
  protected:
    friend class Tq_1_1::RefCounted<Picture>;
    virtual ~Picture();
};

/// Settings of the preprocessing of scans. The stand-in preprocesses nothing: it has none.
class HOST_EXPORT PreprocessSettings : public Tq_1_1::RefCounted<PreprocessSettings> {
  protected:
    friend class Tq_1_1::RefCounted<PreprocessSettings>;
    virtual ~PreprocessSettings();
};

namespace PointSetOps {

struct HOST_EXPORT PreProcess {
    /// Identifier of the settings page for a point set; null string for none.
    static Operation::Context<KeyType<PointSet>, Tq_1_1::String(PointSet const*)> htmlUISettingsId;
    /// Settings changed to what the point set needs; empty when nothing is to change.
    static Operation::Context<KeyType<PointSet>, Tq_1_1::SmartPtr<PreprocessSettings>(
                                                     PointSet const*, PreprocessSettings const*)>
        patchPreProcessSettings;
};

struct HOST_EXPORT OpenQuickView {
    static Operation::Context<KeyType<PointSet>, Tq_1_1::SmartPtr<Picture>(PointSet*)>
        isFullResPanoramaAvailable;
};

struct HOST_EXPORT Validate {
    /// Further checks of validateData; each gives an IO result.
    static Operation::Context<KeyType<PointSet>, int(PointSet*)> validateData;
};

}  // namespace PointSetOps

struct HOST_EXPORT SphericalCoordinateEstimation {
    struct HOST_EXPORT Operations {
        static Operation::Context<PointSetOps::KeyType<PointSet>, bool()>
            hasReliableSphericalEstimation;
    };
};

}  // namespace Hx
