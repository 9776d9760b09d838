#pragma once

#include <QAbstractButton>
#include <functional>

namespace brisklog {

class FocusRing;

/// Whatever is pressed: knows whether the pointer is over it, reacts to Space and Return, shows the focus
/// ring for the keyboard and has the press action for screen readers. Its accessible name is its text.
class Clickable : public QAbstractButton {
public:
    /// What is written on it, `&` included.
    [[nodiscard]] const QString& caption() const { return m_caption; }

    void setCaption(const QString& caption);

    /// Runs on every click, by pointer, keyboard or screen reader; never while disabled. May destroy the
    /// button.
    void onClick(std::function<void()> action);

    /// The pointer is over it, whether or not it is enabled.
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
