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

/// Describes a picker to screen readers. Its name says what is chosen; the choice is its text, all of it
/// selected as in a field whose text is replaced as a whole. The toolkit has no text at all, and would use
/// the choice as the name.
class PickerAccessible final : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit PickerAccessible(Picker& picker) : QAccessibleWidget(&picker, QAccessible::ComboBox) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? choice() : QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = picker().isOpen();
        state.collapsed = !picker().isOpen();
        return state;
    }

    [[nodiscard]] int childCount() const override { return 0; }

    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }

    [[nodiscard]] QStringList actionNames() const override {
        return widget()->isEnabled() ? QStringList{showMenuAction()} + QAccessibleWidget::actionNames()
                                     : QStringList();
    }

    void doAction(const QString& name) override {
        if (name == showMenuAction() && widget()->isEnabled())
            picker().showPopup();
        else
            QAccessibleWidget::doAction(name);
    }

    // The text

    [[nodiscard]] QString text(int start, int end) const override { return choice().mid(start, end - start); }

    [[nodiscard]] int characterCount() const override { return static_cast<int>(choice().size()); }

    [[nodiscard]] int cursorPosition() const override { return 0; }

    [[nodiscard]] int selectionCount() const override { return 1; }

    void selection(int /*index*/, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
    }

    [[nodiscard]] QRect characterRect(int /*offset*/) const override { return rect(); }

    [[nodiscard]] int offsetAtPoint(const QPoint& /*point*/) const override { return 0; }

    [[nodiscard]] QString attributes(int /*offset*/, int* start, int* end) const override {
        selection(0, start, end);
        return {};
    }

    // It can only be chosen.
    void addSelection(int /*start*/, int /*end*/) override {}

    void removeSelection(int /*index*/) override {}

    void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}

    void setCursorPosition(int /*position*/) override {}

    void scrollToSubstring(int /*start*/, int /*end*/) override {}

protected:
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }

private:
    [[nodiscard]] Picker& picker() const { return *static_cast<Picker*>(widget()); }

    [[nodiscard]] QString choice() const { return picker().shownText(); }
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
    connect(this, &QComboBox::currentIndexChanged, this, [this] { announceChoice(); });
}

/// The toolkit announces a changed value, which screen readers do not speak for want of a selection to look
/// up.
void Picker::announceChoice() {
    QAccessibleTextInsertEvent chosen(this, 0, shownText());
    QAccessible::updateAccessibility(&chosen);
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
