#pragma once

#include "app/ContentView.h"
#include "support/FakeClock.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/TemporaryHome.h"
#include "support/VirtualRunLoop.h"

namespace brisklog::test {

/// The main view's state over a home without files.
struct EmptyContent {
    TemporaryHome home;
    RecordingFiles files;
    MemoryUserDefaults userDefaults;
    FakeClock clock;
    VirtualRunLoop runLoop{clock};
    RecordingLog log;
    AppSettings settings{{.files = files, .userDefaults = userDefaults, .log = log}};
    ContentView content{
        projectsSection,
        settings,
        {.files = files, .userDefaults = userDefaults, .clock = clock, .runLoop = runLoop, .log = log}};
};

} // namespace brisklog::test
