#include "ui/sheets/SheetWindow.h"

#include "ui/controls/Button.h"
#include "ui/controls/SymbolButton.h"
#include "ui/lists/ScrollArea.h"
#include "ui/look/Hairline.h"
#include "ui/look/Keys.h"
#include "ui/look/Label.h"
#include "ui/look/Look.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QTextEdit>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int headerHeight = 52;
constexpr int footerHeight = 56;
constexpr int paddingLeft = 20;
constexpr int headerPaddingRight = 12;
constexpr int gap = 8;
constexpr int arrivalMilliseconds = 140;
constexpr int arrivalPixels = 6;

QHBoxLayout* rowIn(QWidget& bar, const QMargins& margins) {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(margins);
    row->setSpacing(gap);
    bar.setLayout(row);
    return row;
}

bool takesTab(const QWidget& widget) {
    return (widget.focusPolicy() & Qt::TabFocus) && widget.isEnabled() && widget.isVisible();
}

bool isField(const QWidget* widget) {
    return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QTextEdit*>(widget) ||
           qobject_cast<const QComboBox*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget);
}

/// The tab stops inside the widget, in their current order.
std::vector<QWidget*> tabStopsIn(QWidget& root, QWidget& part) {
    std::vector<QWidget*> stops;
    for (QWidget* widget = root.nextInFocusChain(); widget != &root; widget = widget->nextInFocusChain())
        if ((widget == &part || part.isAncestorOf(widget)) && (widget->focusPolicy() & Qt::TabFocus))
            stops.push_back(widget);
    return stops;
}

} // namespace

SheetWindow::SheetWindow(const QString& title, const QSize& size, Chrome chrome)
    : QDialog(nullptr, Qt::Dialog | Qt::FramelessWindowHint), m_chrome(chrome), m_column(new QVBoxLayout) {
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
    setLayout(m_column);
    if (m_chrome == Chrome::full)
        buildHeader();
    setTitle(title);
    resize(size);
}

void SheetWindow::setTitle(const QString& title) {
    setWindowTitle(title);
    setAccessibleName(title);
    if (m_title)
        m_title->setValue(title);
}

void SheetWindow::buildHeader() {
    m_title = asHeading(new ElidedLabel({}, FontRole::title17));
    m_header = new QWidget;
    m_header->setFixedHeight(headerHeight - 1);
    m_headerRow = rowIn(*m_header, {paddingLeft, 0, headerPaddingRight, 0});
    m_headerRow->addWidget(m_title, 1);
    m_column->addWidget(m_header);
    m_column->addWidget(new Hairline(Hairline::Kind::separating));
}

void SheetWindow::buildFooter() {
    if (m_footer)
        return;
    m_footer = new QWidget;
    // Tells its buttons from those of the same name in the header.
    setAccessibleRole(*m_footer, QAccessible::Grouping);
    m_footer->setAccessibleName(u"Aktionen"_s);
    m_footer->setFixedHeight(footerHeight - 1);
    m_footerRow = rowIn(*m_footer, {paddingLeft, 0, paddingLeft, 0});
    m_footerRow->addStretch();
    m_column->addWidget(new Hairline(Hairline::Kind::separating));
    m_column->addWidget(m_footer);
}

void SheetWindow::setBody(QWidget* body, Body kind) {
    m_body = body;
    QWidget* shown = kind == Body::scrolling ? new ScrollArea(body) : body;
    m_column->insertWidget(m_header ? 2 : 0, shown, 1);
}

void SheetWindow::addHeaderWidget(QWidget* widget) { m_headerRow->addWidget(widget); }

void SheetWindow::setHeaderPaddingRight(int padding) {
    m_headerRow->setContentsMargins(paddingLeft, 0, padding, 0);
}

void SheetWindow::addCloseButton(const QString& tooltip, const QString& symbol) {
    auto* button = new SymbolButton(symbol, tooltip, SymbolButton::Size::closing);
    button->onClick([this] { dismiss(); });
    addHeaderWidget(button);
}

void SheetWindow::addFooterLeading(QWidget* widget) {
    buildFooter();
    m_footerRow->insertWidget(m_leadingCount++, widget);
}

void SheetWindow::addFooterTrailing(QWidget* widget) {
    buildFooter();
    m_footerRow->addWidget(widget);
}

void SheetWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    painter.fillRect(rect(), palette.ground);
    paintWindowFrame(painter, rect(), palette);
}

void SheetWindow::keyPressEvent(QKeyEvent* event) {
    if (!isReturn(*event))
        QDialog::keyPressEvent(event);
    else if (m_mainAction && m_mainAction->isVisible())
        m_mainAction->click();
}

void SheetWindow::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (m_hasAnimatedIn)
        return;
    m_hasAnimatedIn = true;
    arrangeTabOrder();
    animateIn();
}

void SheetWindow::setVisible(bool isVisible) {
    QDialog::setVisible(isVisible);
    // Only after showing: the dialog treats a focus set earlier as coming from Tab, which would select a
    // field's text and show a ring.
    if (isVisible && !focusWidget())
        focusFirstField();
}

void SheetWindow::arrangeTabOrder() {
    std::vector<QWidget*> order;
    for (QWidget* part : {m_body, m_footer, m_header})
        if (part)
            std::ranges::copy(tabStopsIn(*this, *part), std::back_inserter(order));
    for (std::size_t i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

void SheetWindow::focusFirstField() {
    for (QWidget* part : {m_body, m_footer, m_header}) {
        if (!part)
            continue;
        auto stops = tabStopsIn(*this, *part);
        std::erase_if(stops, [](const QWidget* stop) { return !takesTab(*stop); });
        const auto field = std::ranges::find_if(stops, isField);
        if (field != stops.end())
            return (*field)->setFocus(Qt::OtherFocusReason);
        if (!stops.empty())
            return stops.front()->setFocus(Qt::OtherFocusReason);
    }
}

void SheetWindow::animateIn() {
    // Only under X can a program move its windows and fade them in.
    if (!motionAllowed() || QGuiApplication::platformName() != "xcb"_L1)
        return;
    const QPoint place = pos();
    setWindowOpacity(0);
    glide(*this, 0, 1, arrivalMilliseconds, [this, place](double share) {
        setWindowOpacity(share);
        move(place.x(), place.y() + qRound((1 - share) * arrivalPixels));
    });
}

void SheetWindow::done(int result) {
    QDialog::done(result);
    end();
}

void SheetWindow::end() {
    // `m_ended` first: a window that `onClosed` opens must end up above the one that regains the focus.
    const auto kept = std::exchange(m_kept, nullptr);
    if (const auto ended = std::exchange(m_ended, nullptr))
        ended();
    for (const auto& closed : std::exchange(m_closed, {}))
        closed();
}

} // namespace brisklog
