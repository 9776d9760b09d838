#pragma once

#include <QAbstractButton>
#include <functional>

namespace brisklog {

class FocusRing;

/// The base of everything that can be pressed: tracks whether the pointer is over it, reacts to Space and
/// Return, shows the focus ring for the keyboard and has the press action for screen readers. Its accessible
/// name is its text.
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

protected:
    explicit Clickable(int radius, QWidget* parent = nullptr);

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
