// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "view/PageBytes.h"

#include <algorithm>
#include <bit>

namespace ScanHost {

namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t kGroup = 3;  // bytes that make four digits

/// @param group  one to three bytes
void addGroup(std::string_view group, std::string& text) {
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < kGroup; ++i) {
        const char byte = i < group.size() ? group[i] : '\0';
        bits = bits << 8U | static_cast<unsigned char>(byte);
    }
    for (std::size_t i = 0; i <= kGroup; ++i) {
        text += i <= group.size() ? kDigits[bits >> (18U - 6U * i) & 63U] : '=';
    }
}

}  // namespace

void PageBytes::add(double number) {
    add(std::bit_cast<std::uint64_t>(number));
}

void writeBase64(std::ostream& out, std::string_view bytes) {
    constexpr std::size_t kPiece = kGroup * 4096;  // bytes
    std::string text;
    for (std::size_t begin = 0; begin < bytes.size(); begin += kPiece) {
        const std::string_view piece = bytes.substr(begin, kPiece);
        text.clear();
        for (std::size_t i = 0; i < piece.size(); i += kGroup) {
            addGroup(piece.substr(i, kGroup), text);
        }
        out << text;
    }
}

}  // namespace ScanHost
