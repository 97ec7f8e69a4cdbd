// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <filesystem>

#include "commands/CommandList.h"
#include "report/NumberText.h"
#include "sample/SampleFiles.h"

namespace ScanHost {

namespace {

class SampleCommand final : public Command {
  public:
    std::string name() const override { return "sample"; }
    std::string summary() const override {
        return "Write a simulated project: two rooms, two stances, one walk";
    }
    void declare(Options& options) override {
        options
            .positional("DIR", folder_, Option::Names::Folder,
                        "Folder for the files; made when it is not there")
            .required();
        declareForce(options, rules_);
    }
    void run(const CommonOptions& /*common*/, Console& console) override {
        Report report;
        Table table{{{"file", "file"}, {"holds", "holds"}}, {}};
        for (const Sample::SampleFile& sample : Sample::writeSample(folder_, rules_)) {
            const std::string file = printable(sample.file.string());
            table.rows.push_back({{file, file}, {sample.holds, sample.holds}});
        }
        report.addTable("files", "sample", std::move(table));
        console.show(report);
    }

  private:
    std::filesystem::path folder_;
    OutputRules rules_;
};

}  // namespace

std::unique_ptr<Command> makeSampleCommand() {
    return std::make_unique<SampleCommand>();
}

}  // namespace ScanHost
