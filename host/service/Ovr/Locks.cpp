// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Locks.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <utility>

namespace Ovr {

IPointDataWriteLock::~IPointDataWriteLock() = default;
IPointDataExclusiveAccess::~IPointDataExclusiveAccess() = default;
IPointDataLocks::~IPointDataLocks() = default;

namespace {

/// A re-entrant timed mutex. The standard one waits by a call that the thread sanitizer of GCC 12
/// does not know, and every use of the points would be reported as a race.
class LockState {
  public:
    bool acquire(std::chrono::milliseconds timeout) {
        std::unique_lock guard(mutex_);
        const std::thread::id self = std::this_thread::get_id();
        const auto mine = [&] { return depth_ == 0 || owner_ == self; };
        if (!freed_.wait_for(guard, timeout, mine)) {
            return false;
        }
        owner_ = self;
        ++depth_;
        return true;
    }

    void release() {
        {
            const std::lock_guard guard(mutex_);
            --depth_;
        }
        freed_.notify_one();
    }

    /// @return whether exclusive access was free; it is taken then
    bool takeExclusive() { return !exclusive_.exchange(true); }
    void giveBackExclusive() { exclusive_ = false; }

  private:
    std::mutex mutex_;
    std::condition_variable freed_;
    std::thread::id owner_;  ///< of the lock; means something while depth_ is not 0
    std::uint32_t depth_ = 0;
    std::atomic<bool> exclusive_{false};
};

class WriteLock final : public IPointDataWriteLock {
  public:
    /// Requires: the calling thread has just acquired the state; it is released here.
    explicit WriteLock(std::shared_ptr<LockState> state) : state_(std::move(state)) {}
    WriteLock(const WriteLock&) = delete;
    WriteLock& operator=(const WriteLock&) = delete;
    ~WriteLock() override { state_->release(); }

    bool isValid() const override { return true; }
    bool isOf(const std::shared_ptr<LockState>& state) const { return state_ == state; }

  private:
    std::shared_ptr<LockState> state_;
};

class ExclusiveAccess final : public IPointDataExclusiveAccess {
  public:
    /// Requires: the caller has just taken exclusive access; it is given back here.
    explicit ExclusiveAccess(std::shared_ptr<LockState> state) : state_(std::move(state)) {}
    ExclusiveAccess(const ExclusiveAccess&) = delete;
    ExclusiveAccess& operator=(const ExclusiveAccess&) = delete;
    ~ExclusiveAccess() override { state_->giveBackExclusive(); }

  private:
    std::shared_ptr<LockState> state_;
};

class PointDataLocks final : public IPointDataLocks {
  public:
    std::unique_ptr<IPointDataWriteLock> getWriteLock(int timeout) override {
        if (!state_->acquire(std::chrono::milliseconds(std::max(timeout, 0)))) {
            return nullptr;
        }
        try {
            return std::make_unique<WriteLock>(state_);
        } catch (...) {
            state_->release();
            throw;
        }
    }

    std::unique_ptr<IPointDataExclusiveAccess> getExclusiveAccess(
        const IPointDataWriteLock& lock) override {
        const auto* own = dynamic_cast<const WriteLock*>(&lock);
        if (own == nullptr || !own->isOf(state_) || !state_->takeExclusive()) {
            return nullptr;
        }
        try {
            return std::make_unique<ExclusiveAccess>(state_);
        } catch (...) {
            state_->giveBackExclusive();
            throw;
        }
    }

  private:
    std::shared_ptr<LockState> state_ = std::make_shared<LockState>();
};

}  // namespace

std::shared_ptr<IPointDataLocks> makePointDataLocks() {
    return std::make_shared<PointDataLocks>();
}

}  // namespace Ovr
