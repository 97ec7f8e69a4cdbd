// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <atomic>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace Tq_1_1 {

/// Base of objects that count their owners. A new object has no owner; the last SmartPtr that goes
/// destroys it. Threads: the count is atomic.
/// @param Derived  declares its own virtual destructor, at the place that its table of virtual
///                 operations needs. When the destructor is protected, this class is a friend.
template <typename Derived>
class RefCounted {
  public:
    RefCounted() = default;
    RefCounted(const RefCounted&) = delete;
    RefCounted& operator=(const RefCounted&) = delete;

    void addReference() const { references_.fetch_add(1, std::memory_order_relaxed); }
    void releaseReference() const {
        if (references_.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            delete static_cast<const Derived*>(this);
        }
    }
    long referenceCount() const { return references_.load(std::memory_order_relaxed); }

  protected:
    ~RefCounted() = default;

  private:
    mutable std::atomic<long> references_{0};
};

/// The host's intrusive pointer. T derives from a RefCounted.
template <typename T>
class SmartPtr {
  public:
    SmartPtr() = default;
    SmartPtr(std::nullptr_t) {}  // NOLINT(google-explicit-constructor)
    explicit SmartPtr(T* object) : object_(object) { acquire(); }
    SmartPtr(const SmartPtr& other) : SmartPtr(other.object_) {}
    SmartPtr(SmartPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    template <typename U>
    requires std::is_convertible_v<U*, T*> SmartPtr(
        const SmartPtr<U>& other)  // NOLINT(google-explicit-constructor)
        : SmartPtr(static_cast<T*>(other.get())) {}
    SmartPtr& operator=(SmartPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~SmartPtr() {
        if (object_ != nullptr) {
            object_->releaseReference();
        }
    }

    T* get() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

    template <typename U>
    friend bool operator==(const SmartPtr& a, const SmartPtr<U>& b) {
        return a.get() == b.get();
    }

  private:
    void acquire() const {
        if (object_ != nullptr) {
            object_->addReference();
        }
    }

    T* object_ = nullptr;
};

/// The SmartPtr that creating operations return. It is made from an object explicitly. It converts
/// to a SmartPtr of a base class, and a SmartPtr does not convert to it. It may be empty.
template <typename T>
class StrictSmartPtr : public SmartPtr<T> {
  public:
    StrictSmartPtr() = default;
    explicit StrictSmartPtr(T* object) : SmartPtr<T>(object) {}
    template <typename U>
    requires std::is_convertible_v<U*, T*> StrictSmartPtr(
        const StrictSmartPtr<U>& other)  // NOLINT(google-explicit-constructor)
        : SmartPtr<T>(other) {}
};

}  // namespace Tq_1_1
