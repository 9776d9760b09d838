#pragma once

#include "profile/UserProfile.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/TemporaryHome.h"

#include <gtest/gtest.h>

namespace brisklog::test {

class FakeLogoPicker final : public LogoPickerPresenter {
public:
    void present(const std::string& title, Completion completed) override {
        titles.push_back(title);
        pending = std::move(completed);
        isOpen = true;
    }

    void close() override { isOpen = false; }

    std::vector<std::string> titles;
    Completion pending;
    bool isOpen = false;
};

/// A home in which a profile starts.
class ProfileFixture : public testing::Test {
protected:
    [[nodiscard]] ProfilePlatform platform() { return {files, defaults, log, &picker}; }

    [[nodiscard]] std::filesystem::path folder() const { return home.applicationSupport() / "Pennavo"; }

    [[nodiscard]] std::filesystem::path profileFile() const { return folder() / "profile.json"; }

    [[nodiscard]] std::filesystem::path logoFile() const { return folder() / "userLogo.png"; }

    TemporaryHome home;
    RecordingFiles files;
    MemoryUserDefaults defaults;
    RecordingLog log;
    FakeLogoPicker picker;
};

} // namespace brisklog::test
