#pragma once

#include "profile/UserProfile.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/RecordingLogoPicker.h"
#include "support/TemporaryHome.h"

#include <gtest/gtest.h>

namespace brisklog::test {

/// A temporary home, and fakes around a profile.
class ProfileFixture : public testing::Test {
protected:
    [[nodiscard]] ProfileServices services() { return {files, defaults, log, &picker}; }

    [[nodiscard]] std::filesystem::path folder() const { return home.applicationSupport() / "Pennavo"; }

    [[nodiscard]] std::filesystem::path profileFile() const { return folder() / "profile.json"; }

    [[nodiscard]] std::filesystem::path logoFile() const { return folder() / "userLogo.png"; }

    TemporaryHome home;
    RecordingFiles files;
    MemoryUserDefaults defaults;
    RecordingLog log;
    RecordingLogoPicker picker;
};

} // namespace brisklog::test
