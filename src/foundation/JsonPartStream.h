#pragma once

#include "foundation/DataParts.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace brisklog::json {

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
