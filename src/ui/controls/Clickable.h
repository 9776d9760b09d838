#pragma once

#include <QAbstractButton>
#include <functional>
#include <optional>

namespace brisklog {

class FocusRing;

/// The base of everything that can be pressed: tracks whether the pointer is over it, reacts to Space and
/// Return, shows the focus ring for the keyboard and can be pressed by screen readers. Its accessible name is
/// its text; for screen readers it is a button, or what `setAccessibleRole` says.
class Clickable : public QAbstractButton {
public:
    /// The text on it, including any `&`.
    [[nodiscard]] const QString& caption() const { return m_caption; }

    void setCaption(const QString& caption);

    /// Runs on every click, by pointer, keyboard or screen reader; never while disabled. May destroy the
    /// button.
    void onClick(std::function<void()> action);

    /// Whether the pointer is over it, enabled or not.
    [[nodiscard]] bool isHovered() const { return m_isHovered; }

    /// Takes the focus and shows the ring, as if reached with Tab.
    void focusVisibly();

    /// Whether it is the one chosen of several, such as the tab that is shown; nothing for what is no choice.
    [[nodiscard]] virtual std::optional<bool> isChosen() const { return std::nullopt; }

protected:
    explicit Clickable(int radius, QWidget* parent = nullptr);

    /// Tells screen readers that `isChosen` has changed.
    void announceChoice();

    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    FocusRing& m_focusRing;
    QString m_caption;
    bool m_isHovered = false;
};

} // namespace brisklog
