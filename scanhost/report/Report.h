// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <deque>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include <json/json.h>

#include "Tq/Vec3d.h"

namespace ScanHost {

/// A number as JSON; null for what is no finite number, which JSON cannot hold.
Json::Value jsonNumber(double value);
/// An array of three numbers.
Json::Value jsonPoint(const Tq_1_1::Vec3d<double>& point);
/// Writes one document, readable, with every digit that a double has, and a line end.
void writeJson(std::ostream& out, const Json::Value& document);
/// The same document in one line, without a line end.
std::string jsonLine(const Json::Value& document);

/// Rows of values under common column names.
struct Table {
    struct Column {
        std::string key;    ///< member of a row's JSON object
        std::string label;  ///< above the column
    };
    struct Cell {
        Json::Value value;
        std::string text;
    };

    std::vector<Column> columns;
    std::vector<std::vector<Cell>> rows;  ///< each as long as columns
};

/// What a command found out: one tree, printed as text for people or as JSON for programs, so that
/// both say the same. Entries keep their order in the text.
class Report {
  public:
    explicit Report(std::string title = {}) : title_(std::move(title)) {}

    /// @param value  for JSON
    /// @param text   for people, unit included
    void add(const std::string& key, const std::string& label, Json::Value value, std::string text);
    /// The value is made printable.
    void addText(const std::string& key, const std::string& label, const std::string& value);
    void addCount(const std::string& key, const std::string& label, std::uint64_t value);
    /// A count that people see only when it is not 0.
    void addCountIfAny(const std::string& key, const std::string& label, std::uint64_t value);
    /// @param unit  follows the number in the text, for example " m"; JSON has the number alone
    void addNumber(const std::string& key, const std::string& label, double value, int digits,
                   const std::string& unit);
    /// A length [m] or a time [s], with the digits that it has everywhere.
    void addMetres(const std::string& key, const std::string& label, double metres);
    void addSeconds(const std::string& key, const std::string& label, double seconds);
    /// "yes" or "no" in the text.
    void addFlag(const std::string& key, const std::string& label, bool value);
    void addPoint(const std::string& key, const std::string& label,
                  const Tq_1_1::Vec3d<double>& point, int digits, const std::string& unit);
    /// A value that is not there: null in JSON.
    void addNone(const std::string& key, const std::string& label, const std::string& reason);
    /// A text of several lines, shown indented below its label.
    void addBlock(const std::string& key, const std::string& label, Json::Value value,
                  const std::string& lines);
    /// @param title  stands above the table; may be empty
    void addTable(const std::string& key, const std::string& title, Table table);
    /// A value that only programs need.
    void addHidden(const std::string& key, Json::Value value);

    /// An object within this one. The reference stays valid while this report lives.
    Report& group(const std::string& key, const std::string& title);
    /// The next element of an array of objects.
    Report& item(const std::string& key, const std::string& title);

    void print(std::ostream& out) const { print(out, 0); }
    Json::Value json() const;

  private:
    struct Field {
        std::string label;
        Json::Value value;
        std::string text;
        bool hidden = false;
    };
    struct Block {
        std::string label;
        Json::Value value;
        std::string lines;
    };
    struct TableEntry {
        std::string title;
        Table table;
    };
    struct Child {
        std::size_t index;  ///< in children_
        bool inArray;
    };
    struct Entry {
        std::string key;
        std::variant<Field, Block, TableEntry, Child> content;
    };

    void print(std::ostream& out, std::size_t indent) const;
    void printEntry(std::ostream& out, const Entry& entry, std::size_t indent,
                    std::size_t labelWidth) const;
    std::size_t labelWidth() const;
    Report& addChild(const std::string& key, const std::string& title, bool inArray);

    std::string title_;
    std::vector<Entry> entries_;
    std::deque<Report> children_;
};

}  // namespace ScanHost
