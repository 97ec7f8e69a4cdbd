// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

// VARDEX_EXPORT marks what the module offers to the host and to other modules; everything else is
// hidden. VARDEX_INTERNAL takes the private operations of an exported class out again.
#if defined(_WIN32)
#if defined(VARDEX_BUILDING)
#define VARDEX_EXPORT __declspec(dllexport)
#else
#define VARDEX_EXPORT __declspec(dllimport)
#endif
#define VARDEX_INTERNAL
#else
#define VARDEX_EXPORT __attribute__((visibility("default")))
#define VARDEX_INTERNAL __attribute__((visibility("hidden")))
#endif
