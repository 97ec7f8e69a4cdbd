// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#if defined(_WIN32)
#if defined(HOST_BUILDING)
#define HOST_EXPORT __declspec(dllexport)
#else
#define HOST_EXPORT __declspec(dllimport)
#endif
#else
/// Marks what the host library offers to modules and applications.
#define HOST_EXPORT __attribute__((visibility("default")))
#endif
