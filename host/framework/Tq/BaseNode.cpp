// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Tq/BaseNode.h"

namespace Tq_1_1 {

BaseNode::~BaseNode() = default;

const HxClass* BaseNode::Class() {
    static const HxClass record(L"BaseNode", nullptr, hostModule(), {});
    return &record;
}

const HxClass* BaseNode::getClassType() const {
    return Class();
}

}  // namespace Tq_1_1
