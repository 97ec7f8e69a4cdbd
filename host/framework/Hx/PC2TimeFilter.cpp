// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/PC2TimeFilter.h"

#include <utility>

namespace Hx {

namespace {

Tq_1_1::SmartPtr<Attribute> makeAttribute(std::size_t number, double value) {
    Tq_1_1::SmartPtr<Attribute> attribute(new Attribute(static_cast<unsigned int>(number)));
    attribute->setValue(value, nullptr);
    return attribute;
}

}  // namespace

PC2TimeFilter::PC2TimeFilter(double start, double end)
    : start_(makeAttribute(START_ATTRIBUTE, start)), end_(makeAttribute(END_ATTRIBUTE, end)) {}

const Attribute* PC2TimeFilter::getAttribute(std::size_t number) const {
    return number == START_ATTRIBUTE ? start_.get()
           : number == END_ATTRIBUTE ? end_.get()
                                     : nullptr;
}

Attribute* PC2TimeFilter::getAttribute(std::size_t number) {
    return const_cast<Attribute*>(std::as_const(*this).getAttribute(number));
}

}  // namespace Hx
