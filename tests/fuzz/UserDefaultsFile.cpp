// The user defaults' database, damaged byte by byte.

#include "DefaultsFile.h"

namespace brisklog::fuzz {

void tryInput(std::string_view bytes) {
    static const DefaultsFile file;
    file.reset(bytes);
    file.use();
}

} // namespace brisklog::fuzz
