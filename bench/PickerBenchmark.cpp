// What opening the logo picker in a folder of 5,000 photographs costs, from the click to the first screen.
// listing              at most 10 times reading the bare names; the rest is sorting in German order
// names on the screen  at most 100 ms
// pictures too         at most as long as decoding the same ones one after another without scaling

#include "OffscreenApplication.h"
#include "bench/IdlePlatform.h"
#include "platform/files/PosixFiles.h"
#include "platform/loop/QtBackground.h"
#include "platform/pictures/QtImages.h"
#include "profile/screens/LogoPickerWindow.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImageReader>
#include <QListView>
#include <atomic>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <dirent.h>
#include <fstream>
#include <unistd.h>

namespace brisklog {
namespace {

using namespace bench;
namespace fs = std::filesystem;

constexpr int fileCount = 5000;
/// How many tiles are visible at first, including the row at the lower edge.
constexpr int seenAtFirst = 16;

QImage photograph(int number) {
    QImage image(3000, 2000, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x / 12, y / 8, (x * y + number * 40) / 900 % 256));
    return image;
}

/// A home with a folder of photographs: the names are all different, the pictures behind them only a few.
struct Album {
    Album() {
        std::string name = fs::temp_directory_path() / "brisklog-bench-XXXXXX";
        home = ::mkdtemp(name.data());
        ::setenv("HOME", home.c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", home.c_str(), 1);
        fs::create_directory(folder());
        constexpr int different = 4;
        for (int number = 0; number < fileCount; ++number)
            if (number < different)
                photograph(number).save(QString::fromStdString(file(number)), "JPEG");
            else
                fs::create_hard_link(file(number % different), file(number));
    }

    ~Album() { fs::remove_all(home); }

    Album(const Album&) = delete;
    Album& operator=(const Album&) = delete;

    [[nodiscard]] fs::path folder() const { return home / "Pictures"; }

    [[nodiscard]] fs::path file(int number) const {
        return folder() / ("Urlaub Nordsee " + std::to_string(number) + ".jpg");
    }

    fs::path home;
};

const Album& album() {
    static const Album album;
    return album;
}

/// Counts the pictures that have been decoded.
class CountingImages final : public Images {
public:
    [[nodiscard]] Result<Bitmap> read(const fs::path& file, const SizeRule& rule) const override {
        auto picture = m_images.read(file, rule);
        ++count;
        return picture;
    }

    [[nodiscard]] Result<Bitmap> decode(std::string_view bytes, const SizeRule& rule) const override {
        return m_images.decode(bytes, rule);
    }

    [[nodiscard]] Result<std::string> encodePng(const Bitmap& picture) const override {
        return m_images.encodePng(picture);
    }

    mutable std::atomic<int> count = 0;

private:
    QtImages m_images;
};

double peakMemory() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmHWM:") {
            double kilobytes = 0;
            status >> kilobytes;
            return kilobytes / 1024;
        }
    return 0;
}

void turnUntil(const std::function<bool()>& condition) {
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    QCoreApplication::processEvents();
}

void openPicker(benchmark::State& state) {
    offscreenApplication();
    static_cast<void>(album());
    const PosixFiles files;
    SilentLog log;
    QtBackground folders(2);
    QtBackground pictures(2);
    QWidget popover;
    const double before = peakMemory();
    qint64 untilNames = 0;
    for (auto run : state) {
        const CountingImages images;
        LogoPickerWindowController picker{{.picker = {files, images, folders, log},
                                           .pictures = pictures,
                                           .parentWindow = [&popover] { return &popover; }}};
        QElapsedTimer timer;
        timer.start();
        picker.present("Logo auswählen", [](const std::string&) {});
        const auto* const tiles = popover.findChild<QListView*>();
        turnUntil([&] { return tiles->model()->rowCount() == fileCount; });
        untilNames += timer.nsecsElapsed();
        turnUntil([&] { return images.count >= seenAtFirst; });
        state.PauseTiming();
        picker.close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
    state.counters["names_ms"] =
        benchmark::Counter(static_cast<double>(untilNames) / 1e6, benchmark::Counter::kAvgIterations);
    state.counters["extra_MB"] = peakMemory() - before;
}

void decodeFirstScreenBare(benchmark::State& state) {
    offscreenApplication();
    for (auto run : state)
        for (int number = 0; number < seenAtFirst; ++number)
            benchmark::DoNotOptimize(QImageReader(QString::fromStdString(album().file(number))).read());
}

void listFolder(benchmark::State& state) {
    const PosixFiles files;
    const fs::path folder = album().folder();
    for (auto run : state)
        benchmark::DoNotOptimize(offeredItems(folder, files.entriesIn(folder).value()));
}

void readNamesBare(benchmark::State& state) {
    const fs::path folder = album().folder();
    for (auto run : state) {
        DIR* const open = ::opendir(folder.c_str());
        while (const dirent* const entry = ::readdir(open))
            benchmark::DoNotOptimize(entry->d_name);
        ::closedir(open);
    }
}

BENCHMARK(openPicker)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(decodeFirstScreenBare)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(listFolder)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(readNamesBare)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace brisklog
