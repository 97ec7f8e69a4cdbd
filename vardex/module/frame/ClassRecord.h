// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tq/HxClass.h"

#include "module/frame/ModuleRecord.h"

namespace Vardex {

/// Builds the record of a class while the library is loaded: the host lists a module's classes as
/// soon as it is. What uses kBuilt makes the compiler emit its initialiser.
template <typename HostClass>
struct ClassRecordAtLoad {
    static const Tq_1_1::HxClass* const kBuilt;
};
template <typename HostClass>
const Tq_1_1::HxClass* const ClassRecordAtLoad<HostClass>::kBuilt = HostClass::Class();

/// What the static Class() of a class of this module returns: its record, an object of its nested
/// ClassCreator. The first call builds it, after the records of the module and of the base class.
/// @param HostClass  the class itself
/// @param Base       its base class, with a record of its own
/// @param name       of the class
/// Threads: any.
template <typename HostClass, typename Base>
const Tq_1_1::HxClass* classRecord(const wchar_t* name) {
    static const typename HostClass::ClassCreator record(name, Base::Class(), theModule(), {});
    static_cast<void>(&ClassRecordAtLoad<HostClass>::kBuilt);
    return &record;
}

}  // namespace Vardex
