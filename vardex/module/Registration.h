// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

/// Announces the module's classes and functions to the host and withdraws them.
///
/// Lists are edited by the rules of module/frame/OperationList.h. A step that fails leaves in place
/// what it registered before. Each unregistering step leaves alone what was never registered, so
/// the whole unregistration is safe after a partial registration. Unregistering needs no memory of
/// its own, and what the host throws in it goes no further.
/// Threads: the loading thread only; the host must not read its lists meanwhile.
namespace Vardex {

/// Makes what unregistering needs, before anything else that can fail: it is there also when the
/// registration is not reached.
/// @throw std::bad_alloc
void prepareRegistration();

/// Enters the mobile class into the lists of settings pages and panoramas, then into the host's
/// point-set factory.
/// @return false when the host has no factory or the factory refuses
[[nodiscard]] bool registerCorvinMobilePointSet();
/// Enters the stationary class into the polar factories, double before float, and into the lists of
/// settings pages and settings, then into the host's point-set factory.
/// @return false when the host has no factory or the factory refuses
[[nodiscard]] bool registerCorvinStancePointSet();
void registerChangedNotifyOperation();
void registerSphericalEstimationOperation();
void registerScanPointTimesOperation();

/// @return what the factory answers; false when the host has none or it throws
bool unregisterCorvinMobilePointSet() noexcept;
/// @return what the factory answers; false when the host has none or it throws
bool unregisterCorvinStancePointSet() noexcept;
void unregisterSphericalEstimationOperation() noexcept;
void unregisterScanPointTimesOperation() noexcept;
void unregisterChangedNotifyOperation() noexcept;

/// All registering steps in the order above, up to the first that fails.
/// What the host throws passes on.
/// @return false when one failed
[[nodiscard]] bool registerAll();
/// All unregistering steps in the order above, whatever each of them gives.
void unregisterAll() noexcept;

}  // namespace Vardex
