// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/DescriptorStream.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace Ovr::Formats {

namespace {

constexpr std::size_t kBufferSize = std::size_t{64} << 10;  // [bytes]

}  // namespace

DescriptorStream::DescriptorStream() : std::ostream(nullptr) {
    init(&buffer_);
    setstate(badbit);  // until there is a file
}

DescriptorStream::~DescriptorStream() {
    if (buffer_.descriptor >= 0) {
        ::close(buffer_.descriptor);
    }
}

void DescriptorStream::attach(int descriptor) {
    buffer_.descriptor = descriptor;
    buffer_.space.resize(kBufferSize);
    buffer_.empty();
    clear();
}

int DescriptorStream::finish() {
    flush();
    if (!*this && buffer_.failure == 0) {
        buffer_.failure = EIO;  // whoever wrote has given up
    }
    if (buffer_.failure == 0 && ::fsync(buffer_.descriptor) != 0) {
        buffer_.failure = errno;
    }
    if (::close(buffer_.descriptor) != 0 && buffer_.failure == 0) {
        buffer_.failure = errno;
    }
    buffer_.descriptor = -1;
    setstate(badbit);
    return buffer_.failure;
}

/// Writes what is in the buffer and makes room for more.
bool DescriptorStream::Buffer::empty() {
    const bool written = write(pbase(), static_cast<std::size_t>(pptr() - pbase()));
    setp(space.data(), space.data() + space.size());
    return written;
}

bool DescriptorStream::Buffer::write(const char* text, std::size_t count) {
    while (count > 0 && failure == 0) {
        const ssize_t written = ::write(descriptor, text, count);
        if (written >= 0) {
            text += written;
            count -= static_cast<std::size_t>(written);
        } else if (errno != EINTR) {
            failure = errno;
        }
    }
    return failure == 0;
}

std::streambuf::int_type DescriptorStream::Buffer::overflow(int_type character) {
    if (descriptor < 0 || !empty()) {
        return traits_type::eof();
    }
    if (!traits_type::eq_int_type(character, traits_type::eof())) {
        *pptr() = traits_type::to_char_type(character);
        pbump(1);
    }
    return traits_type::not_eof(character);
}

std::streamsize DescriptorStream::Buffer::xsputn(const char* text, std::streamsize count) {
    const auto size = static_cast<std::size_t>(count);
    if (size <= static_cast<std::size_t>(epptr() - pptr())) {
        std::memcpy(pptr(), text, size);
        pbump(static_cast<int>(count));
        return count;
    }
    // A large piece goes past the buffer: copying it there would only cost time.
    return descriptor >= 0 && empty() && write(text, size) ? count : 0;
}

int DescriptorStream::Buffer::sync() {
    return descriptor >= 0 && empty() ? 0 : -1;
}

std::streambuf::pos_type DescriptorStream::Buffer::seekpos(pos_type place,
                                                           std::ios_base::openmode /*which*/) {
    if (sync() != 0 || ::lseek(descriptor, static_cast<off_t>(place), SEEK_SET) < 0) {
        return pos_type(off_type(-1));
    }
    return place;
}

}  // namespace Ovr::Formats
