#pragma once

#include <cstddef>
#include <rapidjson/stringbuffer.h>
#include <string>
#include <string_view>
#include <utility>

namespace brisklog::json {

/// How a document is laid out.
enum class Layout {
    pretty,  ///< indented by two spaces, one key per line
    compact, ///< no white space at all
};

/// The bytes of one encoded document.
class EncodedDocument {
public:
    explicit EncodedDocument(rapidjson::StringBuffer buffer) : m_buffer(std::move(buffer)) {}

    [[nodiscard]] std::string_view bytes() const { return {m_buffer.GetString(), m_buffer.GetSize()}; }

private:
    // Unlike a string, grows without being copied, which would take a third of the encoding time at 28 MB.
    rapidjson::StringBuffer m_buffer;
};

/// Writes the tokens of one document and rejects what could not be read back: numbers that are not finite,
/// texts that are not UTF-8. After a rejection the document is void, and the callers return, each level
/// adding its step to the path that `error()` names.
class Encoder {
public:
    explicit Encoder(Layout layout) : m_isPretty(layout == Layout::pretty) {}

    void beginRecord() { begin('{'); }

    void endRecord() { end('}'); }

    void beginList() { begin('['); }

    void endList() { end(']'); }

    /// Comes before the value of each field; `key` needs no escapes.
    void key(std::string_view key);

    /// Comes before each element of a list.
    void nextElement();

    void text(std::string_view text);

    /// A text that already has its quotation marks and is known to need neither a check nor escapes.
    void quotedText(std::string_view text) { put(text); }

    /// A text, without its quotation marks, that is known to need neither a check nor escapes.
    void plainText(std::string_view text);

    void number(double number);

    void boolean(bool truth) { put(truth ? "true" : "false"); }

    [[nodiscard]] bool failed() const { return m_reason != nullptr; }

    void addStep(std::string_view key) { m_path.insert(0, "." + std::string(key)); }

    void addStep(std::size_t index) { m_path.insert(0, "[" + std::to_string(index) + "]"); }

    /// What was rejected; only after `failed()`.
    [[nodiscard]] std::string error() const;

    /// The document's bytes, valid until the next call; only when nothing has failed.
    [[nodiscard]] std::string_view bytes() const { return {m_buffer.GetString(), m_buffer.GetSize()}; }

    /// Begins another document, reusing the memory of the last one.
    void beginAnew();

    /// Moves the document out; only when nothing has failed.
    [[nodiscard]] EncodedDocument takeDocument() { return EncodedDocument(std::move(m_buffer)); }

private:
    void begin(char bracket);
    void end(char bracket);

    /// Room for `length` bytes, to be filled by the caller.
    char* room(std::size_t length) { return m_buffer.Push(length); }

    void put(std::string_view bytes);
    void putEscaped(char character);
    /// Writes the line break and indentation of the current depth to `out`; returns the position after them.
    char* breakLine(char* out) const;

    [[nodiscard]] std::size_t lineBreakLength() const { return m_isPretty ? 1 + 2 * m_depth : 0; }

    bool m_isPretty;
    bool m_isFirst = true;
    std::size_t m_depth = 0;
    rapidjson::StringBuffer m_buffer;
    const char* m_reason = nullptr;
    std::string m_path;
};

} // namespace brisklog::json
