// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <array>

#include <fmt/format.h>

#include "Hx/CommandInterf.h"
#include "Hx/RestrictionManager.h"
#include "Hx/StateContext.h"

#include "commands/CommandList.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/KnownFiles.h"
#include "session/ModuleSession.h"
#include "session/ProjectImport.h"

namespace ScanHost {

namespace {

/// Commands that a host application has, whether or not a module restricts them.
constexpr std::array kHostCommands{
    "Plane:Create",        "Slab:Create",
    "Sphere:Create",       "Pipe:Create",
    "Point3d:Create",      "Checkerboard:Create",
    "CornerPoint:Create",  "CircularFlatPoint:Create",
    "Transform:Create",    "View3d:Create",
    "Object:Delete",       "Object:ExportObjects",
    "Object:Hide",         "Object:Properties",
    "Object:Rename",       "Object:Show",
    "Transform:Move",      "Transform:SetGlobalSystemFolder",
    "View3d:ZoomToObject",
};

class CommandsCommand final : public Command {
  public:
    std::string name() const override { return "commands"; }
    std::string summary() const override {
        return "Which host commands are allowed while a project's data object is selected";
    }
    void declare(Options& options) override {
        options
            .positional("PROJECT", project_, Option::Names::File,
                        projectFileText("Scanner project"))
            .required();
        options.positionals("COMMAND", commands_, Option::Names::Nothing,
                            "Identifiers of commands, for example Plane:Create; without one, the "
                            "commands of this host");
    }
    void run(const CommonOptions& /*common*/, Console& console) override {
        if (commands_.empty()) {
            commands_.assign(kHostCommands.begin(), kHostCommands.end());
        }
        ModuleSession session;
        const auto project = openProject(session, console, project_);
        const Hx::StateContext state({project});
        const Hx::RestrictionManager& restrictions = *session.application().getRestrictionManager();
        Report report(fmt::format("commands while {} is selected", project->getName().toUtf8()));
        report.addHidden("project", printable(project_));
        Table table{{{"command", "command"}, {"allowed", "allowed"}}, {}};
        for (const std::string& identifier : commands_) {
            const Hx::Command command(Tq_1_1::String::fromUtf8(identifier));
            const bool allowed = !restrictions.isDenied(&command, &state);
            table.rows.push_back({{printable(identifier), printable(identifier)},
                                  {allowed, allowed ? "yes" : "no"}});
        }
        report.addTable("commands", "", std::move(table));
        console.show(report);
    }

  private:
    std::string project_;
    std::vector<std::string> commands_;
};

}  // namespace

std::unique_ptr<Command> makeCommandsCommand() {
    return std::make_unique<CommandsCommand>();
}

}  // namespace ScanHost
