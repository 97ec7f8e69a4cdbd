// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Tq/HxClass.h"

#include <mutex>

namespace Tq_1_1 {

namespace {

struct Registry {
    std::mutex mutex;
    std::vector<const HxClass*> records;  // guarded by mutex
};

// Built by the first module or class record, so that it outlives all of them.
Registry& registry() {
    static Registry instance;
    return instance;
}

}  // namespace

HxClass::HxClass(const String& name, const HxClass* base, const Module& module,
                 const ClassVersion& /*version*/)
    : name_(name), base_(base), module_(module) {
    const std::lock_guard lock(registry().mutex);
    registry().records.push_back(this);
}

HxClass::~HxClass() {
    const std::lock_guard lock(registry().mutex);
    std::erase(registry().records, this);
}

bool HxClass::isDerivedFrom(const HxClass* other) const {
    const HxClass* type = this;
    while (type != nullptr && type != other) {
        type = type->base_;
    }
    return type != nullptr;
}

void HxClass::initClassStatics() const {}

void HxClass::clearClassStatics() const {}

const HxClass* HxClass::nextOf(const Module& module, std::size_t& from) {
    const std::lock_guard lock(registry().mutex);
    const std::vector<const HxClass*>& records = registry().records;
    while (from < records.size()) {
        const HxClass* const type = records[from++];
        if (&type->module_ == &module) {
            return type;
        }
    }
    return nullptr;
}

std::vector<const HxClass*> HxClass::all() {
    const std::lock_guard lock(registry().mutex);
    return registry().records;
}

}  // namespace Tq_1_1
