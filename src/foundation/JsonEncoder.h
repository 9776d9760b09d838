#pragma once

#include "foundation/Result.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brisklog::json {

/// How a document is laid out.
enum class Layout {
    pretty,  ///< indented by two blanks, one key a line
    compact, ///< no white space at all
};

/// Writes the tokens of one document and refuses what could not be read back: numbers that are not finite,
/// texts that are not UTF-8. Where something was refused, `error()` names its path and nothing of the
/// document counts.
template <class Writer>
class Encoder {
public:
    explicit Encoder(Writer& writer) : m_writer(writer) {}

    void beginRecord() { m_writer.StartObject(); }

    void endRecord() { m_writer.EndObject(); }

    void beginList() {
        m_writer.StartArray();
        m_path.push_back({.key = {}, .index = 0});
    }

    void nextElement() { ++m_path.back().index; }

    void endList() {
        m_writer.EndArray();
        m_path.pop_back();
    }

    void beginField(std::string_view key) {
        m_writer.Key(key.data(), static_cast<rapidjson::SizeType>(key.size()), false);
        m_path.push_back({.key = key, .index = 0});
    }

    void endField() { m_path.pop_back(); }

    void text(std::string_view text);
    void number(double number);

    void boolean(bool truth) { m_writer.Bool(truth); }

    [[nodiscard]] const std::string& error() const { return m_error; }

private:
    struct Step {
        std::string_view key;
        std::size_t index;
    };

    void refuse(const char* reason);

    Writer& m_writer;
    std::vector<Step> m_path;
    std::string m_error;
};

/// The bytes of one encoded document.
class EncodedDocument {
public:
    explicit EncodedDocument(rapidjson::StringBuffer buffer) : m_buffer(std::move(buffer)) {}

    [[nodiscard]] std::string_view bytes() const { return {m_buffer.GetString(), m_buffer.GetSize()}; }

private:
    // Kept as the writer made it: a copy of 28 MB would cost a third of the encoding.
    rapidjson::StringBuffer m_buffer;
};

using PrettyWriter = rapidjson::PrettyWriter<rapidjson::StringBuffer>;
using CompactWriter = rapidjson::Writer<rapidjson::StringBuffer>;

extern template class Encoder<PrettyWriter>;
extern template class Encoder<CompactWriter>;

} // namespace brisklog::json
