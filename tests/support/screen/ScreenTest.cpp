#include "support/screen/ScreenTest.h"

#include "support/screen/TestFont.h"
#include "ui/look/Look.h"
#include "ui/look/Palette.h"

#include <QAccessible>
#include <QApplication>
#include <QCursor>
#include <QEnterEvent>
#include <QPainter>
#include <QScreen>
#include <QTest>
#include <array>
#include <cstdlib>
#include <optional>
#include <string>

namespace brisklog::test {
namespace {

QtMessageHandler printMessage = nullptr;

/// Messages that begin with a function of the toolkit ("QFont::setPixelSize: …") say that it was misused.
void failOnMisuse(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (message.startsWith(u'Q') && message.section(u' ', 0, 0).contains(QLatin1String("::")))
        ADD_FAILURE() << message.toStdString();
    else
        printMessage(type, context, message);
}

/// The one application per process that the toolkit demands. It ends before the toolkit's own globals do.
class Application final : public ::testing::Environment {
public:
    static Application& registered() {
        static auto* environment =
            static_cast<Application*>(::testing::AddGlobalTestEnvironment(new Application));
        return *environment;
    }

    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        // Pictures are looked at by people.
        if (!qEnvironmentVariableIsSet("BRISKLOG_PICTURES"))
            m_font.emplace();
        printMessage = qInstallMessageHandler(failOnMisuse);
        m_application.emplace(m_count, m_arguments.data());
    }

    void TearDown() override {
        m_application.reset();
        m_font.reset();
        qInstallMessageHandler(nullptr);
    }

    [[nodiscard]] QApplication& application() { return *m_application; }

private:
    std::string m_name = "brisklog-tests";
    std::array<char*, 2> m_arguments{m_name.data(), nullptr};
    int m_count = 1;
    std::optional<TestFont> m_font;
    std::optional<QApplication> m_application;
};

[[maybe_unused]] const Application& registeredBeforeTheFirstTest = Application::registered();

} // namespace

ScreenTest::ScreenTest() {
    installLook(Application::registered().application(), Motion::reduced);
    applyColorScheme(ColorScheme::light);
    // Beside every window that opens.
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
}

QImage seenOnScreen(const QWidget& widget) {
    const QWidget& window = *widget.window();
    const QPixmap whole = window.screen()->grabWindow(window.winId());
    return whole.copy(QRect(widget.mapTo(&window, QPoint()), widget.size())).toImage();
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

QString accessibleNameOf(const QWidget& widget) {
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget));
    return interface ? interface->text(QAccessible::Name) : QString();
}

QImage picture(QWidget& widget, qreal devicePixelRatio) {
    QImage image((QSizeF(widget.size()) * devicePixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(widget.palette().color(QPalette::Window));
    widget.render(&image);
    return image;
}

bool looksLike(const QColor& first, const QColor& second) {
    constexpr int rounding = 2;
    const auto isNear = [](int one, int other) { return std::abs(one - other) <= rounding; };
    return isNear(first.red(), second.red()) && isNear(first.green(), second.green()) &&
           isNear(first.blue(), second.blue());
}

} // namespace brisklog::test
