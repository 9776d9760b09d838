#pragma once

#include "profile/UserProfile.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"

namespace brisklog::test {

/// An empty profile that is kept in no file.
class ProfileInMemory {
    RecordingFiles m_files = [] {
        RecordingFiles files;
        files.hasHome = false;
        return files;
    }();
    MemoryUserDefaults m_defaults;
    RecordingLog m_log;

public:
    UserProfile profile{{m_files, m_defaults, m_log}};
};

} // namespace brisklog::test
