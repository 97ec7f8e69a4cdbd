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
    FileStreams(std::filesystem::path trajectory, std::shared_ptr<ScanProject> project)
        : trajectory_(std::move(trajectory)), project_(std::move(project)) {}

    std::filesystem::path trajectoryFile() const override { return trajectory_; }
    std::shared_ptr<ScanProject> project() const override { return project_; }

  private:
    std::filesystem::path trajectory_;
    std::shared_ptr<ScanProject> project_;
};

}  // namespace

std::shared_ptr<IStructuredStreams> findStructuredStreams(const std::filesystem::path& points,
                                                          const std::filesystem::path* named,
                                                          std::shared_ptr<ScanProject> project) {
    if (named != nullptr) {
        return std::make_shared<FileStreams>(*named, std::move(project));
    }
    for (const std::string& extension : FormatRegistry::the().trajectoryFormat().extensions) {
        std::filesystem::path file = points;
        file.replace_extension(extension);
        std::error_code ignored;
        if (file != points && std::filesystem::exists(file, ignored)) {
            return std::make_shared<FileStreams>(std::move(file), std::move(project));
        }
    }
    return nullptr;
}

}  // namespace Ovr
