// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <filesystem>
#include <optional>

#include <fmt/format.h>

#include "commands/CommandList.h"
#include "picture/PictureReport.h"
#include "picture/ScanPictures.h"
#include "picture/Sheet.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/KnownFiles.h"
#include "session/ModuleSession.h"
#include "session/OutputRules.h"
#include "session/ProjectImport.h"
#include "session/SpooledInput.h"

namespace ScanHost {

namespace {

// Narrower ones have no room for numbers; cairo draws none that is much larger.
constexpr std::uint64_t kNarrowest = 300;
constexpr std::uint64_t kWidest = 16000;

const std::vector<std::pair<std::string, ColorBy>> kColors{
    {"rgb", ColorBy::Own},       {"reflection", ColorBy::Reflection},
    {"height", ColorBy::Height}, {"range", ColorBy::Range},
    {"time", ColorBy::Time},     {"scan", ColorBy::Scan}};

struct KindFlag {
    PictureKind kind;
    const char* name;
    const char* help;
    bool isSet = false;
};

class PictureCommand final : public Command {
  public:
    std::string name() const override { return "picture"; }
    std::string summary() const override {
        return "Draw scans from above or from the side, a stance's panorama, times or paths";
    }
    void declare(Options& options) override {
        declareScanFiles(options, scan_);
        options.file("-o,--output", output_, "FILE", "Picture to write: .png, .svg or .pdf")
            .required();
        std::vector<const Option*> earlier;
        for (KindFlag& flag : kinds_) {
            Option& option = options.flag(flag.name, flag.isSet, flag.help);
            for (const Option* other : earlier) {
                option.excludes(*other);
            }
            earlier.push_back(&option);
        }
        options.choice("--color", request_.color, kColors,
                       "What the colours of points show; else the scan where there are several, "
                       "or colour, reflection or height");
        options.count("--width", width_, "PIXELS", "Width of the picture (1600)");
        declareScanSettings(options, scan_);
        declareForce(options, rules_);
    }
    void run(const CommonOptions& /*common*/, Console& console) override {
        checkOptions();
        const auto spooled = spoolInput(scan_, console);
        rules_.protect(scan_);
        rules_.check({*output_, pictureEndings()});
        ModuleSession session;
        ScanImporter importer(session, console);
        const std::vector<ImportedScan> scans =
            importAll(session, importer, scan_, console,
                      needsTimes() ? Content::PointsForTimes : Content::Points);
        for (const ImportedScan& scan : scans) {
            rules_.protect(scan);
        }
        rules_.check({*output_, pictureEndings()});
        requireOneUnit(scans);
        const Scene scene = openScene(scans, needsTimes(), console);
        const PictureFile picture = drawPicture(scene, scan_.files, request_, *output_, rules_);
        Report report;
        describePicture(picture, report);
        console.show(report);
    }

  private:
    void checkOptions() {
        for (const KindFlag& flag : kinds_) {
            request_.kind = flag.isSet ? flag.kind : request_.kind;
        }
        checkColor();
        if (width_ && (*width_ < kNarrowest || *width_ > kWidest)) {
            throw unexpected("--width", fmt::format("{}", *width_),
                             fmt::format("{} to {}", kNarrowest, kWidest), ExitCode::WrongUsage);
        }
        request_.width = static_cast<std::uint32_t>(width_.value_or(request_.width));
    }
    /// Throws a UsageError for colours that the kind of picture does not know.
    void checkColor() const {
        const ColorBy color = request_.color;
        const bool panorama = request_.kind == PictureKind::Panorama;
        const bool chart =
            request_.kind == PictureKind::Times || request_.kind == PictureKind::Path;
        const bool fits = color == ColorBy::Automatic ||
                          (panorama ? color != ColorBy::Time && color != ColorBy::Scan
                                    : !chart && color != ColorBy::Range);
        if (!fits) {
            throw UsageError(panorama ? "--color: a panorama shows rgb, reflection, range or height"
                             : chart  ? "--color: a chart over time has no points to colour"
                                      : "--color: range is for panoramas");
        }
    }
    bool needsTimes() const {
        return request_.kind == PictureKind::Times || request_.color == ColorBy::Time;
    }

    ScanOptions scan_;
    OutputRules rules_;
    PictureRequest request_;
    std::optional<std::filesystem::path> output_;
    std::optional<std::uint64_t> width_;
    std::vector<KindFlag> kinds_{
        {PictureKind::Plan, "--plan", "Seen from above; this is drawn when nothing else is asked"},
        {PictureKind::Side, "--side", "Seen from the east: y to the right, z up"},
        {PictureKind::Front, "--front", "Seen from the south: x to the right, z up"},
        {PictureKind::Panorama, "--panorama", "The grid of a stance, as the scanner saw it"},
        {PictureKind::Times, "--times", "How the points spread over time"},
        {PictureKind::Path, "--path", "Height, speed and distance along the path over time"}};
};

}  // namespace

std::unique_ptr<Command> makePictureCommand() {
    return std::make_unique<PictureCommand>();
}

}  // namespace ScanHost
