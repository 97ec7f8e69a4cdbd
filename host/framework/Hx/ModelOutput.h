// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <ostream>

#include "HostExport.h"
#include "Tq/String.h"

namespace Hx {

/// How values are written into the project output.
struct OutputFormat {
    int indent = 2;  ///< blanks per level
};

/// What the writers of one project output share.
class HOST_EXPORT WriteContextBase {
  public:
    explicit WriteContextBase(const OutputFormat& format = {}) : format_(format) {}
    virtual ~WriteContextBase();

    const OutputFormat& getFormat() const { return format_; }
    int depth = 0;  ///< open scopes and values

  private:
    OutputFormat format_;
};

/// Writes named values as text: NAME = CONTENT, one per line, indented by depth.
class HOST_EXPORT ModelOutFormat {
  public:
    ModelOutFormat(std::ostream& out, WriteContextBase& context) : out_(out), context_(context) {}

    void startValue(const Tq_1_1::String& name);
    void endValue();

  private:
    std::ostream& out_;
    WriteContextBase& context_;
};

/// A stretch of the project output. Ends with the object or with close(), and gives the context the
/// depth that it had before, also when a value was left half written by an exception.
class HOST_EXPORT WriteToScope {
  public:
    /// Requires: @p context is not empty.
    WriteToScope(std::ostream& out, std::shared_ptr<WriteContextBase> context);
    WriteToScope(const WriteToScope&) = delete;
    WriteToScope& operator=(const WriteToScope&) = delete;
    ~WriteToScope();

    ModelOutFormat& getMof() { return mof_; }
    const std::shared_ptr<WriteContextBase>& getWriteContext() const { return context_; }
    void close();

  private:
    std::shared_ptr<WriteContextBase> context_;
    ModelOutFormat mof_;
    int depthBefore_;
    bool open_ = true;
};

/// Writes the content of one value.
template <typename T>
class DataOutFormat;

/// Text in double quotes, UTF-8, with \\ before quotes and backslashes, control characters as
/// \\uXXXX; a null string is written as null.
template <>
class HOST_EXPORT DataOutFormat<Tq_1_1::String> {
  public:
    DataOutFormat(std::ostream& out, const OutputFormat& /*format*/) : out_(out) {}

    void put(const Tq_1_1::String& value);

  private:
    std::ostream& out_;
};

}  // namespace Hx
