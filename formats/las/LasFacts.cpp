// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasFacts.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "kit/LittleEndian.h"

namespace Ovr::Formats {

namespace {

// Where the bytes stand that say return, flags and class [bytes]. Before format 6 one byte holds
// flags and class.
constexpr std::size_t kReturn = 14;
constexpr std::size_t kFlags = 15;
constexpr std::size_t kNewClass = 16;
constexpr unsigned kFirstNewFormat = 6;

/// How often each value of a byte came. Neighbouring points mostly have the same value, so they are
/// counted in turns: an addition would else wait for the one before it.
class ByteCounts {
  public:
    void add(std::uint64_t turn, char byte) {
        ++counts_[turn % kTurns][static_cast<unsigned char>(byte)];
    }
    std::uint64_t of(std::size_t value) const {
        std::uint64_t sum = 0;
        for (const auto& counts : counts_) {
            sum += counts[value];
        }
        return sum;
    }

  private:
    static constexpr std::size_t kTurns = 4;
    std::array<std::array<std::uint64_t, 256>, kTurns> counts_{};
};

}  // namespace

/// The bytes and the stored coordinates of all points.
struct LasFactsCounter::Raw {
    ByteCounts returns;
    ByteCounts flags;
    ByteCounts classes;  ///< from format 6 on
    std::uint64_t count = 0;
    std::array<std::int32_t, 3> low{kHighest, kHighest, kHighest};
    std::array<std::int32_t, 3> high{kLowest, kLowest, kLowest};

    static constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
    static constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();

    template <bool isNew>
    void add(const char* records, std::size_t length, std::uint64_t more) {
        count += more;
        for (std::uint64_t i = 0; i < more; ++i) {
            const char* const record = records + i * length;
            for (std::size_t axis = 0; axis < 3; ++axis) {
                const auto raw = loadLittle<std::int32_t>(record + 4 * axis);
                low[axis] = std::min(low[axis], raw);
                high[axis] = std::max(high[axis], raw);
            }
            returns.add(i, record[kReturn]);
            flags.add(i, record[kFlags]);
            if constexpr (isNew) {
                classes.add(i, record[kNewClass]);
            }
        }
    }

    /// Sorts the counts of bytes by what their bits mean.
    void translate(bool isNew, LasFacts& facts) const {
        const std::size_t returnBits = isNew ? 0x0F : 0x07;
        const std::size_t classBits = 0x1F;
        for (std::size_t value = 0; value < 256; ++value) {
            facts.returns[value & returnBits] += returns.of(value);
            const std::uint64_t flagged = flags.of(value);
            if (isNew) {
                facts.classes[value] += classes.of(value);
            } else {
                facts.classes[value & classBits] += flagged;
            }
            const std::size_t bits = isNew ? value : value >> 5U;
            facts.synthetic += (bits & 1U) != 0 ? flagged : 0;
            facts.keyPoints += (bits & 2U) != 0 ? flagged : 0;
            facts.withheld += (bits & 4U) != 0 ? flagged : 0;
            facts.overlap += isNew && (bits & 8U) != 0 ? flagged : 0;
        }
    }
};

LasFactsCounter::LasFactsCounter(const LasHeader& header)
    : format_(header.format),
      scale_(header.scale),
      offset_(header.offset),
      raw_(std::make_unique<Raw>()) {}

LasFactsCounter::~LasFactsCounter() = default;

void LasFactsCounter::begin() {
    *raw_ = {};
}

void LasFactsCounter::take(const char* records, std::size_t length, std::uint64_t count) {
    format_ >= kFirstNewFormat ? raw_->add<true>(records, length, count)
                               : raw_->add<false>(records, length, count);
}

LasFacts LasFactsCounter::facts() const {
    LasFacts facts;
    raw_->translate(format_ >= kFirstNewFormat, facts);
    for (std::size_t axis = 0; axis < 3 && raw_->count != 0; ++axis) {
        const double a = raw_->low[axis] * scale_[axis] + offset_[axis];
        const double b = raw_->high[axis] * scale_[axis] + offset_[axis];
        facts.minimum[axis] = std::min(a, b);  // a negative scale turns them round
        facts.maximum[axis] = std::max(a, b);
    }
    return facts;
}

bool boundsDiffer(const LasHeader& header, const LasFacts& facts) {
    for (std::size_t axis = 0; axis < 3 && header.count != 0; ++axis) {
        const double step = std::abs(header.scale[axis]);
        if (!(std::abs(header.minimum[axis] - facts.minimum[axis]) <= step) ||
            !(std::abs(header.maximum[axis] - facts.maximum[axis]) <= step)) {
            return true;
        }
    }
    return false;
}

bool returnsDiffer(const LasHeader& header, const LasFacts& facts) {
    const bool saysSomething = std::any_of(header.returns.begin(), header.returns.end(),
                                           [](std::uint64_t count) { return count != 0; });
    // Index 0 of the points' counts is no return.
    return saysSomething &&
           !std::equal(header.returns.begin(), header.returns.end(), facts.returns.begin() + 1);
}

}  // namespace Ovr::Formats
