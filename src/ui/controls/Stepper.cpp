#include "ui/controls/Stepper.h"

#include "ui/look/Keys.h"
#include "ui/look/Painting.h"
#include "ui/look/Symbols.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int padding = 10;
/// The toolkit adds 2 pixels on both sides of the text.
constexpr int toolkitMargin = 2;
constexpr int symbolSize = 15;
/// Enough for "12:30".
constexpr int longestTyped = 5;

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

/// Digits, and what may stand between them in a duration.
bool mayBeTyped(QChar c) { return isDigit(c) || c == u':' || c == u',' || c == u'.'; }

bool isWholeNumber(const QString& text) {
    return !text.isEmpty() && std::all_of(text.cbegin(), text.cend(), isDigit);
}

} // namespace

Stepper::Stepper(int minimum, int maximum, const QString& unit, const QString& name, QWidget* parent)
    : QSpinBox(parent) {
    setRange(minimum, maximum);
    setSuffix(unit);
    setKeyboardTracking(false);
    setFrame(false);
    setFont(fontFor(FontRole::body13));
    setAccessibleName(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    lineEdit()->setTextMargins(padding - toolkitMargin, 0, 0, 0);
    clearGround(*this);
    // The toolkit tells screen readers the step under this name, and says nothing when the number changes.
    setProperty("stepSize", singleStep());
    connect(this, &QSpinBox::valueChanged, this, [this](int number) {
        QAccessibleValueChangeEvent changed(this, number);
        QAccessible::updateAccessibility(&changed);
    });
}

void Stepper::setNumber(int number) {
    // Setting the same number would discard what is being typed.
    if (number == value())
        return;
    m_isSettingNumber = true;
    setValue(number);
    m_isSettingNumber = false;
}

void Stepper::onStepped(std::function<void(int)> stepped) {
    connect(this, &QSpinBox::valueChanged, this, [this, stepped = std::move(stepped)](int number) {
        if (!m_isSettingNumber)
            stepped(number);
    });
}

void Stepper::onTypedText(std::function<void(const QString&)> typed) { m_typedText = std::move(typed); }

QString Stepper::withoutUnit(const QString& text) const {
    return text.endsWith(suffix()) ? text.chopped(suffix().size()) : text;
}

QValidator::State Stepper::validate(QString& text, int& /*position*/) const {
    const QString typed = withoutUnit(text);
    if (typed.size() > longestTyped || !std::all_of(typed.cbegin(), typed.cend(), mayBeTyped))
        return QValidator::Invalid;
    return isWholeNumber(typed) ? QValidator::Acceptable : QValidator::Intermediate;
}

int Stepper::valueFromText(const QString& text) const {
    return std::clamp(withoutUnit(text).toInt(), minimum(), maximum());
}

bool Stepper::isBeingTyped() const { return cleanText() != textFromValue(value()); }

void Stepper::takeOver() {
    const QString typed = cleanText();
    if (isWholeNumber(typed))
        return interpretText();
    restoreNumber();
    if (m_typedText && std::any_of(typed.cbegin(), typed.cend(), isDigit))
        m_typedText(typed);
}

void Stepper::restoreNumber() { setValue(value()); }

void Stepper::stepBy(int steps) {
    takeOver();
    QSpinBox::stepBy(steps);
}

void Stepper::keyPressEvent(QKeyEvent* event) {
    if (isControlReturn(*event))
        return event->ignore();
    const bool isTaken = isReturn(*event);
    if (!isBeingTyped() || (!isTaken && event->key() != Qt::Key_Escape))
        return QSpinBox::keyPressEvent(event);
    isTaken ? takeOver() : restoreNumber();
    selectAll();
}

void Stepper::focusOutEvent(QFocusEvent* event) {
    takeOver();
    QSpinBox::focusOutEvent(event);
}

void Stepper::wheelEvent(QWheelEvent* event) { event->ignore(); }

void Stepper::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintField(painter, rect(),
               {.isHovered = underMouse(), .isFocused = hasFocus(), .isEnabled = isEnabled()},
               Palette::current());
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    paintPart(painter, option, QStyle::SC_SpinBoxDown);
    paintPart(painter, option, QStyle::SC_SpinBoxUp);
}

void Stepper::paintPart(QPainter& painter, const QStyleOptionSpinBox& option, QStyle::SubControl part) const {
    const Palette& palette = Palette::current();
    const QRect area = style()->subControlRect(QStyle::CC_SpinBox, &option, part, this);
    const bool isMinus = part == QStyle::SC_SpinBoxDown;
    const bool canStep = isEnabled() && stepEnabled().testFlag(isMinus ? StepDownEnabled : StepUpEnabled);
    // Inside the frame, so that the field's edge stays visible.
    if (canStep && option.activeSubControls == part)
        fillRounded(painter, area.adjusted(2, 2, -2, -2), 4,
                    withOpacity(palette.control, option.state.testFlag(QStyle::State_Sunken) ? 0.9 : 0.7));
    const int inset = hasFocus() ? 2 : 1;
    paintHairline(painter, QRect(area.x(), inset, 1, height() - 2 * inset),
                  withOpacity(palette.secondary, 0.2));
    paintSymbol(painter, area, isMinus ? u"minus"_s : u"plus"_s, symbolSize,
                canStep ? palette.text : palette.disabled());
}

} // namespace brisklog
