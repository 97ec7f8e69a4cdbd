// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/IStructuredStreams.h"

#include <string>
#include <system_error>
#include <utility>

#include "Ovr/FormatRegistry.h"

namespace Ovr {

IStructuredStreams::~IStructuredStreams() = default;

namespace {

class FileStreams final : public IStructuredStreams {
  public:
    FileStreams(std::filesystem::path trajectory, const ScanSource& source)
        : trajectory_(std::move(trajectory)),
          project_(source.project),
          reading_{source.clock.trajectoryUnit, source.sortTrajectory},
          named_(source.trajectory.has_value()) {}

    std::filesystem::path trajectoryFile() const override { return trajectory_; }
    std::shared_ptr<ScanProject> project() const override { return project_; }
    TrajectoryReading trajectoryReading() const override { return reading_; }
    bool isNamed() const override { return named_; }

  private:
    std::filesystem::path trajectory_;
    std::shared_ptr<ScanProject> project_;
    TrajectoryReading reading_;
    bool named_;
};

}  // namespace

std::shared_ptr<IStructuredStreams> findStructuredStreams(const ScanSource& source) {
    if (source.withoutTrajectory) {
        return nullptr;
    }
    if (source.trajectory) {
        return std::make_shared<FileStreams>(*source.trajectory, source);
    }
    for (const std::string& extension : FormatRegistry::the().trajectoryFormat().extensions) {
        std::filesystem::path file = source.file;
        file.replace_extension(extension);
        std::error_code ignored;
        if (file != source.file && std::filesystem::exists(file, ignored)) {
            return std::make_shared<FileStreams>(std::move(file), source);
        }
    }
    return nullptr;
}

}  // namespace Ovr
