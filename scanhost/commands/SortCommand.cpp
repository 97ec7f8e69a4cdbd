// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <map>
#include <span>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "Ovr/FormatRegistry.h"
#include "Tq/Path.h"
#include "kit/PointClock.h"
#include "las/LasReorder.h"

#include "commands/CommandList.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/Interrupt.h"
#include "session/OutputRules.h"
#include "session/ProjectImport.h"
#include "session/Require.h"
#include "session/SpooledInput.h"
#include "session/TimeOrder.h"

namespace ScanHost {

namespace {

/// Spans of TimeOrder::kLongestSpan that points may lie in. Points of one scan lie in a few of
/// them; times in a smaller unit than was said lie in very many.
constexpr std::size_t kMostSpans = 1000;

/// The points of a file by the spans of time that they lie in. The module holds the times of one
/// span at a time; nearly every scan has one only.
struct Spans {
    Ovr::Formats::TimeRange range;                 ///< [s], the file's clock
    std::map<std::int64_t, std::uint64_t> counts;  ///< points by number of the span
    std::uint64_t withoutTime = 0;                 ///< points whose time is no finite number

    std::int64_t spanOf(double seconds) const {
        return static_cast<std::int64_t>((seconds - range.first) / TimeOrder::kLongestSpan);
    }
    double withinSpan(double seconds) const {
        return std::max(0.0, seconds - range.first -
                                 static_cast<double>(spanOf(seconds)) * TimeOrder::kLongestSpan);
    }
};

class SortCommand final : public Command {
  public:
    std::string name() const override { return "sort"; }
    std::string summary() const override {
        return "Write a LAS file again with its points in the order of their times";
    }
    void declare(Options& options) override {
        declareScanFile(options, scan_);
        declareScanNumber(options, scan_);
        declareTimeUnit(options, scan_);
        options
            .file("-o,--output", output_, "OUT.las", "File to write; compressed if it ends in .laz")
            .required();
        declareForce(options, rules_);
    }
    void run(const CommonOptions& /*common*/, Console& console) override {
        const OutputFile output{output_, {".las", ".laz"}};
        const auto spooled = spoolInput(scan_, console);
        rules_.protect(scan_);
        rules_.check(output);
        ModuleSession session;
        const Ovr::ScanListing scan = findOne(session, console, scan_);
        name_ = scan.name;
        source_ = scan.source;
        rules_.protect(source_.file);
        rules_.check(output);
        requireLas();
        work_ = {console.progress().get(), &interrupt_};
        open(console);
        const Spans spans = findSpans(console);
        std::vector<std::uint32_t> order(file_.count());
        const std::uint64_t sharing = findOrder(session, spans, order, console);
        {
            const ProgressTask task(console.progress(), output_.string() + ": writing points");
            requireOk(file_.write(output_, rules_.existing(),
                                  Tq_1_1::lowerCaseExtension(output_) == "laz", order, work_));
        }
        describe(spans, sharing, console);
    }

  private:
    void requireLas() const {
        const auto format = Ovr::FormatRegistry::the().find(source_.file);
        if (!format || format->name() != "LAS") {
            throw unexpected(source_.file.string(),
                             fmt::format("a {} file, whose points carry no time",
                                         format ? format->name() : "foreign"),
                             "a LAS file");
        }
    }

    void open(Console& console) {
        Ovr::Remarks remarks;
        const ProgressTask task(console.progress(), source_.file.string() + ": opening");
        requireOk(file_.open(source_.file, scan_.lenient, remarks, work_));
        console.warn(remarks.warnings());
    }

    double secondsOf(double time) const { return time / Ovr::unitsPerSecond(source_.clock.unit); }

    /// Reads all times twice: what spans there are is known when the earliest time is.
    Spans findSpans(Console& console) {
        const ProgressTask task(console.progress(), source_.file.string() + ": reading times");
        Spans spans;
        requireOk(file_.visitTimes(
            [&](std::uint32_t, std::span<const double> times) {
                for (const double time : times) {
                    if (std::isfinite(time)) {
                        spans.range.add(secondsOf(time));
                    } else {
                        ++spans.withoutTime;
                    }
                }
            },
            work_));
        if (spans.withoutTime > 0) {
            console.warn(
                fmt::format("{}: {} of {} with a time that is no finite number; they go to the end",
                            source_.file.string(), spans.withoutTime,
                            countText(file_.count(), "point", "points")));
        }
        countSpans(spans);
        return spans;
    }

    void countSpans(Spans& spans) {
        const double span = spans.range.last - spans.range.first;
        if (span < TimeOrder::kLongestSpan) {
            spans.counts[0] = file_.count() - spans.withoutTime;
            return;
        }
        if (!(span / TimeOrder::kLongestSpan < 1e15)) {
            throw tooWide(span);
        }
        requireOk(file_.visitTimes(
            [&](std::uint32_t, std::span<const double> times) {
                for (const double time : times) {
                    if (std::isfinite(time) && spans.counts.size() <= kMostSpans) {
                        ++spans.counts[spans.spanOf(secondsOf(time))];
                    }
                }
            },
            work_));
        if (spans.counts.size() > kMostSpans) {
            throw tooWide(span);
        }
    }

    Failure tooWide(double span) const {
        return unexpected(source_.file.string(),
                          fmt::format("times spread over {} s", shortText(span)),
                          "the times of a walk; see --time-unit");
    }

    /// Finds the order of the points in time.
    /// @param order  out: their numbers in that order
    /// @return how many share their time
    std::uint64_t findOrder(const ModuleSession& session, const Spans& spans,
                            std::span<std::uint32_t> order, Console& console) {
        const ProgressTask task(console.progress(), source_.file.string() + ": sorting");
        TimeOrder points(session);
        std::uint64_t sharing = 0;
        for (const auto& [span, count] : spans.counts) {
            points.begin(count);
            requireOk(file_.visitTimes(
                [&, span = span](std::uint32_t first, std::span<const double> times) {
                    addSpan(points, spans, span, first, times);
                },
                work_));
            sharing += points.finish(order.first(static_cast<std::size_t>(count)));
            order = order.subspan(static_cast<std::size_t>(count));
            Interrupt::check();
        }
        if (spans.withoutTime > 0) {
            auto next = order.begin();
            requireOk(file_.visitTimes(
                [&](std::uint32_t first, std::span<const double> times) {
                    for (std::uint32_t i = 0; i < times.size(); ++i) {
                        if (!std::isfinite(times[i]) && next != order.end()) {
                            *next++ = first + i;
                        }
                    }
                },
                work_));
        }
        return sharing;
    }

    /// Adds those of some points that lie in a span.
    void addSpan(TimeOrder& points, const Spans& spans, std::int64_t span, std::uint32_t first,
                 std::span<const double> times) const {
        for (std::uint32_t i = 0; i < times.size(); ++i) {
            const double seconds = secondsOf(times[i]);
            if (std::isfinite(times[i]) && spans.spanOf(seconds) == span) {
                points.add(first + i, spans.withinSpan(seconds));
            }
        }
    }

    void describe(const Spans& spans, std::uint64_t sharing, Console& console) const {
        Report report(name_);
        report.addHidden("scan", printable(name_));
        report.addText("file", "written to", output_.string());
        report.addCount("points", "points", file_.count());
        report.addCount("sharingTime", "sharing their time with another", sharing);
        if (spans.range.empty) {
            report.addNone("timeZero", "earliest time in the file", "none");
        } else {
            report.addSeconds("timeZero", "earliest time in the file", spans.range.first);
        }
        report.addText(
            "order", "order",
            "by time, to the microsecond; points of one time keep their order" +
                std::string(scan_.lenient ? "" : "; nothing else in the file has changed"));
        console.show(report);
    }

    ScanOptions scan_;
    OutputRules rules_;
    std::filesystem::path output_;
    std::string name_;
    Ovr::ScanSource source_;
    Ovr::Formats::LasReorder file_;
    Interrupt interrupt_;
    Ovr::DataStructures::Work work_;
};

}  // namespace

std::unique_ptr<Command> makeSortCommand() {
    return std::make_unique<SortCommand>();
}

}  // namespace ScanHost
