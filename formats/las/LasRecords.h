// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Ovr/Remarks.h"
#include "kit/InputFile.h"

namespace Ovr::Formats {

/// Users of variable-length records that the standard defines.
inline constexpr std::string_view kProjectionUser = "LASF_Projection";
inline constexpr std::string_view kSpecificationUser = "LASF_Spec";

/// The head of a variable-length record [bytes]. It ends with a description.
namespace LasVlr {
inline constexpr std::size_t kUserId = 2;
inline constexpr std::size_t kUserIdLength = 16;
inline constexpr std::size_t kRecordId = 18;
inline constexpr std::size_t kLength = 20;
inline constexpr std::size_t kHeadSize = 54;
}  // namespace LasVlr

/// Where the data of a variable-length record stand. They lie in the file.
struct LasRecord {
    std::string user;
    std::uint16_t id = 0;
    std::uint64_t begin = 0;   ///< of the data, after the record's head [bytes]
    std::uint64_t length = 0;  ///< [bytes]
    bool isExtended = false;   ///< after the points

    /// Whether it says how the points are compressed. An extended one does not.
    bool isOnCompression() const;
};

/// A chain of variable-length records in a file.
struct LasChain {
    std::uint64_t begin = 0;  ///< [bytes]
    std::uint64_t end = 0;    ///< no record reaches beyond [bytes]
    std::uint64_t count = 0;
    bool extended = false;  ///< records with a length of 64 bits, which stand after the points
};

/// Walks over a chain and keeps the records of the standard's users and those on a compression.
/// What is broken in it earns a warning and ends the walk.
void walkLasRecords(InputFile& file, const LasChain& chain, std::vector<LasRecord>& kept,
                    Remarks& remarks);

/// The last record of a user and number: a later one replaces those before it.
/// @return empty when there is none
const LasRecord* findLasRecord(const std::vector<LasRecord>& records, std::string_view user,
                               std::uint16_t id);

/// The data of a record.
/// @param record  may be empty
/// @return empty without a record, when it is longer than the longest that is sensible, and when it
///         cannot be read
std::string readLasRecord(InputFile& file, const LasRecord* record);

}  // namespace Ovr::Formats
