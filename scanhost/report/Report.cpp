// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "report/Report.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <sstream>
#include <utility>

#include <fmt/format.h>

#include "report/NumberText.h"

namespace ScanHost {

namespace {

constexpr std::size_t kIndent = 2;
// The digits that tell every double from its neighbours.
constexpr unsigned kJsonDigits = 17;

std::string blanks(std::size_t count) {
    return std::string(count, ' ');
}

void printLines(std::ostream& out, const std::string& lines, std::size_t indent) {
    std::size_t begin = 0;
    while (begin < lines.size()) {
        const std::size_t end = std::min(lines.find('\n', begin), lines.size());
        out << blanks(indent) << printable(lines.substr(begin, end - begin)) << '\n';
        begin = end + 1;
    }
}

/// How a column is printed: text from the left, numbers from the right.
struct ColumnShape {
    std::size_t width;
    bool isText;
};

std::vector<ColumnShape> columnShapes(const Table& table) {
    std::vector<ColumnShape> shapes;
    for (std::size_t column = 0; column < table.columns.size(); ++column) {
        ColumnShape shape{table.columns[column].label.size(), !table.rows.empty()};
        for (const auto& row : table.rows) {
            shape.width = std::max(shape.width, row[column].text.size());
            shape.isText = shape.isText && row[column].value.isString();
        }
        shapes.push_back(shape);
    }
    return shapes;
}

/// @param textAt  gives the text of a column
template <typename TextAt>
void printRow(std::ostream& out, const std::vector<ColumnShape>& shapes, std::size_t indent,
              const TextAt& textAt) {
    std::string line = blanks(indent);
    for (std::size_t column = 0; column < shapes.size(); ++column) {
        const std::string& text = textAt(column);
        const std::string fill =
            blanks(shapes[column].width - std::min(shapes[column].width, text.size()));
        line += column == 0 ? "" : blanks(kIndent);
        line += shapes[column].isText ? text + fill : fill + text;
    }
    out << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
}

void printTable(std::ostream& out, const Table& table, std::size_t indent) {
    const std::vector<ColumnShape> shapes = columnShapes(table);
    printRow(
        out, shapes, indent, [&](std::size_t i) -> auto& { return table.columns[i].label; });
    for (const auto& row : table.rows) {
        printRow(
            out, shapes, indent, [&](std::size_t i) -> auto& { return row[i].text; });
    }
}

Json::Value jsonOf(const Table& table) {
    Json::Value rows(Json::arrayValue);
    for (const auto& row : table.rows) {
        Json::Value object(Json::objectValue);
        for (std::size_t column = 0; column < table.columns.size(); ++column) {
            object[table.columns[column].key] = row[column].value;
        }
        rows.append(std::move(object));
    }
    return rows;
}

void write(std::ostream& out, const Json::Value& document, const char* indentation) {
    Json::StreamWriterBuilder builder;
    builder["indentation"] = indentation;
    builder["emitUTF8"] = true;
    builder["precision"] = kJsonDigits;
    builder["precisionType"] = "significant";
    const std::unique_ptr<Json::StreamWriter> writer(builder.newStreamWriter());
    writer->write(document, &out);
}

template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

}  // namespace

Json::Value jsonNumber(double value) {
    return std::isfinite(value) ? Json::Value(value) : Json::Value();
}

Json::Value jsonPoint(const Tq_1_1::Vec3d<double>& point) {
    Json::Value array(Json::arrayValue);
    for (std::size_t i = 0; i < 3; ++i) {
        array.append(jsonNumber(point[i]));
    }
    return array;
}

void writeJson(std::ostream& out, const Json::Value& document) {
    write(out, document, "  ");
    out << '\n';
}

std::string jsonLine(const Json::Value& document) {
    std::ostringstream out;
    write(out, document, "");
    return out.str();
}

void Report::add(const std::string& key, const std::string& label, Json::Value value,
                 std::string text) {
    entries_.push_back({key, Field{label, std::move(value), std::move(text)}});
}

void Report::addText(const std::string& key, const std::string& label, const std::string& value) {
    const std::string text = printable(value);
    add(key, label, text, text);
}

void Report::addCount(const std::string& key, const std::string& label, std::uint64_t value) {
    add(key, label, Json::Value(Json::UInt64{value}), fmt::to_string(value));
}

void Report::addCountIfAny(const std::string& key, const std::string& label, std::uint64_t value) {
    if (value != 0) {
        addCount(key, label, value);
    } else {
        addHidden(key, Json::Value(Json::UInt64{0}));
    }
}

void Report::addNumber(const std::string& key, const std::string& label, double value, int digits,
                       const std::string& unit) {
    add(key, label, jsonNumber(value),
        fixedText(value, digits) + (std::isfinite(value) ? unit : ""));
}

void Report::addMetres(const std::string& key, const std::string& label, double metres) {
    addNumber(key, label, metres, kMetreDigits, " m");
}

void Report::addSeconds(const std::string& key, const std::string& label, double seconds) {
    addNumber(key, label, seconds, kSecondDigits, " s");
}

void Report::addFlag(const std::string& key, const std::string& label, bool value) {
    add(key, label, value, value ? "yes" : "no");
}

void Report::addPoint(const std::string& key, const std::string& label,
                      const Tq_1_1::Vec3d<double>& point, int digits, const std::string& unit) {
    add(key, label, jsonPoint(point), pointText(point, digits) + unit);
}

void Report::addNone(const std::string& key, const std::string& label, const std::string& reason) {
    add(key, label, Json::Value(), reason);
}

void Report::addBlock(const std::string& key, const std::string& label, Json::Value value,
                      const std::string& lines) {
    entries_.push_back({key, Block{label, std::move(value), lines}});
}

void Report::addTable(const std::string& key, const std::string& title, Table table) {
    entries_.push_back({key, TableEntry{title, std::move(table)}});
}

void Report::addHidden(const std::string& key, Json::Value value) {
    entries_.push_back({key, Field{{}, std::move(value), {}, true}});
}

Report& Report::group(const std::string& key, const std::string& title) {
    return addChild(key, title, false);
}

Report& Report::item(const std::string& key, const std::string& title) {
    return addChild(key, title, true);
}

Report& Report::addChild(const std::string& key, const std::string& title, bool inArray) {
    entries_.push_back({key, Child{children_.size(), inArray}});
    return children_.emplace_back(title);
}

std::size_t Report::labelWidth() const {
    std::size_t width = 0;
    for (const Entry& entry : entries_) {
        if (const Field* field = std::get_if<Field>(&entry.content)) {
            width = std::max(width, field->label.size());
        }
    }
    return width;
}

void Report::print(std::ostream& out, std::size_t indent) const {
    if (!title_.empty()) {
        out << blanks(indent) << printable(title_) << '\n';
        indent += kIndent;
    }
    const std::size_t width = labelWidth();
    for (const Entry& entry : entries_) {
        printEntry(out, entry, indent, width);
    }
}

void Report::printEntry(std::ostream& out, const Entry& entry, std::size_t indent,
                        std::size_t labelWidth) const {
    const auto field = [&](const Field& f) {
        if (!f.hidden) {
            out << blanks(indent) << f.label << blanks(labelWidth - f.label.size() + kIndent)
                << f.text << '\n';
        }
    };
    const auto block = [&](const Block& b) {
        out << blanks(indent) << b.label << '\n';
        printLines(out, b.lines, indent + kIndent);
    };
    const auto table = [&](const TableEntry& t) {
        if (!t.title.empty()) {
            out << blanks(indent) << t.title << '\n';
        }
        printTable(out, t.table, t.title.empty() ? indent : indent + kIndent);
    };
    const auto child = [&](const Child& c) { children_[c.index].print(out, indent); };
    std::visit(Overloaded{field, block, table, child}, entry.content);
}

Json::Value Report::json() const {
    Json::Value object(Json::objectValue);
    for (const Entry& entry : entries_) {
        Json::Value& member = object[entry.key];
        std::visit(Overloaded{[&](const Field& f) { member = f.value; },
                              [&](const Block& b) { member = b.value; },
                              [&](const TableEntry& t) { member = jsonOf(t.table); },
                              [&](const Child& c) {
                                  Json::Value value = children_[c.index].json();
                                  if (c.inArray) {
                                      member.append(std::move(value));
                                  } else {
                                      member = std::move(value);
                                  }
                              }},
                   entry.content);
    }
    return object;
}

}  // namespace ScanHost
