// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "view/PageWriter.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include <fmt/format.h>

#include "report/Report.h"
#include "view/PageFiles.h"

namespace ScanHost {

namespace {

constexpr std::string_view kFrame = "page.html";
constexpr std::string_view kStyleMark = "<!-- style -->";
constexpr std::string_view kContentMark = "<!-- content -->";
// In the order in which they use each other.
constexpr std::array<std::string_view, 17> kScripts{
    "three.min.js", "OrbitControls.js", "text.js",    "data.js", "path.js",     "colors.js",
    "drawing.js",   "scene.js",         "markers.js", "pick.js", "panorama.js", "times.js",
    "timeline.js",  "panel.js",         "page.js",    "keys.js", "start.js"};

std::string_view fileText(std::string_view name) {
    for (const PageFile& file : pageFiles()) {
        if (file.name == name) {
            return file.text;
        }
    }
    throw std::logic_error(fmt::format("the program carries no file {}", name));
}

/// The frame before, between and after its marks.
struct Frame {
    std::string_view head;
    std::string_view body;
    std::string_view tail;
};

Frame frame() {
    const std::string_view text = fileText(kFrame);
    const std::size_t style = text.find(kStyleMark);
    const std::size_t content = text.find(kContentMark);
    const std::size_t body = style + kStyleMark.size();
    return {text.substr(0, style), text.substr(body, content - body),
            text.substr(content + kContentMark.size())};
}

}  // namespace

PageWriter::PageWriter(std::ostream& out) : out_(out) {
    write(frame().head);
    write("<style>\n");
    write(fileText("page.css"));
    write("</style>");
    write(frame().body);
    write("<template id=\"licence\">");
    write(fileText("three-licence.txt"));
    write("</template>\n");
}

unsigned PageWriter::addBlock(const PageBytes& block) {
    const std::string begin = fmt::format("<script type=\"text/plain\" id=\"block-{}\">", blocks_);
    constexpr std::string_view kEnd = "</script>\n";
    write(begin);
    writeBase64(out_, block.bytes());
    write(kEnd);
    blockLength_ += begin.size() + base64Length(block.bytes().size()) + kEnd.size();
    return blocks_++;
}

std::uint64_t PageWriter::length() const {
    std::uint64_t length = blockLength_;
    for (const PageFile& file : pageFiles()) {
        length += file.text.size();
    }
    return length;
}

void PageWriter::finish(const Json::Value& description) {
    write("<script type=\"application/json\" id=\"description\">");
    write(scriptJson(description));
    write("</script>\n");
    for (const std::string_view name : kScripts) {
        writeScript(name);
    }
    write(frame().tail);
}

void PageWriter::write(std::string_view text) {
    out_.write(text.data(), static_cast<std::streamsize>(text.size()));
}

void PageWriter::writeScript(std::string_view name) {
    write("<script>\n");
    write(fileText(name));
    write("</script>\n");
}

std::string scriptJson(const Json::Value& value) {
    std::string text;
    for (const char c : jsonLine(value)) {
        if (c == '<') {
            text += "\\u003c";
        } else {
            text += c;
        }
    }
    return text;
}

}  // namespace ScanHost
