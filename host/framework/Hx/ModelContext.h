// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <mutex>

#include "HostExport.h"
#include "Tq/SmartPtr.h"

namespace Hx {

/// A context in which models are read and changed, one thread at a time.
class HOST_EXPORT ModelContext : public Tq_1_1::RefCounted<ModelContext> {
  public:
    /// The identifier of the context that spans all models.
    static constexpr unsigned long long ALL_MODELS = 0xFFFFFFFFFFFFFFFFULL;

    /// Number of AllocMain guards that were taken and released on this context so far.
    std::size_t guardsTaken() const { return taken_; }
    std::size_t guardsReleased() const { return released_; }

  private:
    friend class AllocMain;
    friend class Tq_1_1::RefCounted<ModelContext>;
    virtual ~ModelContext();

    std::recursive_mutex mutex_;
    std::size_t taken_ = 0;     // guarded by mutex_
    std::size_t released_ = 0;  // guarded by mutex_
};

/// Guard of a model context: holds it from construction to release() or destruction. Re-entrant on
/// one thread.
class HOST_EXPORT AllocMain {
  public:
    /// @param exclusive  not looked at: every guard excludes other threads
    /// @param context    may be empty: nothing is guarded then
    AllocMain(bool exclusive, const Tq_1_1::SmartPtr<ModelContext>& context);
    AllocMain(const AllocMain&) = delete;
    AllocMain& operator=(const AllocMain&) = delete;
    ~AllocMain();

    /// Releases the context. May be called repeatedly. Requires: the thread that made the guard.
    void release();

  private:
    Tq_1_1::SmartPtr<ModelContext> context_;
};

}  // namespace Hx
