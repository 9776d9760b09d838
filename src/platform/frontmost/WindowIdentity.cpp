#include "platform/frontmost/WindowIdentity.h"

#include "foundation/Text.h"

#include <QString>
#include <algorithm>

namespace brisklog {
namespace {

/// In bytes. The name is written to the history at every change of application, so programs must not be able
/// to inflate it.
constexpr std::size_t longestName = 256;

/// Older programs write their class in Latin-1.
std::string fromLatin1(std::string_view bytes) {
    return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size())).toStdString();
}

} // namespace

bool OwnWindows::contain(const WindowIdentity& window) const {
    if (window.process != 0)
        return window.process == process;
    return std::ranges::find_first_of(window.names, names) != window.names.end();
}

std::string windowName(std::string_view bytes) {
    const std::string name = text::isValidUtf8(bytes) ? std::string(bytes) : fromLatin1(bytes);
    return std::string(text::trimmed(text::onOneLine(std::string(text::beginning(name, longestName)))));
}

} // namespace brisklog
