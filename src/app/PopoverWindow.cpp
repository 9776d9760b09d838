#include "app/PopoverWindow.h"

#include "ui/controls/Button.h"
#include "ui/look/Hairline.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/Palette.h"
#include "ui/look/WindowPlace.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <algorithm>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

constexpr QSize popoverSize(370, 650);
constexpr int stripHeight = 36;

/// The bottom of the window form: why it is a window, and a button to quit the program.
QWidget* makeWindowStrip(const std::function<void()>& quit) {
    auto* const strip = new QWidget;
    auto* const button = new Button(u"Beenden"_s, Button::Kind::secondary, Button::Size::small);
    QObject::connect(button, &Button::clicked, strip, quit);
    auto* const reason = new Label(u"Kein Infobereich gefunden: Brisklog läuft als Fenster."_s,
                                   FontRole::caption11, &Palette::secondary);
    Column{new Hairline(Hairline::Kind::card), Row{reason, stretch(), button}.margins({12, 4, 8, 5})}.applyTo(
        *strip);
    strip->setFixedHeight(stripHeight);
    // In the toolkit's palette this is the colour of cards.
    strip->setBackgroundRole(QPalette::Button);
    strip->setAutoFillBackground(true);
    return strip;
}

/// True for its sheets, menus and pickers, but not for a day's window.
bool belongsTo(const QWidget& popover, const QWidget* window) {
    while (window != nullptr && window != &popover)
        window = window->parentWidget();
    return window != nullptr;
}

bool isPointerOn(const QWidget& popover) {
    const QPoint pointer = QCursor::pos();
    return std::ranges::any_of(QApplication::topLevelWidgets(), [&](const QWidget* window) {
        // Not `frameGeometry`: the toolkit may have queried the frame while it was still 1 × 1.
        return window->isVisible() && window->geometry().contains(pointer) && belongsTo(popover, window);
    });
}

/// Moves a span of `length` starting at `start` between the two edges; where it is too long, it starts at the
/// first.
int kept(int start, int length, int firstEdge, int lastEdge) {
    return std::max(firstEdge, std::min(start, lastEdge - length + 1));
}

/// Some panels reserve no space: the strip of one at the upper or lower edge is left out.
QRect besidePanelOf(const ScreenRectangle& icon, QRect screen) {
    const int below = icon.y + icon.height;
    if (icon.y - screen.top() < icon.height)
        screen.setTop(std::max(screen.top(), below));
    else if (screen.bottom() + 1 - below < icon.height)
        screen.setBottom(std::min(screen.bottom(), icon.y - 1));
    return screen;
}

} // namespace

QRect popoverPlace(const std::optional<ScreenRectangle>& anchor, const QRect& screen) {
    const QRect available = anchor ? besidePanelOf(*anchor, screen) : screen;
    const QSize popover = popoverSize.boundedTo(available.size());
    if (!anchor)
        return {
            {kept(available.right(), popover.width(), available.left(), available.right()), available.top()},
            popover};
    const QPoint middle(anchor->x + anchor->width / 2, anchor->y + anchor->height / 2);
    const bool opensDownwards = middle.y() <= available.center().y();
    const int y = opensDownwards ? anchor->y + anchor->height : anchor->y - popover.height();
    return {{kept(middle.x() - popover.width() / 2, popover.width(), available.left(), available.right()),
             kept(y, popover.height(), available.top(), available.bottom())},
            popover};
}

PopoverWindow::PopoverWindow(Parts parts) : m_parts(std::move(parts)), m_hold(std::make_shared<int>()) {
    setWindowTitle(u"Brisklog"_s);
    setForm(Form::popover, popoverSize);
    // The popover need not have the focus when the user leaves the program: a day's window may have it.
    connect(qApp, &QGuiApplication::applicationStateChanged, this,
            [this] { QTimer::singleShot(0, this, [this] { closeIfLeft(); }); });
}

PopoverWindow::~PopoverWindow() = default;

void PopoverWindow::loadContent() { m_parts.loadContent(); }

void PopoverWindow::setAppearance(ColorScheme appearance) {
    m_appearance = appearance;
    update();
}

void PopoverWindow::buildScreen() {
    if (m_screen != nullptr)
        return;
    m_screen = m_parts.makeScreen();
    m_windowStrip = makeWindowStrip(m_parts.quit);
    Column{expanding(m_screen), m_windowStrip}.applyTo(*this);
}

void PopoverWindow::setForm(Form form, const QSize& size) {
    m_form = form;
    // Not Qt::Popup, which closes as soon as a save panel opens.
    setWindowFlags(form == Form::popover ? Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint
                                         : Qt::Window);
    setFixedSize(size);
    if (m_windowStrip != nullptr)
        m_windowStrip->setVisible(form == Form::window);
}

void PopoverWindow::show(const std::optional<ScreenRectangle>& anchor) {
    if (isVisible())
        return takeFocusBack();
    buildScreen();
    m_anchor = anchor;
    const QPoint anchorPoint = anchor ? QPoint(anchor->x, anchor->y) : QCursor::pos();
    const QScreen* const anchorScreen = QGuiApplication::screenAt(anchorPoint);
    const QScreen* const shown = anchorScreen != nullptr ? anchorScreen : QGuiApplication::primaryScreen();
    const QRect place = popoverPlace(anchor, freeAreaOf(*shown));
    setForm(Form::popover, place.size());
    placeWindow(*this, place.topLeft());
    m_parts.windowServer.keepOutOfTaskBar(static_cast<std::uint32_t>(winId()));
    m_pointerPresses = m_parts.windowServer.watchPointer([this] { handlePointerPress(); });
    showInFront();
}

void PopoverWindow::showAsWindow() {
    if (isVisible())
        return takeFocusBack();
    buildScreen();
    setForm(Form::window, fittingInFrame(popoverSize + QSize(0, stripHeight), freeAreaOf(*screen())));
    showInFront();
}

void PopoverWindow::showInFront() {
    QWidget::show();
    takeFocusBack();
}

void PopoverWindow::close() {
    // Its sheets would be left behind.
    if (isHeldOpen())
        takeFocusBack();
    else
        hide();
}

void PopoverWindow::hideEvent(QHideEvent* event) {
    m_pointerPresses = {};
    m_isEntered = false;
    QWidget::hideEvent(event);
}

void PopoverWindow::closeEvent(QCloseEvent* event) {
    if (m_form == Form::popover)
        return QWidget::closeEvent(event);
    event->ignore();
    m_parts.leaveWindow();
}

std::shared_ptr<void> PopoverWindow::holdOpen() { return m_hold; }

void PopoverWindow::takeFocusBack() {
    if (!isVisible())
        return;
    QWidget& front = frontWindow();
    front.raise();
    front.activateWindow();
}

QWidget& PopoverWindow::frontWindow() {
    if (QWidget* const sheet = QApplication::activeModalWidget())
        return *sheet;
    return *this;
}

bool PopoverWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate)
        m_isEntered = true;
    // Decided one turn later, when it is known which window was activated instead.
    if (event->type() == QEvent::WindowDeactivate)
        QTimer::singleShot(0, this, [this] { closeIfLeft(); });
    return QWidget::event(event);
}

void PopoverWindow::closeIfLeft() {
    const bool isOurs =
        QApplication::activeWindow() != nullptr || QApplication::activePopupWidget() != nullptr;
    if (m_form == Form::popover && m_isEntered && !isHeldOpen() && !isOurs && !isPointerOnAnchor())
        close();
}

/// A press on the icon would close the popover, and the activation that follows would reopen it: presses
/// there are left to the toggle.
bool PopoverWindow::isPointerOnAnchor() const {
    return m_anchor && m_parts.windowServer.knowsPointer() &&
           QRect(m_anchor->x, m_anchor->y, m_anchor->width, m_anchor->height).contains(QCursor::pos());
}

void PopoverWindow::handlePointerPress() {
    if (!isHeldOpen() && !isPointerOn(*this) && !isPointerOnAnchor())
        close();
}

void PopoverWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && m_form == Form::popover)
        close();
    else
        QWidget::keyPressEvent(event);
}

void PopoverWindow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), Palette::current().ground);
    if (m_form == Form::window)
        return;
    // The frame is part of the popover, not of the main view: it follows the desktop's appearance at launch.
    paintWindowFrame(painter, rect(), Palette::of(m_appearance));
}

} // namespace brisklog
