#include "ui/controls/DateTimeField.h"

#include "ui/controls/MonthPopup.h"
#include "ui/look/Keys.h"
#include "ui/look/Painting.h"
#include "ui/look/Symbols.h"

#include <QAccessible>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int padding = 10;
/// The toolkit adds 2 pixels on both sides of the text.
constexpr int toolkitMargin = 2;
constexpr int symbolSize = 14;
constexpr int symbolArea = 30;
constexpr const char* accessibleValue = "value";

} // namespace

DateTimeField::DateTimeField(const QString& name, Qt::DayOfWeek firstWeekday, QWidget* parent)
    : QDateTimeEdit(parent), m_firstWeekday(firstWeekday) {
    setTimeSpec(Qt::UTC);
    setLocale(QLocale(QLocale::German, QLocale::Germany));
    setDisplayFormat(u"dd.MM.yyyy, HH:mm"_s);
    setButtonSymbols(NoButtons);
    setFrame(false);
    setFont(fontFor(FontRole::body13));
    setAccessibleName(name);
    setAccessibleDescription(u"Alt und Pfeil nach unten öffnet den Kalender."_s);
    setProperty("minimum", static_cast<double>(minimumDate().toJulianDay()));
    setProperty("maximum", static_cast<double>(maximumDate().toJulianDay()));
    setProperty("stepSize", 1.0);
    connect(this, &QDateTimeEdit::dateTimeChanged, this, [this] { announceMoment(); });
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    clearGround(*this);
}

/// To screen readers the field is a number with a text, and they read the number from that property: the day,
/// so that they can step it.
void DateTimeField::announceMoment() {
    setProperty(accessibleValue, static_cast<double>(date().toJulianDay()));
    QAccessibleValueChangeEvent changed(this, property(accessibleValue));
    QAccessible::updateAccessibility(&changed);
}

bool DateTimeField::event(QEvent* event) {
    if (event->type() == QEvent::DynamicPropertyChange &&
        static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName() == accessibleValue)
        setDate(QDate::fromJulianDay(property(accessibleValue).toLongLong()));
    return QDateTimeEdit::event(event);
}

void DateTimeField::setMoment(const QDateTime& moment) {
    if (date() == moment.date() && time() == moment.time())
        return;
    m_isSettingMoment = true;
    setDateTime(QDateTime(moment.date(), moment.time(), Qt::UTC));
    m_isSettingMoment = false;
}

void DateTimeField::onEdited(std::function<void(const QDateTime&)> edited) {
    connect(this, &QDateTimeEdit::dateTimeChanged, this,
            [this, edited = std::move(edited)](const QDateTime& moment) {
                if (!m_isSettingMoment)
                    edited(moment);
            });
}

QWidget* DateTimeField::showCalendar() {
    if (m_calendar)
        return m_calendar;
    auto* const calendar =
        new MonthPopup(*this, date(), m_firstWeekday, [self = QPointer(this)](const QDate& day) {
            if (self)
                self->setDate(day);
        });
    m_calendar = calendar;
    calendar->open();
    return calendar;
}

QRect DateTimeField::symbolRect() const { return {width() - symbolArea, 0, symbolArea, height()}; }

void DateTimeField::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    paintField(painter, rect(),
               {.isHovered = underMouse(), .isFocused = hasFocus(), .isEnabled = isEnabled()}, palette);
    const QColor resting = isEnabled() ? palette.secondary : palette.disabled();
    paintSymbol(painter, symbolRect(), u"calendar"_s, symbolSize, m_isSymbolHovered ? palette.text : resting);
}

void DateTimeField::placeLine() {
    const int left = padding - toolkitMargin;
    lineEdit()->setGeometry(left, 0, width() - left - symbolArea, height());
}

void DateTimeField::resizeEvent(QResizeEvent* event) {
    QDateTimeEdit::resizeEvent(event);
    placeLine();
}

void DateTimeField::changeEvent(QEvent* event) {
    QDateTimeEdit::changeEvent(event);
    placeLine();
}

void DateTimeField::mousePressEvent(QMouseEvent* event) {
    if (symbolRect().contains(event->position().toPoint()))
        showCalendar();
    else
        QDateTimeEdit::mousePressEvent(event);
}

void DateTimeField::mouseMoveEvent(QMouseEvent* event) {
    m_isSymbolHovered = symbolRect().contains(event->position().toPoint());
    update();
    QDateTimeEdit::mouseMoveEvent(event);
}

void DateTimeField::leaveEvent(QEvent* event) {
    m_isSymbolHovered = false;
    update();
    QDateTimeEdit::leaveEvent(event);
}

void DateTimeField::enterEvent(QEnterEvent* event) {
    update();
    QDateTimeEdit::enterEvent(event);
}

void DateTimeField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier))
        showCalendar();
    else if (isControlReturn(*event))
        event->ignore();
    else
        QDateTimeEdit::keyPressEvent(event);
}

void DateTimeField::wheelEvent(QWheelEvent* event) { event->ignore(); }

} // namespace brisklog
