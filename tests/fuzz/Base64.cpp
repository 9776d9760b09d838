// Base64: any bytes as text and back, any text as bytes.

#include "Fuzzer.h"

#include "foundation/Base64.h"
#include "foundation/SharedData.h"

namespace brisklog::fuzz {
namespace {

void requireBytesComeBack(std::string_view bytes) {
    const std::string text = base64::encode(bytes);
    require(base64::isWellFormed(text), "an encoding is well-formed");
    require(base64::decode(text) == bytes, "bytes come back");
}

} // namespace

void tryInput(std::string_view bytes) {
    requireBytesComeBack(bytes);
    const auto decoded = base64::decode(bytes);
    require(decoded.has_value() == base64::isWellFormed(bytes), "what is well-formed decodes, nothing else");
    SharedDataPool pool;
    const auto shared = pool.fromBase64(bytes);
    require(shared.has_value() == decoded.has_value(), "shared as unshared");
    if (!decoded)
        return;
    requireBytesComeBack(*decoded);
    require(shared->bytes() == *decoded, "shared bytes are the same bytes");
    require(pool.fromBase64(bytes)->sharesBytesWith(*shared), "equal bytes are shared");
}

} // namespace brisklog::fuzz
