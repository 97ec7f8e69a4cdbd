// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace Ovr::Formats::Laz {

/// Adaptive frequencies of the symbols 0 to S - 1, in which encoder and decoder keep step.
///
/// | state | at first |
/// |---|---|
/// | count of each symbol | 1 |
/// | total | 0, and S after the first update |
/// | cycle: symbols from one update to the next | S for the first update, (S + 6) / 2 after it |
///
/// An update adds the cycle to the total, halves all counts when the total exceeds 32768, spreads
/// the counts over 32768 shares and lengthens the cycle by a quarter, up to 8 * (S + 6).
/// The tables are made when the model is first used, for most models of a file never are.
class SymbolModel {
  public:
    /// log2 of the shares.
    static constexpr unsigned SHARE_BITS = 15;

    /// @param symbols  S, 2 to 2048
    explicit SymbolModel(unsigned symbols) : symbols_(static_cast<std::uint16_t>(symbols)) {}

    /// Makes the tables unless they are there.
    /// @param searched  whether find() will be called
    void ready(bool searched) {
        if (!tables_) {
            make(searched);
        }
    }

    bool isLast(unsigned symbol) const { return symbol + 1U == symbols_; }
    /// Shares of all symbols before this one.
    std::uint32_t below(unsigned symbol) const { return tables_[symbol]; }
    /// The last symbol whose below() is at most @p share: what lies past the last share is the last
    /// symbol's.
    unsigned find(std::uint32_t share) const {
        const std::uint16_t* const starts = tables_.get() + std::size_t{2} * symbols_ + 1;
        unsigned symbol = starts[share >> shift_];
        while (tables_[symbol + 1U] <= share) {
            ++symbol;
        }
        return symbol;
    }
    /// Takes note of a symbol that was coded.
    void count(unsigned symbol) {
        ++tables_[symbols_ + 1U + symbol];
        if (--left_ == 0) {
            update();
        }
    }

    /// For tests: symbols from the last update to the next, and how many of them are to come.
    std::uint32_t cycle() const { return cycle_; }
    std::uint32_t left() const { return left_; }

  private:
    void make(bool searched);
    void update();
    void spread();
    void halve();

    /// S + 1 sums (the last one above every share), S counts, and in a decoder the symbols from
    /// which find() begins.
    std::unique_ptr<std::uint16_t[]> tables_;
    std::uint32_t total_ = 0;
    std::uint32_t cycle_ = 0;
    std::uint32_t left_ = 0;
    std::uint16_t symbols_;
    std::uint16_t starts_ = 0;  ///< 0 where find() is not called
    std::uint8_t shift_ = 0;    ///< from a share to its place among the starts
};

/// A model whose number of symbols is part of its type, for arrays of them.
template <unsigned Symbols>
struct SymbolsOf : SymbolModel {
    SymbolsOf() : SymbolModel(Symbols) {}
};

/// Adaptive frequency of a bit.
///
/// | state | at first |
/// |---|---|
/// | zeros, total | 1, 2 |
/// | share of the zeros among 8192 | 4096 |
/// | cycle | 4 |
class BitModel {
  public:
    /// log2 of the shares.
    static constexpr unsigned SHARE_BITS = 13;

    std::uint32_t zeroShare() const { return share_; }
    void count(unsigned bit) {
        zeros_ += 1U - bit;
        if (--left_ == 0) {
            update();
        }
    }

  private:
    void update();

    std::uint32_t zeros_ = 1;
    std::uint32_t total_ = 2;
    std::uint32_t share_ = 1U << (SHARE_BITS - 1U);
    std::uint32_t cycle_ = 4;
    std::uint32_t left_ = 4;
};

}  // namespace Ovr::Formats::Laz
