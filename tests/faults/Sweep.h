// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "support/AllocationLimit.h"

namespace Vardex::Testing {

/// What a rig answers when it is asked for everything.
using Answers = std::map<std::string, std::string>;

/// An answer that may differ after a failure.
struct Change {
    std::string key;
    std::string value;  ///< kAsDone for what it is when the operation is done
};
inline const std::string kAsDone = "as when done";

/// One operation on a rig: a world with `answers()`, and with `expectFree()` for its locks.
template <typename Rig>
struct Operation {
    using Step = std::function<void(Rig&)>;

    Operation(const char* itsName, Step itsCall, Step before = {}, std::vector<Change> changes = {})
        : name(itsName),
          call(std::move(itsCall)),
          prepare(std::move(before)),
          mayChange(std::move(changes)) {}

    const char* name;
    Step call;                      ///< throws Failed or std::bad_alloc when it fails
    Step prepare;                   ///< what goes before, with all the memory it wants
    std::vector<Change> mayChange;  ///< by a failure; everything else stays
};

/// Thrown by the call of an operation that answers with a failure.
struct Failed {};
inline void succeed(bool done) {
    if (!done) {
        throw Failed{};
    }
}

/// Lets the memory run out at the first, the second, ... allocation of an operation until it gets
/// through; first for one allocation each, then for all from it on. After each failure the rig
/// answers as before but for what may change, everything is free, the same call works and gives
/// what it gives without a fault, and nothing leaks.
template <typename Rig>
class Sweep {
  public:
    explicit Sweep(const Operation<Rig>& operation) : operation_(operation) {
        for (int warmUp = 0; warmUp < 2; ++warmUp) {  // statics of the libraries are made here
            Rig rig;
            before_ = prepared(rig);
            operation_.call(rig);
            done_ = rig.answers();
        }
    }

    /// @return how many allocations were made to fail
    std::size_t run() {
        std::size_t failed = 0;
        for (const bool lasting : {false, true}) {
            std::size_t number = 1;
            while (attempt(number, lasting) && !testing::Test::HasFailure()) {
                ++number;
            }
            failed += number - 1;
        }
        return failed;
    }

  private:
    Answers prepared(Rig& rig) const {
        if (operation_.prepare) {
            operation_.prepare(rig);
        }
        return rig.answers();
    }

    /// @return whether an allocation failed
    bool attempt(std::size_t number, bool lasting) {
        SCOPED_TRACE(std::string(operation_.name) + (lasting ? " from allocation " : " at ") +
                     std::to_string(number));
        const std::ptrdiff_t live = liveAllocations();
        bool fired = false;
        {
            Rig rig;
            static_cast<void>(prepared(rig));
            const bool done = callWithFault(rig, number, lasting, fired);
            rig.expectFree();
            if (!done) {
                EXPECT_TRUE(fired) << "failed without a reason";
                expectAsBefore(rig.answers());
                EXPECT_NO_THROW(operation_.call(rig)) << "again";
            }
            expectAnswers(rig.answers(), done_, done ? "done" : "done again");
            rig.expectFree();
        }
        EXPECT_EQ(liveAllocations(), live);
        return fired;
    }

    bool callWithFault(Rig& rig, std::size_t number, bool lasting, bool& fired) {
        const AllocationFault fault(number, lasting);
        bool done = false;
        try {
            operation_.call(rig);
            done = true;
        } catch (const std::bad_alloc&) {
        } catch (const Failed&) {
        }
        fired = AllocationFault::hasFired();
        return done;
    }

    void expectAsBefore(Answers answers) const {
        Answers expected = before_;
        for (const auto& [key, value] : operation_.mayChange) {
            if (answers[key] == (value == kAsDone ? done_.at(key) : value)) {
                expected[key] = answers[key];
            }
        }
        expectAnswers(answers, expected, "after the failure");
    }

    static void expectAnswers(const Answers& answers, const Answers& expected, const char* when) {
        for (const auto& [key, answer] : answers) {
            EXPECT_EQ(answer, expected.at(key)) << key << ' ' << when;
        }
    }

    const Operation<Rig>& operation_;
    Answers before_;
    Answers done_;
};

}  // namespace Vardex::Testing
