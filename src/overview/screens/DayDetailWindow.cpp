#include "overview/screens/DayDetailWindow.h"

#include "autotrack/screens/DailyUsageDetailScreen.h"
#include "ui/look/Layout.h"
#include "ui/look/Palette.h"
#include "ui/look/Text.h"
#include "ui/look/WindowPlace.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

namespace brisklog {
namespace {

constexpr QSize windowSize{500, 600};
constexpr QSize smallestSize{400, 300};

class Controller final : public DetailWindowController {
public:
    explicit Controller(DayDetailWindow* window) : m_window(window) {}

    [[nodiscard]] bool isWindowVisible() const override { return m_window && m_window->isVisible(); }

private:
    QPointer<DayDetailWindow> m_window;
};

} // namespace

DayDetailWindow::DayDetailWindow(const DetailWindowContent& content, const Images& images,
                                 std::weak_ptr<DetailWindowDelegate> delegate)
    : QWidget(nullptr, Qt::Window), m_delegate(std::move(delegate)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(screenText(content.title));
    setMinimumSize(smallestSize);
    Column{expanding(new DailyUsageDetailScreen(content.detail, images))}.applyTo(*this);
}

void DayDetailWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    if (const auto delegate = m_delegate.lock())
        delegate->windowWillClose();
}

void DayDetailWindow::paintEvent(QPaintEvent*) { QPainter(this).fillRect(rect(), Palette::current().ground); }

DayDetailWindows::~DayDetailWindows() {
    for (const QPointer<DayDetailWindow>& window : m_windows)
        delete window.data();
}

std::shared_ptr<DetailWindowController> DayDetailWindows::show(const DetailWindowContent& content,
                                                               std::weak_ptr<DetailWindowDelegate> delegate) {
    std::erase_if(m_windows, [](const QPointer<DayDetailWindow>& window) { return window.isNull(); });
    auto* const window = new DayDetailWindow(content, m_images, std::move(delegate));
    m_windows.emplace_back(window);
    const QWidget* const nearby = m_nearby();
    const QScreen& screen = nearby != nullptr ? *nearby->screen() : *QGuiApplication::primaryScreen();
    placeInFrame(*window, windowSize, freeAreaOf(screen));
    window->show();
    window->activateWindow();
    return std::make_shared<Controller>(window);
}

} // namespace brisklog
