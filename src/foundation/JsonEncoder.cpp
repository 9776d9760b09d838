#include "foundation/JsonEncoder.h"

#include "foundation/Text.h"

#include <cmath>

namespace brisklog::json {

template <class Writer>
void Encoder<Writer>::text(std::string_view text) {
    if (!text::isValidUtf8(text))
        return refuse("text is not well-formed UTF-8");
    m_writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()), false);
}

template <class Writer>
void Encoder<Writer>::number(double number) {
    if (!std::isfinite(number))
        return refuse("number is not finite");
    m_writer.Double(number);
}

template <class Writer>
void Encoder<Writer>::refuse(const char* reason) {
    // Something must stand here for the writer's own bookkeeping; the document is thrown away anyway.
    m_writer.Null();
    if (!m_error.empty())
        return;
    for (const Step& step : m_path)
        m_error += step.key.empty() ? "[" + std::to_string(step.index) + "]" : "." + std::string(step.key);
    if (m_error.starts_with('.'))
        m_error.erase(0, 1);
    m_error += m_error.empty() ? reason : std::string(": ") + reason;
}

template class Encoder<PrettyWriter>;
template class Encoder<CompactWriter>;

} // namespace brisklog::json
