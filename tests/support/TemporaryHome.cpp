#include "support/TemporaryHome.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace brisklog::test {

namespace fs = std::filesystem;

TemporaryHome::TemporaryHome() {
    std::string name = fs::temp_directory_path() / "brisklog-test-XXXXXX";
    m_path = ::mkdtemp(name.data());
    const auto pointTo = [this](const char* variable, const char* folder) {
        ::setenv(variable, (m_path / folder).c_str(), 1);
    };
    ::setenv("HOME", m_path.c_str(), 1);
    pointTo("XDG_CONFIG_HOME", "config");
    pointTo("XDG_DATA_HOME", "data");
    pointTo("XDG_STATE_HOME", "state");
    pointTo("XDG_CACHE_HOME", "cache");
    pointTo("XDG_RUNTIME_DIR", "run");
}

TemporaryHome::~TemporaryHome() {
    // A test may have taken permissions away.
    std::error_code ignored;
    for (auto entry =
             fs::recursive_directory_iterator(m_path, fs::directory_options::skip_permission_denied, ignored);
         entry != fs::recursive_directory_iterator(); entry.increment(ignored))
        if (entry->is_directory(ignored) && !entry->is_symlink(ignored))
            fs::permissions(entry->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    fs::remove_all(m_path, ignored);
}

void writeFile(const fs::path& path, std::string_view bytes) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string readFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path << " cannot be read";
    return {std::istreambuf_iterator(file), {}};
}

unsigned modeOf(const fs::path& path) { return static_cast<unsigned>(fs::status(path).permissions()); }

} // namespace brisklog::test
