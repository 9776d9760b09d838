#include "foundation/JsonStreams.h"

namespace brisklog::json {

PartStream::PartStream(DataParts& parts) : m_parts(parts) { take(m_parts.next()); }

void PartStream::skipAtStart(std::string_view bytes) {
    gatherBeginning(bytes.size());
    if (std::string_view(m_at, m_end).starts_with(bytes))
        m_at += bytes.size();
}

/// Makes the first part at least `length` bytes long, unless the whole document is shorter.
void PartStream::gatherBeginning(std::size_t length) {
    if (m_isAtEnd || m_part.bytes.size() >= length)
        return;
    m_beginning = m_part.bytes;
    while (m_beginning.size() < length) {
        const auto part = m_parts.next();
        if (!part)
            break;
        m_beginning += part->repeated ? *part->repeated : part->bytes;
    }
    take(DataPart{m_beginning, nullptr});
}

// Deliberately not inline: what happens once per part is kept out of what happens for every character.
bool PartStream::advance() {
    while (m_at == m_end && !m_isAtEnd)
        step();
    return m_at != m_end;
}

void PartStream::step() {
    m_bytesBefore += m_part.bytes.size();
    const bool isAfterQuote = endsWithQuote();
    take(m_following ? std::exchange(m_following, std::nullopt) : m_parts.next());
    if (!isAfterQuote || !m_part.repeated)
        return;
    m_following = m_parts.next();
    if (!m_following || !m_following->bytes.starts_with('"'))
        return;
    m_text = m_part.repeated;
    m_bytesBefore += m_part.bytes.size();
    take(std::exchange(m_following, std::nullopt));
}

void PartStream::take(const std::optional<DataPart>& part) {
    m_isAtEnd = !part;
    m_part = part.value_or(DataPart());
    if (m_part.repeated)
        m_part.bytes = *m_part.repeated;
    m_begin = m_at = m_part.bytes.data();
    m_end = m_begin + m_part.bytes.size();
}

/// Whether the part ends with a quotation mark that is not escaped.
bool PartStream::endsWithQuote() const {
    return m_part.bytes.size() >= 2 && m_part.bytes.ends_with('"') && !m_part.bytes.ends_with("\\\"");
}

} // namespace brisklog::json
