#include "platform/files/StandardOutputLog.h"

#include "foundation/Text.h"

#include <cstdio>

namespace brisklog {

void StandardOutputLog::print(std::string_view line) {
    const std::string whole = text::onOneLine(std::string(line)) + "\n";
    std::fwrite(whole.data(), 1, whole.size(), stdout);
    std::fflush(stdout);
}

} // namespace brisklog
