// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/WktTree.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <utility>

#include "kit/TextFields.h"

namespace Ovr::Formats {

namespace {

constexpr int kDeepest = 64;  // coordinate systems nest about 10 deep

class WktParser {
  public:
    explicit WktParser(std::string_view text) : text_(text) {}

    std::optional<WktNode> parse() {
        std::optional<WktNode> node = element(word(), 0);
        skipBlanks();
        return at_ == text_.size() ? node : std::nullopt;
    }

  private:
    bool isNext(std::string_view characters) {
        skipBlanks();
        return at_ < text_.size() && characters.find(text_[at_]) != std::string_view::npos;
    }

    void skipBlanks() {
        while (at_ < text_.size() && (isBlank(text_[at_]) || text_[at_] == '\n')) {
            ++at_;
        }
    }

    /// A bare word or number.
    std::string word() {
        skipBlanks();
        const std::size_t end = std::min(text_.find_first_of("[](),\"", at_), text_.size());
        const std::string_view found = trimmed(text_.substr(at_, end - at_));
        at_ = end;
        return std::string(found);
    }

    /// Requires: the next character is a quote. A quote within is written twice.
    std::optional<std::string> quoted() {
        std::string value;
        for (++at_; at_ < text_.size(); ++at_) {
            if (text_[at_] == '"') {
                ++at_;
                if (at_ == text_.size() || text_[at_] != '"') {
                    return value;
                }
            }
            value += text_[at_];
        }
        return std::nullopt;
    }

    std::optional<WktNode> element(std::string keyword, int depth) {
        if (keyword.empty() || depth > kDeepest || !isNext("[(")) {
            return std::nullopt;
        }
        WktNode node;
        node.keyword = std::move(keyword);
        std::transform(node.keyword.begin(), node.keyword.end(), node.keyword.begin(), [](char c) {
            return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        });
        const char closing = text_[at_] == '[' ? ']' : ')';
        do {
            ++at_;
            if (!part(node, depth)) {
                return std::nullopt;
            }
        } while (isNext(","));
        if (!isNext(std::string_view(&closing, 1))) {
            return std::nullopt;
        }
        ++at_;
        return node;
    }

    /// A value or an element within. @return false for neither
    bool part(WktNode& node, int depth) {
        if (isNext("\"")) {
            std::optional<std::string> value = quoted();
            if (value) {
                node.values.push_back(std::move(*value));
            }
            return value.has_value();
        }
        std::string bare = word();
        if (!isNext("[(")) {
            node.values.push_back(std::move(bare));
            return true;
        }
        std::optional<WktNode> inner = element(std::move(bare), depth + 1);
        if (inner) {
            node.nodes.push_back(std::move(*inner));
        }
        return inner.has_value();
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace

const WktNode* WktNode::find(std::initializer_list<std::string_view> keywords) const {
    for (const WktNode& node : nodes) {
        if (std::find(keywords.begin(), keywords.end(), node.keyword) != keywords.end()) {
            return &node;
        }
    }
    return nullptr;
}

std::optional<WktNode> parseWkt(std::string_view text) {
    return WktParser(text).parse();
}

}  // namespace Ovr::Formats
