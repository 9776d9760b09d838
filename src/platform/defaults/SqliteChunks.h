#pragma once

#include "foundation/DataParts.h"
#include "platform/defaults/SqliteDatabase.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

namespace brisklog {

/// The bytes of one data value, chunk by chunk. A failure ends them and is kept in the database object.
class SqliteChunkReader final : public DataParts {
public:
    SqliteChunkReader(SqliteDatabase& database, std::int64_t id, std::size_t size);

    [[nodiscard]] std::optional<DataPart> next() override;

private:
    [[nodiscard]] std::shared_ptr<const std::string> piece(std::int64_t id);

    SqliteDatabase& m_database;
    std::int64_t m_id;
    std::size_t m_size;
    std::size_t m_position = 0;
    bool m_isAtEnd = false;
    SqliteQuery m_chunks;
    std::unordered_map<std::int64_t, std::shared_ptr<const std::string>> m_pieces;
    std::size_t m_bytesInPieces = 0;
};

/// Writes the bytes of one data value from a position on; nothing may be stored there yet. A failure is kept
/// in the database object, and everything after it is dropped.
class SqliteChunkWriter {
public:
    SqliteChunkWriter(SqliteDatabase& database, std::int64_t id, std::size_t position);

    void append(std::string_view bytes);

    /// Writes what is still buffered; returns the value's size.
    [[nodiscard]] std::size_t finish();

private:
    void endRun();
    void add(std::string_view bytes);
    void writeOwn();
    [[nodiscard]] std::int64_t pieceWith(std::string_view bytes);
    void writeChunk(std::string_view bytes, std::int64_t piece);

    SqliteDatabase& m_database;
    std::int64_t m_id;
    /// Where in the value `m_own` begins.
    std::size_t m_position;
    /// Bytes of the next chunk that holds its own bytes.
    std::string m_own;
    /// The trailing Base64 digits of what has been appended so far.
    std::string m_run;
};

/// The bytes of the piece; a failure when there is none.
[[nodiscard]] std::string sqlitePiece(SqliteDatabase& database, std::int64_t id);

} // namespace brisklog
