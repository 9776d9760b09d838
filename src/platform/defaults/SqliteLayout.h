#pragma once

#include <cstddef>
#include <cstdint>

namespace brisklog {

class SqliteDatabase;

/// How the user defaults lie in their database.
///
/// A data value's bytes lie in chunks. A chunk's place is its value's id times 2^40 plus the position of its
/// first byte in the value, so that a value's chunks lie side by side and in order in one tree, and chunks
/// need not all be of one length. A chunk holds its bytes itself or names a piece that holds them: a long
/// stretch of Base64, as images in JSON are, is kept once however often and in however many values it stands.
namespace sqlite_layout {

inline constexpr int placeBits = 40;

/// More bytes than this no value can have.
inline constexpr std::size_t largestSize = (std::size_t{1} << placeBits) - 1;

/// As many bytes as a chunk holds itself fit into one page of the database beside what comes with them.
inline constexpr std::size_t chunkSize = 4000;

inline constexpr std::size_t shortestPiece = 512;
inline constexpr std::size_t longestPiece = std::size_t{1} << 20;

/// Beyond these, a value's chunks would have no place.
inline constexpr std::int64_t smallestId = 1;
inline constexpr std::int64_t largestId = (std::int64_t{1} << (63 - placeBits)) - 2;

constexpr std::int64_t place(std::int64_t id, std::size_t position) {
    return id * (std::int64_t{1} << placeBits) + static_cast<std::int64_t>(position);
}

/// Makes the tables in an empty database, brings those of an earlier version up to date; a database that
/// holds anything else is a failure.
void prepare(SqliteDatabase& database);

} // namespace sqlite_layout
} // namespace brisklog
