// Base64: any bytes as text and back, any text as bytes.

#include "Fuzzer.h"

#include "foundation/SharedData.h"

#include <algorithm>
#include <cctype>

namespace brisklog::fuzz {
namespace {

bool isDigit(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '+' || character == '/';
}

/// Complete groups of four digits, of which the last one or two may be padding.
bool isBase64(std::string_view text) {
    const auto end = std::ranges::find_if_not(text, isDigit);
    const std::string_view padding(end, text.end());
    return text.size() % 4 == 0 && (padding.empty() || padding == "=" || padding == "==");
}

std::optional<SharedData> fromBase64(std::string_view text) {
    return SharedData::fromBase64(std::make_shared<const std::string>(text));
}

void requireBytesComeBack(std::string_view bytes) {
    const auto data = SharedData::of(bytes);
    require(isBase64(data.base64()), "an encoding is well-formed");
    require(data.bytes() == bytes, "bytes come back");
    require(fromBase64(data.base64()) == data, "bytes come back from their text");
}

} // namespace

void tryInput(std::string_view bytes) {
    requireBytesComeBack(bytes);
    const auto decoded = fromBase64(bytes);
    require(decoded.has_value() == isBase64(bytes), "exactly what is well-formed decodes");
    SharedDataPool pool;
    const auto shared = pool.fromBase64(bytes);
    require(shared.has_value() == decoded.has_value(), "decoding shared and unshared bytes succeeds alike");
    if (!decoded)
        return;
    requireBytesComeBack(decoded->bytes());
    require(shared->bytes() == decoded->bytes(), "shared bytes are the same bytes");
    require(pool.fromBase64(bytes)->sharesBytesWith(*shared), "equal bytes are shared");
}

} // namespace brisklog::fuzz
