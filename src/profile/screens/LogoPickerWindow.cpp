#include "profile/screens/LogoPickerWindow.h"

#include "ui/look/Layout.h"
#include "ui/look/Text.h"
#include "ui/look/WindowPlace.h"
#include "ui/sheets/SheetHost.h"
#include "ui/sheets/Sheets.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QTimer>
#include <utility>

namespace brisklog {
namespace {

constexpr QSize windowSize{600, 500};
constexpr QSize smallestSize{330, 240};

} // namespace

LogoPickerWindow::LogoPickerWindow(const QString& title, LogoPickerScreen* screen, QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                          Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint) {
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::WindowModal);
    setMinimumSize(smallestSize);
    Column{expanding(screen)}.applyTo(*this);
    screen->focusTiles();
}

void LogoPickerWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void LogoPickerWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    // Deferred: while this window is on the screen, no other window can get the focus.
    if (auto closed = std::exchange(m_closed, nullptr))
        QTimer::singleShot(0, parentWidget(), std::move(closed));
}

LogoPickerWindowController::~LogoPickerWindowController() { delete m_window.data(); }

void LogoPickerWindowController::present(const std::string& title, Completion completed) {
    close();
    QWidget& parent = *m_services.parentWindow();
    auto* const screen =
        new LogoPickerScreen(m_services.picker, m_services.pictures,
                             {.onImageSelected = std::move(completed), .dismiss = [this] { close(); }});
    m_window = new LogoPickerWindow(screenText(title), screen, &parent);
    SheetHost* const host = sheetHostOf(parent);
    m_window->onClosed([host, hold = host ? host->holdOpen() : nullptr]() mutable {
        hold.reset();
        if (host)
            host->takeFocusBack();
    });
    placeInFrame(*m_window, windowSize, freeAreaOf(*parent.screen()));
    m_window->show();
    m_window->activateWindow();
}

void LogoPickerWindowController::close() {
    if (m_window)
        std::exchange(m_window, nullptr)->close();
}

} // namespace brisklog
