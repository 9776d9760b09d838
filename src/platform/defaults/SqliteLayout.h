#pragma once

#include <cstddef>
#include <cstdint>

namespace brisklog {

class SqliteDatabase;

/// How the user defaults are laid out in their database.
///
/// A data value's bytes are stored in chunks. A chunk's place is its value's id times 2^40 plus the position
/// of its first byte in the value, so that a value's chunks are adjacent and in order in one tree, and chunks
/// may differ in length. A chunk either holds its bytes itself or refers to a piece that holds them: a long
/// stretch of Base64, such as an image in JSON, is stored once however often and in however many values it
/// occurs.
namespace sqlite_layout {

inline constexpr int placeBits = 40;

/// The most bytes a value can have.
inline constexpr std::size_t largestSize = (std::size_t{1} << placeBits) - 1;

/// The most bytes that a chunk holds itself; with its overhead it fits into one database page.
inline constexpr std::size_t chunkSize = 4000;

inline constexpr std::size_t shortestPiece = 512;
inline constexpr std::size_t longestPiece = std::size_t{1} << 20;

/// Beyond these limits, the places of a value's chunks would overflow.
inline constexpr std::int64_t smallestId = 1;
inline constexpr std::int64_t largestId = (std::int64_t{1} << (63 - placeBits)) - 2;

constexpr std::int64_t place(std::int64_t id, std::size_t position) {
    return id * (std::int64_t{1} << placeBits) + static_cast<std::int64_t>(position);
}

/// Creates the tables in an empty database and updates those of an earlier version; fails if the database
/// contains anything else.
void prepare(SqliteDatabase& database);

} // namespace sqlite_layout
} // namespace brisklog
