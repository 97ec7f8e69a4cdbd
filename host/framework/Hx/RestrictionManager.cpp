// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/RestrictionManager.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace Hx {

void RestrictionManager::addDenialFunction(const void* key, DenialFunction function) {
    if (key == nullptr || !function) {
        return;
    }
    const std::lock_guard lock(mutex_);
    Entry& entry = entries_[key];
    entry.function = std::move(function);
    ++entry.registrations;
}

void RestrictionManager::removeDenialFunction(const void* key) {
    const std::lock_guard lock(mutex_);
    entries_.erase(key);
}

std::size_t RestrictionManager::getRegistrationCount(const void* key) const {
    const std::lock_guard lock(mutex_);
    const auto found = entries_.find(key);
    return found == entries_.end() ? 0 : found->second.registrations;
}

bool RestrictionManager::isDenied(const CommandInterf* command, const StateContext* state) const {
    // Copies are called: a function may itself lead to an object that registers one.
    std::vector<DenialFunction> functions;
    {
        const std::lock_guard lock(mutex_);
        for (const auto& [key, entry] : entries_) {
            functions.push_back(entry.function);
        }
    }
    return std::any_of(functions.begin(), functions.end(),
                       [&](const DenialFunction& denies) { return denies(command, state); });
}

}  // namespace Hx
