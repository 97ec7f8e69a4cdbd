// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "HostExport.h"

namespace Ovr::VardexLib {

/// What is known about a scan apart from its points. Each value has a getter and a setter of one
/// name.
/// Threads: not synchronised.
class HOST_EXPORT CorvinMetaData {
  public:
    CorvinMetaData() = default;
    CorvinMetaData(const CorvinMetaData&) = default;
    CorvinMetaData& operator=(const CorvinMetaData&) = default;
    virtual ~CorvinMetaData();

    const std::string& ScannerModel() const { return scannerModel_; }
    void ScannerModel(const std::string& value) { scannerModel_ = value; }
    const std::string& ScannerSerialNumber() const { return scannerSerialNumber_; }
    void ScannerSerialNumber(const std::string& value) { scannerSerialNumber_ = value; }
    const std::string& ScannerFirmwareVersion() const { return scannerFirmwareVersion_; }
    void ScannerFirmwareVersion(const std::string& value) { scannerFirmwareVersion_ = value; }
    const std::string& ProcessingSoftwareVersion() const { return processingSoftwareVersion_; }
    void ProcessingSoftwareVersion(const std::string& value) { processingSoftwareVersion_ = value; }
    const std::string& ScannerVendor() const { return scannerVendor_; }
    void ScannerVendor(const std::string& value) { scannerVendor_ = value; }

    /// [us] since 1970-01-01 UTC; 0 when unknown.
    std::int64_t RecordingTime() const { return recordingTime_; }
    void RecordingTime(std::int64_t value) { recordingTime_ = value; }

    /// Text form of a UUID; empty when unknown.
    const std::string& RecordingSessionID() const { return recordingSessionId_; }
    void RecordingSessionID(const std::string& value) { recordingSessionId_ = value; }

  private:
    std::string scannerModel_;
    std::string scannerSerialNumber_;
    std::string scannerFirmwareVersion_;
    std::string processingSoftwareVersion_;
    std::string scannerVendor_;
    std::int64_t recordingTime_ = 0;
    std::string recordingSessionId_;
};

/// The record of a stationary scan.
class HOST_EXPORT CorvinStanceMetaData final : public CorvinMetaData {
  public:
    /// 4 x 4, column by column, translation in values 12, 13, 14.
    using Matrix = std::array<double, 16>;

    ~CorvinStanceMetaData() override;

    const Matrix& SlamPose() const { return slamPose_; }
    void SlamPose(const Matrix& value) { slamPose_ = value; }

  private:
    Matrix slamPose_{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
};

/// The record of a mobile scan.
class HOST_EXPORT CorvinMobileMetaData final : public CorvinMetaData {
  public:
    ~CorvinMobileMetaData() override;

    /// [s]; 0 until known. Covers the points' times and the trajectory.
    double ScanDuration() const { return scanDuration_; }
    void ScanDuration(const double& value) { scanDuration_ = value; }

  private:
    double scanDuration_ = 0.0;
};

}  // namespace Ovr::VardexLib
