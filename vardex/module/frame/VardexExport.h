// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#if defined(_WIN32)
#if defined(VARDEX_BUILDING)
#define VARDEX_EXPORT __declspec(dllexport)
#else
#define VARDEX_EXPORT __declspec(dllimport)
#endif
#else
/// Marks what the module offers to the host and to other modules; everything else is hidden.
#define VARDEX_EXPORT __attribute__((visibility("default")))
#endif
