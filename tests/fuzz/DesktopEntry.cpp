// Desktop entry files, which any installed program may supply.

#include "RoundTrip.h"

#include "platform/frontmost/DesktopEntry.h"

#include <algorithm>

namespace brisklog::fuzz {
namespace {

std::string withCarriageReturns(std::string_view text) {
    std::string result;
    for (const char character : text)
        result += character == '\n' ? "\r\n" : std::string(1, character);
    return result;
}

bool isControl(char character) { return static_cast<unsigned char>(character) < 0x20 || character == 0x7F; }

} // namespace

void tryInput(std::string_view bytes) {
    const auto entry = parseDesktopEntry("id", bytes);
    require(parseDesktopEntry("id", withCarriageReturns(bytes)) == entry, "line ends make no difference");
    if (!entry)
        return;
    require(!entry->name.empty(), "an application has a name");
    requireShowable(entry->name);
    require(std::ranges::none_of(entry->name, isControl), "a name is a single line");
    require(entry->program.find('/') == std::string::npos, "a program is a file name");
}

} // namespace brisklog::fuzz
