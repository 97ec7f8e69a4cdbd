// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/Interrupt.h"

#include <atomic>
#include <csignal>

#include "report/Failure.h"

namespace ScanHost {

namespace {

std::atomic<bool> interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler may not wait");

extern "C" void rememberInterrupt(int signal) {
    interrupted.store(true);
    std::signal(signal, SIG_DFL);
}

}  // namespace

void Interrupt::listen() {
    std::signal(SIGINT, rememberInterrupt);
}

bool Interrupt::wasAsked() {
    return interrupted.load();
}

void Interrupt::check() {
    if (wasAsked()) {
        throw Failure("cancelled", ExitCode::Cancelled);
    }
}

}  // namespace ScanHost
