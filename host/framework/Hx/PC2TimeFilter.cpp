// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/PC2TimeFilter.h"

#include <utility>

namespace Hx {

namespace {

// More than any filter has.
constexpr std::size_t kMostAttributes = 1024;

Tq_1_1::SmartPtr<Attribute> makeAttribute(std::size_t number, double value) {
    Tq_1_1::SmartPtr<Attribute> attribute(new Attribute(static_cast<unsigned int>(number)));
    attribute->setValue(value, nullptr);
    return attribute;
}

}  // namespace

PC2TimeFilter::PC2TimeFilter(double start, double end) {
    setAttribute(START_ATTRIBUTE, makeAttribute(START_ATTRIBUTE, start));
    setAttribute(END_ATTRIBUTE, makeAttribute(END_ATTRIBUTE, end));
}

const Attribute* PC2TimeFilter::getAttribute(std::size_t number) const {
    return number < attributes_.size() ? attributes_[number].get() : nullptr;
}

Attribute* PC2TimeFilter::getAttribute(std::size_t number) {
    return number < attributes_.size() ? attributes_[number].get() : nullptr;
}

void PC2TimeFilter::setAttribute(std::size_t number, Tq_1_1::SmartPtr<Attribute> attribute) {
    if (number >= kMostAttributes) {
        return;
    }
    if (number >= attributes_.size()) {
        attributes_.resize(number + 1);
    }
    attributes_[number] = std::move(attribute);
}

}  // namespace Hx
