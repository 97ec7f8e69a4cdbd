// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/laz/ByteStream.h"

#include <algorithm>

namespace Ovr::Formats::Laz {

std::size_t ChunkBytes::read(std::uint64_t offset, std::span<char> out) const {
    const std::uint64_t there = offset < end ? end - offset : 0;
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(out.size(), there));
    if (file != nullptr) {
        return file->readAt(offset, out.first(wanted));
    }
    std::copy_n(memory.begin() + static_cast<std::ptrdiff_t>(offset - begin), wanted, out.begin());
    return wanted;
}

ByteStream::ByteStream(const ChunkBytes& chunk, std::uint64_t begin, std::uint64_t end,
                       std::size_t window)
    : windowBegin_(std::min(begin, chunk.end)),
      end_(std::clamp(end, windowBegin_, chunk.end)),
      cut_(end > chunk.end),
      file_(chunk.file) {
    if (file_ == nullptr) {
        data_ = chunk.memory.data() + (windowBegin_ - chunk.begin);
        size_ = static_cast<std::size_t>(end_ - windowBegin_);
    } else {
        window_.resize(
            static_cast<std::size_t>(std::min<std::uint64_t>(window, end_ - windowBegin_)));
    }
}

int ByteStream::next() {
    if (at_ == size_) {
        fill();
    }
    return at_ == size_ ? -1 : static_cast<unsigned char>(data_[at_++]);
}

/// At the end of a file that has shrunk meanwhile the window stays empty.
void ByteStream::fill() {
    if (file_ == nullptr) {
        return;
    }
    windowBegin_ += size_;
    at_ = 0;
    const auto wanted =
        static_cast<std::size_t>(std::min<std::uint64_t>(window_.size(), end_ - windowBegin_));
    size_ = file_->readAt(windowBegin_, std::span(window_).first(wanted));
    data_ = window_.data();
    cut_ = cut_ || size_ < wanted;
}

}  // namespace Ovr::Formats::Laz
