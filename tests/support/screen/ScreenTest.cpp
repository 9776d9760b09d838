#include "support/screen/ScreenTest.h"

#include "app/components/Look.h"
#include "app/components/Palette.h"

#include <QApplication>
#include <QEnterEvent>
#include <QPainter>
#include <QTest>

namespace brisklog::test {
namespace {

/// One application for the process, as the toolkit demands; made by the first test that needs it.
QApplication& application() {
    static const bool isPlatformChosen = qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = isPlatformChosen ? 1 : 0;
    static char name[] = "brisklog-tests";
    static char* arguments[] = {name, nullptr};
    static QApplication instance(count, arguments);
    return instance;
}

} // namespace

ScreenTest::ScreenTest() {
    installLook(application(), Motion::reduced);
    applyColorScheme(ColorScheme::light);
}

void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void showActive(QWidget& widget) {
    widget.show();
    widget.activateWindow();
    [[maybe_unused]] const bool isActive = QTest::qWaitForWindowActive(&widget);
    settle();
}

void hover(QWidget& widget) {
    const QPointF middle = widget.rect().center();
    QEnterEvent enter(middle, middle, widget.mapToGlobal(middle));
    QCoreApplication::sendEvent(&widget, &enter);
}

void unhover(QWidget& widget) {
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&widget, &leave);
}

QImage picture(QWidget& widget, qreal devicePixelRatio) {
    QImage image((QSizeF(widget.size()) * devicePixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    widget.render(&image);
    return image;
}

} // namespace brisklog::test
