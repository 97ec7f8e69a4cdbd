// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

namespace Vardex {

/// Takes the module into the host: its record, then the GUI framework's extension module, then the
/// registrations. The first failure ends it and nothing is taken back: unload follows in any case.
/// @param instance  the library's handle, not null
/// @return false on failure; what the host throws passes on
/// Threads: the loading thread, under the platform's loader lock.
[[nodiscard]] bool load(void* instance);

/// Takes the module out of the host: the registrations, then the extension module, then the record.
/// Safe after a partial load. Each step runs whatever the one before it did; nothing is thrown and
/// nothing that could fail is allocated. Threads: as for load.
void unload() noexcept;

}  // namespace Vardex
