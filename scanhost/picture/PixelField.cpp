// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/PixelField.h"

namespace ScanHost {

void PixelField::keepMost(float number) {
    for (Cell& cell : cells_) {
        if (cell.values[0] > cell.values[1]) {
            cell.values[1] = cell.values[0];
            cell.values[2] = number;
        }
        cell.values[0] = 0.0F;
    }
}

}  // namespace ScanHost
