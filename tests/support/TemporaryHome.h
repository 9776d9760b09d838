#pragma once

#include <filesystem>
#include <string>

namespace brisklog::test {

/// A temporary home on the real disk, with all XDG folders inside. HOME and the XDG variables point there; in
/// the end it is removed with everything in it.
class TemporaryHome {
public:
    TemporaryHome();
    ~TemporaryHome();
    TemporaryHome(const TemporaryHome&) = delete;
    TemporaryHome& operator=(const TemporaryHome&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    [[nodiscard]] std::filesystem::path documents() const { return m_path / "Documents"; }

    [[nodiscard]] std::filesystem::path applicationSupport() const { return m_path / "data"; }

    [[nodiscard]] std::filesystem::path state() const { return m_path / "state" / "brisklog"; }

    [[nodiscard]] std::filesystem::path configuration() const { return m_path / "config" / "brisklog"; }

private:
    std::filesystem::path m_path;
};

/// Writes a file, making its folders; for setting up what a test starts from.
void writeFile(const std::filesystem::path& path, std::string_view bytes);

/// All bytes of a file; fails the test when it cannot be read.
[[nodiscard]] std::string readFile(const std::filesystem::path& path);

/// A file's permission bits.
[[nodiscard]] unsigned modeOf(const std::filesystem::path& path);

} // namespace brisklog::test
