// What a keystroke in the profile costs, each of which writes the whole file, compared with the bare write of
// the same bytes.
// keeping a letter    at most 15 times the bare write: encoding, checking the folder, reserving space
// typing a letter     at most 1 ms with the form read and painted anew, too short to be noticed

#include "OffscreenApplication.h"
#include "bench/IdlePlatform.h"
#include "platform/defaults/SqliteUserDefaults.h"
#include "platform/files/PosixFiles.h"
#include "platform/loop/SystemClock.h"
#include "platform/pictures/QtImages.h"
#include "profile/screens/ProfileScreen.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace brisklog {
namespace {

using namespace bench;
namespace fs = std::filesystem;

/// A filled-in profile in a temporary home.
struct Desk {
    Desk() {
        std::string name = fs::temp_directory_path() / "brisklog-bench-XXXXXX";
        home = ::mkdtemp(name.data());
        ::setenv("XDG_DATA_HOME", home.c_str(), 1);
        profile.emplace(ProfileServices{files, userDefaults, log, nullptr});
        profile->companyName = "Bergström Gestaltung GmbH";
        profile->fullName = "Käthe Bergström";
        profile->address = "Große Elbstraße 145 b";
        profile->postalCode = "22767";
        profile->city = "Hamburg";
        profile->email = "post@bergstroem.example";
        profile->taxOffice = "Finanzamt Hamburg-Altona";
        profile->iban = "DE89 3704 0044 0532 0130 00";
    }

    ~Desk() { fs::remove_all(home); }

    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    fs::path home;
    SystemClock clock;
    SilentLog log;
    PosixFiles files;
    SqliteUserDefaults userDefaults{std::nullopt, clock, log};
    std::optional<UserProfile> profile;
};

void keepLetter(benchmark::State& state) {
    Desk desk;
    std::size_t length = 0;
    for (auto run : state) {
        length = length % 40 + 1;
        desk.profile->website = std::string(length, 'w');
    }
}

void writeSameBytes(benchmark::State& state) {
    const Desk desk;
    const fs::path path = desk.home / "Pennavo" / "profile.json";
    const std::string bytes = desk.files.read(path).value();
    for (auto run : state) {
        const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
        if (::write(file, bytes.data(), bytes.size()) < 0 || ::ftruncate(file, off_t(bytes.size())) != 0)
            std::abort();
        ::close(file);
    }
}

/// A key press changes the profile and its file, and the form is read and painted anew.
void typeLetter(benchmark::State& state) {
    offscreenApplication();
    Desk desk;
    const QtImages images;
    ProfileScreen screen(*desk.profile, images);
    screen.resize(370, 592);
    screen.show();
    QCoreApplication::processEvents();
    auto* const field = screen.findChild<QLineEdit*>();
    field->setFocus();
    for (auto run : state) {
        const bool isFull = field->text().size() > 40;
        QKeyEvent press(QEvent::KeyPress, isFull ? Qt::Key_Home : Qt::Key_W,
                        isFull ? Qt::ShiftModifier : Qt::NoModifier,
                        isFull ? QString() : QStringLiteral("w"));
        QCoreApplication::sendEvent(field, &press);
        QCoreApplication::processEvents();
    }
}

BENCHMARK(keepLetter)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(writeSameBytes)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(typeLetter)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace
} // namespace brisklog
