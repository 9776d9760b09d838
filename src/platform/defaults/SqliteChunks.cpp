#include "platform/defaults/SqliteChunks.h"

#include "platform/defaults/SqliteLayout.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <sqlite3.h>

namespace brisklog {
namespace {

using namespace sqlite_layout;

constexpr std::int64_t noPiece = 0;

/// The most memory that a reader uses for cached pieces.
constexpr std::size_t mostBytesAtHand = std::size_t{1} << 22;

constexpr std::array<bool, 256> makeDigits() {
    std::array<bool, 256> digits{};
    for (const char digit : "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/=")
        digits[static_cast<unsigned char>(digit)] = digit != 0;
    return digits;
}

constexpr auto base64Digits = makeDigits();

bool isDigit(char character) { return base64Digits[static_cast<unsigned char>(character)]; }

/// The length of the leading run of digits, or of other bytes.
std::size_t stretch(std::string_view bytes, bool ofDigits) {
    return static_cast<std::size_t>(std::ranges::find(bytes, !ofDigits, isDigit) - bytes.begin());
}

/// Stored in the database, so it must never change.
std::int64_t contentHash(std::string_view bytes) {
    constexpr std::uint64_t multiplier = 0x9E3779B97F4A7C15;
    std::uint64_t hash = bytes.size();
    while (!bytes.empty()) {
        std::uint64_t block = 0;
        const std::size_t length = std::min(bytes.size(), sizeof block);
        std::memcpy(&block, bytes.data(), length);
        hash = (hash ^ block) * multiplier;
        hash ^= hash >> 32;
        bytes.remove_prefix(length);
    }
    return static_cast<std::int64_t>(hash);
}

} // namespace

std::string sqlitePiece(SqliteDatabase& database, std::int64_t id) {
    SqliteQuery query = database.query("SELECT bytes FROM piece WHERE id = ?1");
    if (query.bindInteger(1, id).next())
        return std::string(query.bytes(0));
    database.failAsCorrupt("a value without its bytes");
    return {};
}

SqliteChunkReader::SqliteChunkReader(SqliteDatabase& database, std::int64_t id, std::size_t size)
    : m_database(database), m_id(id), m_size(size),
      m_chunks(database.query("SELECT place, bytes, piece FROM chunk WHERE place >= ?1 AND place < ?2"
                              " ORDER BY place")) {
    m_chunks.bindInteger(1, place(id, 0)).bindInteger(2, place(id + 1, 0));
}

std::optional<DataPart> SqliteChunkReader::next() {
    // A finished statement would start over.
    const bool isThere = !m_isAtEnd && m_chunks.next();
    m_isAtEnd = !isThere;
    DataPart part;
    if (isThere && m_chunks.kind(2) == SqliteQuery::Kind::integer)
        part.repeated = piece(m_chunks.integer(2));
    if (isThere)
        part.bytes = part.repeated ? *part.repeated : m_chunks.bytes(1);
    const bool isInPlace = isThere ? m_chunks.integer(0) == place(m_id, m_position) : m_position == m_size;
    m_position += part.bytes.size();
    if (!isInPlace || m_position > m_size)
        m_database.failAsCorrupt("a value that is not of its length");
    return isThere && !m_database.hasFailed() ? std::optional(part) : std::nullopt;
}

std::shared_ptr<const std::string> SqliteChunkReader::piece(std::int64_t id) {
    if (const auto found = m_pieces.find(id); found != m_pieces.end())
        return found->second;
    auto piece = std::make_shared<const std::string>(sqlitePiece(m_database, id));
    m_bytesInPieces += piece->size();
    if (m_bytesInPieces > mostBytesAtHand) {
        m_pieces.clear();
        m_bytesInPieces = piece->size();
    }
    m_pieces.emplace(id, piece);
    return piece;
}

SqliteChunkWriter::SqliteChunkWriter(SqliteDatabase& database, std::int64_t id, std::size_t position)
    : m_database(database), m_id(id), m_position(position) {}

void SqliteChunkWriter::append(std::string_view bytes) {
    while (!bytes.empty() && !m_database.hasFailed()) {
        const std::size_t digits = stretch(bytes, true);
        m_run += bytes.substr(0, digits);
        bytes.remove_prefix(digits);
        if (bytes.empty() && m_run.size() < longestPiece)
            return;
        endRun();
        const std::size_t others = stretch(bytes, false);
        add(bytes.substr(0, others));
        bytes.remove_prefix(others);
    }
}

std::size_t SqliteChunkWriter::finish() {
    endRun();
    writeOwn();
    return m_position;
}

void SqliteChunkWriter::endRun() {
    if (m_run.size() < shortestPiece) {
        add(m_run);
    } else {
        writeOwn();
        for (std::size_t at = 0; at < m_run.size(); at += longestPiece) {
            const auto piece = std::string_view(m_run).substr(at, longestPiece);
            writeChunk(piece, pieceWith(piece));
        }
    }
    m_run.clear();
}

void SqliteChunkWriter::add(std::string_view bytes) {
    while (!bytes.empty() && !m_database.hasFailed()) {
        const std::string_view fitting = bytes.substr(0, chunkSize - m_own.size());
        m_own += fitting;
        bytes.remove_prefix(fitting.size());
        if (m_own.size() == chunkSize)
            writeOwn();
    }
}

void SqliteChunkWriter::writeOwn() {
    if (!m_own.empty())
        writeChunk(m_own, noPiece);
    m_own.clear();
}

std::int64_t SqliteChunkWriter::pieceWith(std::string_view bytes) {
    const std::int64_t hash = contentHash(bytes);
    SqliteQuery found = m_database.query("SELECT id FROM piece WHERE hash = ?1 AND bytes = ?2");
    if (found.bindInteger(1, hash).bindBytes(2, bytes).next())
        return found.integer(0);
    SqliteQuery made = m_database.query("INSERT INTO piece (hash, bytes) VALUES (?1, ?2) RETURNING id");
    return made.bindInteger(1, hash).bindBytes(2, bytes).next() ? made.integer(0) : noPiece;
}

void SqliteChunkWriter::writeChunk(std::string_view bytes, std::int64_t piece) {
    if (bytes.size() > largestSize - m_position)
        m_database.fail({SQLITE_TOOBIG, 0, "more bytes than a value can have"});
    const bool isOwn = piece == noPiece;
    SqliteQuery query =
        m_database.query(isOwn ? "INSERT INTO chunk (place, bytes) VALUES (?1, ?2)"
                               : "INSERT INTO chunk (place, bytes, piece) VALUES (?1, ?2, ?3)");
    query.bindInteger(1, place(m_id, m_position)).bindBytes(2, isOwn ? bytes : std::string_view());
    if (!isOwn)
        query.bindInteger(3, piece);
    query.run();
    m_position += bytes.size();
}

} // namespace brisklog
