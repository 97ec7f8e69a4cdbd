// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// The filter that denies host commands while a VardexDataObj is selected.

#include "Hx/CommandInterf.h"
#include "Hx/Models.h"
#include "Hx/RestrictionManager.h"
#include "Hx/StateContext.h"

#include "dataobj/VardexDataObj.h"

namespace Vardex {

const Tq_1_1::SmartPtr<Hx::Observer> VardexDataObj::commandFilterKey(new Hx::Observer);

const std::set<Tq_1_1::String> VardexDataObj::forbiddenCommands = {
    L"Plane:Create",
    L"Slab:Create",
    L"Sphere:Create",
    L"Pipe:Create",
    L"Point3d:Create",
    L"Checkerboard:Create",
    L"CircularFlatPoint:Create",
    L"CornerPoint:Create",
    L"Transform:Create",
    L"View3d:Create",
    L"Object:ExportObjects",
    L"Transform:SetGlobalSystemFolder",
    L"Object:Properties",
};

VardexDataObj::VardexDataObj() {
    const Hx::Application* const application = Hx::Models::the().getApplication();
    if (application == nullptr) {
        return;
    }
    if (const auto restrictions = application->getRestrictionManager()) {
        restrictions->addDenialFunction(commandFilterKey.get(), &VardexDataObj::commandFilter);
    }
}

bool VardexDataObj::commandFilter(const Hx::CommandInterf* command, const Hx::StateContext* state) {
    if (command == nullptr || state == nullptr) {
        return false;
    }
    const auto selected = state->getFirstSelectionObject();
    // By name, so that classes derived from this one keep their commands.
    if (!selected || !(selected->getClassType()->getName() == L"VardexDataObj")) {
        return false;
    }
    return forbiddenCommands.contains(Tq_1_1::String(command->getIdentifier()));
}

}  // namespace Vardex
