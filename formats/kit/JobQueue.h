// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace Ovr::Formats {

/// Runs jobs on threads and hands them back in the order in which they were given.
/// Threads: the operations are for one; the jobs run on others.
template <class Job>
class JobQueue {
  public:
    /// @param threads  0, or none to be had: each job runs when it is taken
    /// @param run      called on several threads at once, each time for another job
    JobQueue(unsigned threads, std::function<void(Job&)> run) : run_(std::move(run)) {
        try {
            threads_.reserve(threads);
            while (threads_.size() < threads) {
                threads_.emplace_back([this] { work(); });
            }
        } catch (const std::system_error&) {
            // Those that there are do.
        } catch (const std::bad_alloc&) {
            // The same; passing it on would end the program, with threads that nobody joins.
        }
    }
    JobQueue(const JobQueue&) = delete;
    JobQueue& operator=(const JobQueue&) = delete;
    /// Jobs that have not begun are dropped.
    ~JobQueue() {
        {
            const std::lock_guard guard(mutex_);
            stopped_ = true;
        }
        changed_.notify_all();
        for (std::thread& thread : threads_) {
            thread.join();
        }
    }

    /// Number of jobs that were given and not taken.
    std::size_t size() const { return jobs_.size(); }

    void give(std::unique_ptr<Job> job) {
        {
            const std::lock_guard guard(mutex_);
            jobs_.push_back(std::make_shared<Entry>(Entry{std::move(job)}));
        }
        changed_.notify_all();
    }

    /// Waits for the oldest job. What it threw is thrown again. Requires: size() > 0.
    std::unique_ptr<Job> take() {
        std::unique_lock lock(mutex_);
        const auto entry = jobs_.front();
        if (threads_.empty()) {
            jobs_.pop_front();
            run_(*entry->job);
            return std::move(entry->job);
        }
        changed_.wait(lock, [&] { return entry->state == State::Done; });
        jobs_.pop_front();
        if (entry->failure) {
            std::rethrow_exception(entry->failure);
        }
        return std::move(entry->job);
    }

  private:
    enum class State { Waiting, Running, Done };
    struct Entry {
        std::unique_ptr<Job> job;
        State state = State::Waiting;
        std::exception_ptr failure{};
    };

    std::shared_ptr<Entry> waiting() const {
        for (const auto& entry : jobs_) {
            if (entry->state == State::Waiting) {
                return entry;
            }
        }
        return nullptr;
    }

    void work() {
        std::unique_lock lock(mutex_);
        while (true) {
            std::shared_ptr<Entry> entry;
            changed_.wait(lock, [&] { return stopped_ || (entry = waiting()) != nullptr; });
            if (stopped_) {
                return;
            }
            entry->state = State::Running;
            lock.unlock();
            try {
                run_(*entry->job);
            } catch (...) {
                entry->failure = std::current_exception();
            }
            lock.lock();
            entry->state = State::Done;
            changed_.notify_all();
        }
    }

    std::function<void(Job&)> run_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::shared_ptr<Entry>> jobs_;
    bool stopped_ = false;
    std::vector<std::thread> threads_;
};

}  // namespace Ovr::Formats
