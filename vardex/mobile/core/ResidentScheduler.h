// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

/// The scheduler under the parallel sort: oneTBB, which the process may share with the host and
/// with other modules. The module starts it and ends nothing: its threads, tasks and observers may
/// be somebody else's.
namespace Vardex::ResidentScheduler {

/// Makes sure that work may be given to oneTBB from this thread now.
///
/// - The oneTBB library stays mapped until the process ends. Its idle threads wait in its code and
///   would crash the host if it were unmapped together with the module.
/// - There is memory for its threads, with their stacks, and for @p workBytes of the work. oneTBB
///   does not survive running out of memory while it starts its threads. The memory is given back
///   untouched, which costs almost nothing.
/// - Its threads can be started: as many are started at once and joined. oneTBB does not survive
///   that it gets none. The number is checked each time, for oneTBB may have to start its threads
///   again: they end with the last of the threads that gave it work.
///
/// @return false when one of these is not so, when there is one processor, and when the work here
///         may take one thread only: the caller then does the work itself, and oneTBB is untouched
/// Threads: any.
[[nodiscard]] bool isReady(std::size_t workBytes);

}  // namespace Vardex::ResidentScheduler
