// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "HostExport.h"
#include "Tq/Module.h"
#include "Tq/String.h"

namespace Tq_1_1 {

/// Version of a class's stored form.
struct ClassVersion {
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::uint32_t build = 0;
    std::uint32_t flags = 0;
};

/// A class record: what the host knows about one of its own classes or a class of a module. A
/// record enters the host's list of classes when it is built and leaves it when it is destroyed.
/// Threads: any.
class HOST_EXPORT HxClass {
  public:
    /// @param base    record of the base class; null for a root
    /// @param module  the module that the class lives in; outlives the record
    HxClass(const String& name, const HxClass* base, const Module& module,
            const ClassVersion& version);
    HxClass(const HxClass&) = delete;
    HxClass& operator=(const HxClass&) = delete;
    virtual ~HxClass();

    const String& getName() const { return name_; }
    const Module& getModule() const { return module_; }

    /// Whether this is @p other or has it among its bases; false for null.
    bool isDerivedFrom(const HxClass* other) const;

    /// Set up and tear down the class's static tables. Called when the class's module is
    /// initialised and terminated. Each may be called repeatedly.
    virtual void initClassStatics() const;
    virtual void clearClassStatics() const;

    /// All records, in the order in which they were built.
    static std::vector<const HxClass*> all();
    /// The next record of a module in that order, for a walk that needs no memory.
    /// @param from  in and out: the place to go on from, 0 at first
    /// @return null after the last
    static const HxClass* nextOf(const Module& module, std::size_t& from);

  private:
    String name_;
    const HxClass* base_;
    const Module& module_;
};

/// A class record that can make instances. Base::ClassPointer is the pointer that owns them.
template <typename Base>
class CreateableHxClass : public HxClass {
  public:
    using HxClass::HxClass;

    /// @return a new instance; empty when instances are made elsewhere
    virtual typename Base::ClassPointer create() const = 0;
};

}  // namespace Tq_1_1
