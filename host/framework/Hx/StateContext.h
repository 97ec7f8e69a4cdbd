// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <utility>
#include <vector>

#include "Hx/Object.h"
#include "Tq/SmartPtr.h"

namespace Hx {

/// The state in which a command would run: what is selected.
class StateContext {
  public:
    StateContext() = default;
    explicit StateContext(std::vector<Tq_1_1::SmartPtr<Object>> selection)
        : selection_(std::move(selection)) {}

    /// @return empty when nothing is selected
    Tq_1_1::SmartPtr<Object> getFirstSelectionObject() const {
        return selection_.empty() ? Tq_1_1::SmartPtr<Object>() : selection_.front();
    }

  private:
    std::vector<Tq_1_1::SmartPtr<Object>> selection_;
};

}  // namespace Hx
