#pragma once

#include "foundation/DataParts.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>
#include <string>
#include <string_view>
#include <utility>

namespace brisklog::json {

/// A document held in memory as a whole, as an input stream for the reader. Indentation and texts, which the
/// reader would otherwise take character by character, are taken in blocks.
struct DocumentStream : rapidjson::MemoryStream {
    using rapidjson::MemoryStream::MemoryStream;

    using Block = std::uint64_t;

    /// A block with the character in each byte.
    static constexpr Block each(char character) {
        return 0x0101010101010101U * static_cast<unsigned char>(character);
    }

    /// Whether any byte is less than `limit`, which is at most 0x80.
    static constexpr bool hasLess(Block block, char limit) {
        return ((block - each(limit)) & ~block & each('\x80')) != 0;
    }

    static constexpr bool has(Block block, char character) { return hasLess(block ^ each(character), 1); }

    /// Skips blocks from here on for as long as the predicate holds.
    template <class Predicate>
    void skipBlocks(Predicate isSkipped) {
        for (Block block = 0; end_ - src_ >= static_cast<std::ptrdiff_t>(sizeof block);
             src_ += sizeof block) {
            std::memcpy(&block, src_, sizeof block);
            if (!isSkipped(block))
                return;
        }
    }
};

/// A document that is read in parts, as an input stream for the reader. A text that consists of exactly one
/// repeated part is not passed to the reader character by character: the reader sees an empty text, and its
/// handler gets the real one from `takeText()`.
class PartStream {
public:
    // The reader prescribes these names.
    using Ch = char;

    explicit PartStream(DataParts& parts);

    Ch Peek() { return m_at != m_end || advance() ? *m_at : '\0'; }

    Ch Take() { return m_at != m_end || advance() ? *m_at++ : '\0'; }

    [[nodiscard]] std::size_t Tell() const {
        return m_bytesBefore + static_cast<std::size_t>(m_at - m_begin);
    }

    // Only needed for in-situ parsing.
    Ch* PutBegin() { return nullptr; }

    void Put(Ch /*character*/) {}

    void Flush() {}

    std::size_t PutEnd(Ch* /*begin*/) { return 0; }

    /// The text that the reader has just seen as an empty one; null if the reader saw the real one.
    [[nodiscard]] std::shared_ptr<const std::string> takeText() { return std::exchange(m_text, nullptr); }

    [[nodiscard]] bool isAtEnd() { return m_at == m_end && !advance(); }

    /// Skips the bytes if the document begins with them. Only before anything has been read.
    void skipAtStart(std::string_view bytes);

private:
    /// Advances to the next part that is not empty; false at the end.
    bool advance();
    void step();
    void take(const std::optional<DataPart>& part);
    void gatherBeginning(std::size_t length);
    [[nodiscard]] bool endsWithQuote() const;

    DataParts& m_parts;
    /// The first parts joined, if they are too short to tell how the document begins.
    std::string m_beginning;
    DataPart m_part;
    /// The part after a repeated one, already fetched.
    std::optional<DataPart> m_following;
    const char* m_begin = nullptr;
    const char* m_at = nullptr;
    const char* m_end = nullptr;
    std::size_t m_bytesBefore = 0;
    std::shared_ptr<const std::string> m_text;
    bool m_isAtEnd = false;
};

} // namespace brisklog::json

namespace rapidjson {

template <>
inline void SkipWhitespace(brisklog::json::DocumentStream& stream) {
    using Stream = brisklog::json::DocumentStream;
    const auto isWhitespace = [](char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; };
    while (isWhitespace(stream.Peek())) {
        stream.Take();
        stream.skipBlocks([](Stream::Block block) { return block == Stream::each(' '); });
    }
}

static_assert(RAPIDJSON_MAJOR_VERSION == 1 && RAPIDJSON_MINOR_VERSION == 1,
              "ScanCopyUnescapedString is private to the reader of RapidJSON 1.1: see what became of it.");

// Debian 12 and 13 both ship 1.1.0. Called only when the reader does not check the encoding of texts.
template <>
template <>
inline void Reader::ScanCopyUnescapedString(brisklog::json::DocumentStream& stream,
                                            Reader::StackStream<char>& text) {
    using Stream = brisklog::json::DocumentStream;
    const char* const begin = stream.src_;
    stream.skipBlocks([](Stream::Block block) {
        return !Stream::has(block, '"') && !Stream::has(block, '\\') && !Stream::hasLess(block, ' ');
    });
    const auto isPlain = [](char c) { return c != '"' && c != '\\' && static_cast<unsigned char>(c) >= ' '; };
    while (isPlain(stream.Peek()))
        stream.Take();
    const auto length = static_cast<SizeType>(stream.src_ - begin);
    std::copy_n(begin, length, static_cast<char*>(text.Push(length)));
}

} // namespace rapidjson
