// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/Interrupt.h"

#include <atomic>
#include <csignal>
#include <cstring>

#include "report/Failure.h"

namespace ScanHost {

namespace {

/// The signal that came; 0 while none has.
std::atomic<int> received{0};
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler may not wait");

extern "C" void rememberSignal(int signal) {
    received.store(signal);
    std::signal(signal, SIG_DFL);
}

}  // namespace

void Interrupt::listen() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        std::signal(signal, rememberSignal);
    }
    std::signal(SIGXFSZ, SIG_IGN);
}

bool Interrupt::wasAsked() {
    return received.load() != 0;
}

ExitCode Interrupt::exitCode() {
    return wasAsked() ? static_cast<ExitCode>(128 + received.load()) : ExitCode::Cancelled;
}

std::string Interrupt::cause() {
    return wasAsked() ? ::strsignal(received.load()) : "";
}

void Interrupt::check() {
    if (wasAsked()) {
        throw Failure("cancelled", ExitCode::Cancelled);
    }
}

}  // namespace ScanHost
