#include "OffscreenApplication.h"

#include <QGuiApplication>

namespace brisklog::fuzz {

void ensureApplication() {
    static int count = 1;
    static char name[] = "fuzzer";
    static char* arguments[] = {name, nullptr};
    static const bool isOffscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    // Decoders print warnings about every other input.
    static const auto previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    static const QGuiApplication application(count, arguments);
    (void)isOffscreen;
    (void)previous;
}

} // namespace brisklog::fuzz
