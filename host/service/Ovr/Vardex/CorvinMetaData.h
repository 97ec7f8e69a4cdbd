// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "HostExport.h"
#include "Ovr/Guarded.h"

namespace Ovr::VardexLib {

/// What is known about a scan apart from its points. Each value has a getter and a setter of one
/// name.
/// Threads: any, also while another one writes: whoever was refused the points' lock reads the
/// record of a scan that is being loaded. Each value guards itself; a copy of the record takes one
/// value after the other.
class HOST_EXPORT CorvinMetaData {
  public:
    CorvinMetaData() = default;
    CorvinMetaData(const CorvinMetaData&) = default;
    CorvinMetaData& operator=(const CorvinMetaData&) = default;
    virtual ~CorvinMetaData();

    std::string ScannerModel() const { return scannerModel_.get(); }
    void ScannerModel(const std::string& value) { scannerModel_.set(value); }
    std::string ScannerSerialNumber() const { return scannerSerialNumber_.get(); }
    void ScannerSerialNumber(const std::string& value) { scannerSerialNumber_.set(value); }
    std::string ScannerFirmwareVersion() const { return scannerFirmwareVersion_.get(); }
    void ScannerFirmwareVersion(const std::string& value) { scannerFirmwareVersion_.set(value); }
    std::string ProcessingSoftwareVersion() const { return processingSoftwareVersion_.get(); }
    void ProcessingSoftwareVersion(const std::string& value) {
        processingSoftwareVersion_.set(value);
    }
    std::string ScannerVendor() const { return scannerVendor_.get(); }
    void ScannerVendor(const std::string& value) { scannerVendor_.set(value); }

    /// [us] since 1970-01-01 UTC; 0 when unknown.
    std::int64_t RecordingTime() const { return recordingTime_.get(); }
    void RecordingTime(std::int64_t value) { recordingTime_.set(value); }

    /// Text form of a UUID; empty when unknown.
    std::string RecordingSessionID() const { return recordingSessionId_.get(); }
    void RecordingSessionID(const std::string& value) { recordingSessionId_.set(value); }

  private:
    Guarded<std::string> scannerModel_;
    Guarded<std::string> scannerSerialNumber_;
    Guarded<std::string> scannerFirmwareVersion_;
    Guarded<std::string> processingSoftwareVersion_;
    Guarded<std::string> scannerVendor_;
    Guarded<std::int64_t> recordingTime_;
    Guarded<std::string> recordingSessionId_;
};

/// The record of a stationary scan.
class HOST_EXPORT CorvinStanceMetaData final : public CorvinMetaData {
  public:
    /// 4 x 4, column by column, translation in values 12, 13, 14.
    using Matrix = std::array<double, 16>;

    ~CorvinStanceMetaData() override;

    Matrix SlamPose() const { return slamPose_.get(); }
    void SlamPose(const Matrix& value) { slamPose_.set(value); }

  private:
    Guarded<Matrix> slamPose_{Matrix{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};
};

/// The record of a mobile scan.
class HOST_EXPORT CorvinMobileMetaData final : public CorvinMetaData {
  public:
    ~CorvinMobileMetaData() override;

    /// [s]; 0 until known. Covers the points' times and the trajectory.
    double ScanDuration() const { return scanDuration_.get(); }
    void ScanDuration(const double& value) { scanDuration_.set(value); }

  private:
    Guarded<double> scanDuration_;
};

}  // namespace Ovr::VardexLib
