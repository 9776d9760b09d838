#include "foundation/SharedData.h"

#include <QByteArray>

namespace brisklog {
namespace {

QByteArray viewOf(std::string_view bytes) {
    return QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

QByteArray::FromBase64Result decoded(const std::string& text) {
    return QByteArray::fromBase64Encoding(viewOf(text), QByteArray::AbortOnBase64DecodingErrors);
}

/// Whole groups of four from the standard alphabet, padding only at the end. Qt alone would also accept
/// missing padding.
bool isBase64(const std::string& text) { return text.size() % 4 == 0 && decoded(text); }

} // namespace

SharedData::SharedData() {
    static const auto nothing = std::make_shared<const std::string>();
    m_text = nothing;
}

SharedData SharedData::of(std::string_view bytes) {
    return SharedData(std::make_shared<const std::string>(viewOf(bytes).toBase64().toStdString()));
}

std::optional<SharedData> SharedData::fromBase64(std::shared_ptr<const std::string> text) {
    return isBase64(*text) ? std::optional(SharedData(std::move(text))) : std::nullopt;
}

std::string SharedData::bytes() const { return decoded(*m_text).decoded.toStdString(); }

std::optional<SharedData> SharedDataPool::fromBase64(std::string_view text) {
    if (const auto found = m_byText.find(text); found != m_byText.end())
        return found->second;
    const auto data = SharedData::fromBase64(std::make_shared<const std::string>(text));
    return data ? std::optional(shared(*data)) : std::nullopt;
}

std::optional<SharedData> SharedDataPool::fromBase64(const std::shared_ptr<const std::string>& text) {
    if (const auto found = m_byObject.find(text.get()); found != m_byObject.end())
        return found->second;
    const auto data = SharedData::fromBase64(text);
    return data ? std::optional(shared(*data)) : std::nullopt;
}

SharedData SharedDataPool::shared(const SharedData& data) {
    const auto [place, isNew] = m_byText.emplace(data.base64(), data);
    if (isNew)
        m_byObject.emplace(&data.base64(), data);
    return place->second;
}

void SharedDataPool::forgetUnused() {
    std::erase_if(m_byText, [this](const auto& known) {
        const bool isUnused = known.second.holders() == holdersWithinPool;
        if (isUnused)
            m_byObject.erase(&known.second.base64());
        return isUnused;
    });
}

} // namespace brisklog
