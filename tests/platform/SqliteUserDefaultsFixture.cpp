#include "SqliteUserDefaultsFixture.h"

#include <algorithm>

namespace brisklog::test {

std::vector<std::string> SqliteDefaults::filesStartingWith(std::string_view beginning) const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(home.configuration()))
        if (entry.path().filename().string().starts_with(beginning))
            names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

void SqliteDefaults::storeSomething() {
    auto store = openStore();
    store.setValue("short", std::string("kurz"));
    store.setValue("long", Data{variedBytes(200000)});
}

std::string variedBytes(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t position = 0; position < size; ++position)
        bytes[position] = static_cast<char>(position * 7 + position / 251);
    return bytes;
}

} // namespace brisklog::test
