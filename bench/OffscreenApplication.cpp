#include "OffscreenApplication.h"

#include "ui/look/Look.h"
#include "ui/look/Palette.h"

#include <QApplication>
#include <array>
#include <string>

namespace brisklog {

QApplication& offscreenApplication() {
    static std::string name = "brisklog-bench";
    static std::array<char*, 2> arguments{name.data(), nullptr};
    static int count = 1;
    // Never destroyed: the toolkit must not be destroyed after the benchmarks' own globals.
    static QApplication* const application = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        auto* const created = new QApplication(count, arguments.data());
        installLook(*created, Motion::reduced);
        applyColorScheme(ColorScheme::light);
        return created;
    }();
    return *application;
}

} // namespace brisklog
