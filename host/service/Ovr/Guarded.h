// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <mutex>
#include <utility>

namespace Ovr {

/// A value that one thread may replace while others read it. It is given out as a copy only.
/// Threads: any.
template <typename T>
class Guarded {
  public:
    Guarded() = default;
    explicit Guarded(T value) : value_(std::move(value)) {}
    Guarded(const Guarded& other) : value_(other.get()) {}
    Guarded& operator=(const Guarded& other) {
        set(other.get());
        return *this;
    }
    ~Guarded() = default;

    T get() const {
        const std::lock_guard lock(mutex_);
        return value_;
    }
    void set(T value) {
        using std::swap;
        const std::lock_guard lock(mutex_);
        swap(value_, value);  // what was held ends after the lock
    }

  private:
    mutable std::mutex mutex_;
    T value_{};  // guarded by mutex_
};

}  // namespace Ovr
