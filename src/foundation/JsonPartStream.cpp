#include "foundation/JsonPartStream.h"

namespace brisklog::json {

PartStream::PartStream(DataParts& parts) : m_parts(parts) { take(m_parts.next()); }

// Not where the characters are taken: what happens once a part is kept out of what happens a million times.
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

/// Whether the part ends with a quotation mark that is no escaped one.
bool PartStream::endsWithQuote() const {
    return m_part.bytes.size() >= 2 && m_part.bytes.ends_with('"') && !m_part.bytes.ends_with("\\\"");
}

} // namespace brisklog::json
