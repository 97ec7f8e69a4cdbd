// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "ptx/PtxBlocks.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace Ovr::Formats {

namespace {

/// A block of text and its points stay in the cache of a core.
constexpr std::size_t kBlockSize = std::size_t{256} << 10;
/// The calling thread puts points into the records while the others parse: about a fifth of the
/// work.
constexpr unsigned kMostThreads = 6;
/// Blocks more than threads, so that a thread finds its next one ready.
constexpr std::size_t kAhead = 2;

}  // namespace

PtxSharing usualPtxSharing() {
    const unsigned cores = std::thread::hardware_concurrency();
    return {cores < 2 ? 0 : std::min(cores, kMostThreads), kBlockSize};
}

PtxBlocks::PtxBlocks(TextLines& lines, const PtxPointParser& parser, std::uint64_t cells,
                     const PtxSharing& sharing)
    : lines_(lines), parser_(parser), left_(cells), sharing_(sharing) {}

PtxBlock* PtxBlocks::next() {
    while ((!queue_ || queue_->size() < atOnce_) && left_ != 0 && give()) {
    }
    if (!queue_ || queue_->size() == 0) {
        return nullptr;
    }
    current_ = queue_->take();
    return current_.get();
}

/// Reads lines and gives them to the queue, in the block that was used last.
/// @return false when there are no more
bool PtxBlocks::give() {
    auto block = current_ ? std::move(current_) : std::make_unique<PtxBlock>();
    if (!lines_.nextBlock(block->lines, sharing_.blockSize, left_)) {
        left_ = 0;
        return false;
    }
    left_ -= block->lines.count;
    if (block->points.size() < block->lines.count) {
        block->points.resize(static_cast<std::size_t>(block->lines.count));
    }
    if (!queue_) {
        const unsigned threads = left_ == 0 ? 0 : sharing_.threads;
        atOnce_ = threads == 0 ? 1 : threads + kAhead;
        queue_.emplace(threads, [this](PtxBlock& given) { read(given); });
    }
    queue_->give(std::move(block));
    return true;
}

void PtxBlocks::read(PtxBlock& block) const {
    LineWalk walk(lines_.fileName(), block.lines.text, block.lines.firstLine);
    block.findings = {};
    block.error = nullptr;
    for (block.count = 0; block.count < block.lines.count && walk.next(); ++block.count) {
        block.error = parser_.parse(walk.line(), block.points[block.count], block.findings);
        if (block.error) {
            block.errorOffset = block.lines.offset + walk.begin();
            block.errorLine = walk.line().number;
            return;
        }
    }
}

}  // namespace Ovr::Formats
