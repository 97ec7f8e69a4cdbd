// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Ovr/FormatRegistry.h"

namespace Support {

/// A points format made of two functions, registered under a name, which is also its extension,
/// while the object lives.
class FakeFormat {
  public:
    struct Functions {
        std::function<Ovr::ErrorPtr(const Ovr::LoadTarget&, Ovr::StatisticsReport&)> loadPoints;
        std::function<Ovr::ErrorPtr(const Ovr::TimeTarget&)> loadTimes;
    };

    FakeFormat(std::string name, Functions functions)
        : name_(std::move(name)),
          registered_(Ovr::FormatRegistry::the().add(
              std::make_shared<Format>(name_, std::move(functions)))) {}
    FakeFormat(const FakeFormat&) = delete;
    FakeFormat& operator=(const FakeFormat&) = delete;
    ~FakeFormat() { Ovr::FormatRegistry::the().remove(name_); }

    bool isRegistered() const { return registered_; }

  private:
    class Reader final : public Ovr::IScanReader {
      public:
        Reader(const Ovr::ScanSource& source, Functions functions)
            : IScanReader(source), functions_(std::move(functions)) {}

        Ovr::ErrorPtr loadPoints(const Ovr::LoadTarget& target,
                                 Ovr::StatisticsReport& statistics) override {
            return functions_.loadPoints ? functions_.loadPoints(target, statistics) : nullptr;
        }
        Ovr::ErrorPtr loadTimes(const Ovr::TimeTarget& target) override {
            return functions_.loadTimes ? functions_.loadTimes(target)
                                        : IScanReader::loadTimes(target);
        }

      private:
        Functions functions_;
    };

    class Format final : public Ovr::IScanFormat {
      public:
        Format(std::string name, Functions functions)
            : name_(std::move(name)), functions_(std::move(functions)) {}

        std::string name() const override { return name_; }
        std::vector<std::string> extensions() const override { return {name_}; }
        std::string classIdentifier() const override { return {}; }
        bool recognises(std::string_view /*beginning*/) const override { return false; }
        std::unique_ptr<Ovr::IScanReader> makeReader(const Ovr::ScanSource& source) const override {
            return std::make_unique<Reader>(source, functions_);
        }

      private:
        std::string name_;
        Functions functions_;
    };

    std::string name_;
    bool registered_;
};

}  // namespace Support
