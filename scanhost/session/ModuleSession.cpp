// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/ModuleSession.h"

#include <array>

#include <fmt/format.h>

#include "Hx/ModuleInitInfo.h"
#include "Hx/PointSetFactory.h"
#include "Hx/RestrictionManager.h"
#include "Hx/TypeConversion.h"

#include "dataobj/VardexDataObj.h"
#include "report/Failure.h"

namespace ScanHost {

namespace {

constexpr int kEntryPointSucceeded = 1;

template <typename Function>
Function& entryPoint(const Platform::LoadedLibrary& library, const char* name) {
    Function* function = library.function<Function>(name);
    if (function == nullptr) {
        throw Failure(fmt::format("the module exports no {}", name));
    }
    return *function;
}

}  // namespace

ModuleSession::ModuleSession() : application_(std::make_shared<Hx::Application>()) {
    application_->setRestrictionManager(std::make_shared<Hx::RestrictionManager>());
    std::string error;
    library_ = Platform::LoadedLibrary::open(Platform::LoadedLibrary::linked(), error);
    if (!library_) {
        throw Failure(error);
    }
    callEntryPoints();
    root_ = Tq_1_1::SmartPtr<Hx::Object>(new Hx::Object);
    root_->init(Tq_1_1::BaseNode::CREATE_NEW, nullptr);
    Hx::Models::the().setApplication(application_.get());  // last: nothing takes it back on a throw
}

ModuleSession::~ModuleSession() {
    // Objects of the tree, and the denial function that they registered, are the module's code:
    // they go before the library does. Without a project there was no registration.
    root_ = nullptr;
    static_cast<void>(application_->getRestrictionManager()->removeDenialFunction(
        Vardex::VardexDataObj::commandFilterKey.get()));
    Hx::Models::the().setApplication(nullptr);
}

void ModuleSession::callEntryPoints() {
    std::array<int, 4> number{};
    entryPoint<Hx::HxGetVersionFunction>(*library_, "HxGetVersion")(&number[0], &number[1],
                                                                    &number[2], &number[3]);
    version_ = fmt::format("{}", fmt::join(number, "."));
    const auto info = std::make_shared<Hx::ModuleInitInfo>();
    const int initialised = entryPoint<Hx::HxInitFunction>(*library_, "HxInit")(info);
    const int started =
        entryPoint<Hx::QuorvaPostInitFunction>(*library_, "QuorvaPostInit")(application_);
    if (initialised != kEntryPointSucceeded || started != kEntryPointSucceeded) {
        throw Failure("the module refuses to start");
    }
    Hx::TypeConversion::convert(info->moduleName, name_);
}

std::shared_ptr<Hx::PointSet> ModuleSession::createPointSet(
    const std::string& classIdentifier) const {
    const auto factory = Hx::Models::the().getPointSetFactory();
    std::shared_ptr<Hx::PointSet> pointSet =
        factory ? factory->create(Tq_1_1::String::fromUtf8(classIdentifier)) : nullptr;
    if (!pointSet) {
        throw Failure("no class of point sets is registered for " + classIdentifier);
    }
    return pointSet;
}

}  // namespace ScanHost
