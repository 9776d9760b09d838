#pragma once

#include "foundation/DataParts.h"
#include "platform/defaults/SqliteDatabase.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

namespace brisklog {

/// The bytes of one data value, chunk by chunk. Whatever fails ends them and is left in the database.
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

/// Writes the bytes of one data value from a position on, at which none may be stored. Whatever fails is left
/// in the database, and what follows is dropped.
class SqliteChunkWriter {
public:
    SqliteChunkWriter(SqliteDatabase& database, std::int64_t id, std::size_t position);

    void append(std::string_view bytes);

    /// Writes what was held back; gives the value's size.
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
    /// Bytes for the next chunk that holds its bytes itself.
    std::string m_own;
    /// Base64 digits at the end of what came so far.
    std::string m_run;
};

/// The bytes of the piece; a failure when there is none.
[[nodiscard]] std::string sqlitePiece(SqliteDatabase& database, std::int64_t id);

} // namespace brisklog
