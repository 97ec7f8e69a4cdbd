// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

namespace Vardex {

/// A place in a grid of points. Rows and columns count from 0.
struct GridCell {
    int row = 0;
    int col = 0;

    friend constexpr bool operator==(const GridCell&, const GridCell&) = default;
};

}  // namespace Vardex
