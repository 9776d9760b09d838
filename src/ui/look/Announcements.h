#pragma once

#include <QObject>
#include <deque>
#include <memory>

class QString;
class QWidget;

namespace brisklog {

/// What is announced in a window: to screen readers a status bar with one notification after the other. Both
/// matter: of what appears without the focus they speak notifications alone, and only in a status bar without
/// saying "notification" before each.
class Announcements final : public QObject {
public:
    class Notification;

    /// Makes the toolkit know how they are presented.
    static void install();

    /// Those of that window; null while nothing has been announced in it.
    [[nodiscard]] static Announcements* in(const QWidget& window);
    /// The same, made where there are none. They belong to the window.
    [[nodiscard]] static Announcements& of(QWidget& window);

    ~Announcements() override;

    void say(const QString& text);

    /// The last few, the oldest first.
    [[nodiscard]] const std::deque<std::unique_ptr<Notification>>& notifications() const { return m_last; }

private:
    explicit Announcements(QWidget& window);

    void forgetOldest();

    std::deque<std::unique_ptr<Notification>> m_last;
};

} // namespace brisklog
