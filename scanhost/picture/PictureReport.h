// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "picture/ScanPictures.h"
#include "report/Report.h"

namespace ScanHost {

/// Says where a picture was written and what it shows.
void describePicture(const PictureFile& picture, Report& report);

}  // namespace ScanHost
