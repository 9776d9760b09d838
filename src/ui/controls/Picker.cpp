#include "ui/controls/Picker.h"

#include "ui/controls/Menu.h"
#include "ui/look/Keys.h"
#include "ui/look/Label.h"
#include "ui/look/Painting.h"
#include "ui/look/Symbols.h"

#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QToolTip>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int fieldHeight = 32;
constexpr int padding = 10;
constexpr int chevronSize = 14;
constexpr int chevronEdge = 8;
constexpr int textRight = chevronEdge + chevronSize + 4;

/// Describes a picker to screen readers: the toolkit would use its current choice as its name.
class PickerAccessible final : public QAccessibleWidget {
public:
    explicit PickerAccessible(Picker& picker) : QAccessibleWidget(&picker, QAccessible::ComboBox) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? picker().currentText() : QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QStringList actionNames() const override {
        return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        if (name == showMenuAction() || name == pressAction())
            picker().showPopup();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    [[nodiscard]] Picker& picker() const { return *static_cast<Picker*>(widget()); }
};

QAccessibleInterface* pickerAccessible(const QString&, QObject* object) {
    auto* picker = dynamic_cast<Picker*>(object);
    return picker ? new PickerAccessible(*picker) : nullptr;
}

} // namespace

Picker::Picker(QWidget* parent) : QComboBox(parent) {
    // Installing it again has no effect.
    QAccessible::installFactory(pickerAccessible);
    setFocusPolicy(Qt::StrongFocus);
    setFont(fontFor(FontRole::body13));
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void Picker::setOptions(const std::vector<QString>& options) {
    const QSignalBlocker silently(this);
    const int index = currentIndex();
    clear();
    for (const QString& option : options)
        addItem(option);
    const int count = static_cast<int>(options.size());
    setCurrentIndex(index < count ? std::max(index, 0) : 0);
    updateGeometry();
    update();
}

void Picker::setSelectedIndex(int index) {
    if (index != currentIndex())
        setCurrentIndex(index);
}

void Picker::onChosen(std::function<void(int)> chosen) {
    connect(this, &QComboBox::activated, this, [chosen = std::move(chosen)](int index) { chosen(index); });
}

void Picker::showPopup() {
    if (m_menu || count() == 0)
        return;
    MenuContent content;
    for (int i = 0; i < count(); ++i)
        content.items.push_back({.text = itemText(i),
                                 .chosen =
                                     [self = QPointer(this), i] {
                                         if (self)
                                             self->choose(i);
                                     },
                                 .isChecked = i == currentIndex()});
    m_menu = showMenu(*this, content);
}

void Picker::choose(int index) {
    setCurrentIndex(index);
    Q_EMIT activated(index);
}

void Picker::hidePopup() {
    if (m_menu)
        m_menu->close();
}

QString Picker::shownText() const { return currentIndex() < 0 ? placeholderText() : currentText(); }

QSize Picker::sizeHint() const {
    int widest = textWidth(placeholderText(), FontRole::body13);
    for (int i = 0; i < count(); ++i)
        widest = std::max(widest, textWidth(itemText(i), FontRole::body13));
    return {padding + widest + textRight, fieldHeight};
}

QSize Picker::minimumSizeHint() const { return {80, fieldHeight}; }

QRect Picker::textRect() const { return rect().adjusted(padding, 0, -textRight, 0); }

bool Picker::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || textWidth(shownText(), FontRole::body13) <= textRect().width())
        return QComboBox::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainTooltip(shownText()), this);
    return true;
}

void Picker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = Palette::current();
    paintField(painter, rect(),
               {.isHovered = underMouse(), .isFocused = hasFocus(), .isEnabled = isEnabled()}, palette);
    const QColor& text = currentIndex() < 0 ? palette.secondary : palette.text;
    paintText(painter, textRect(), shownText(), FontRole::body13, isEnabled() ? text : palette.disabled());
    paintSymbol(painter, QRect(width() - chevronEdge - chevronSize, 0, chevronSize, rect().height()),
                u"chevron.down"_s, chevronSize, isEnabled() ? palette.secondary : palette.disabled());
}

void Picker::keyPressEvent(QKeyEvent* event) {
    if (isReturn(*event) && !isControlReturn(*event))
        showPopup();
    else
        QComboBox::keyPressEvent(event);
}

void Picker::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        showPopup();
}

void Picker::wheelEvent(QWheelEvent* event) { event->ignore(); }

} // namespace brisklog
