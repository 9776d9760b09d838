#include "ui/look/Announcements.h"

#include <QAccessibleObject>
#include <QTimer>
#include <QWidget>
#include <algorithm>

namespace brisklog {

/// One announcement. A new one each time: screen readers ask for its text later, when the next may have come.
class Announcements::Notification final : public QObject {
public:
    Notification(const Announcements& place, const QString& text) : m_place(place), m_text(text) {}

    [[nodiscard]] const Announcements& place() const { return m_place; }

    [[nodiscard]] const QString& text() const { return m_text; }

private:
    const Announcements& m_place;
    const QString m_text;
};

namespace {

/// Long enough for screen readers to ask for its text; after that nobody should come across it.
constexpr int shownMilliseconds = 10000;
/// At once.
constexpr std::size_t mostNotifications = 8;

class NotificationAccessible final : public QAccessibleObject {
public:
    explicit NotificationAccessible(Announcements::Notification& notification)
        : QAccessibleObject(&notification), m_notification(notification) {}

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Notification; }

    [[nodiscard]] QAccessible::State state() const override { return {}; }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? m_notification.text() : QString();
    }

    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(const_cast<Announcements*>(&m_notification.place()));
    }

    [[nodiscard]] int childCount() const override { return 0; }

    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

private:
    const Announcements::Notification& m_notification;
};

class AnnouncementsAccessible final : public QAccessibleObject {
public:
    explicit AnnouncementsAccessible(Announcements& announcements)
        : QAccessibleObject(&announcements), m_announcements(announcements) {}

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::StatusBar; }

    [[nodiscard]] QAccessible::State state() const override { return {}; }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? QStringLiteral("Meldungen") : QString();
    }

    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(m_announcements.parent());
    }

    [[nodiscard]] int childCount() const override {
        return static_cast<int>(m_announcements.notifications().size());
    }

    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        const bool exists = index >= 0 && index < childCount();
        return exists ? QAccessible::queryAccessibleInterface(
                            m_announcements.notifications()[static_cast<std::size_t>(index)].get())
                      : nullptr;
    }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        const auto& all = m_announcements.notifications();
        const auto found =
            std::ranges::find(all, child->object(), [](const auto& each) { return each.get(); });
        return found == all.end() ? -1 : static_cast<int>(found - all.begin());
    }

private:
    const Announcements& m_announcements;
};

QAccessibleInterface* announcementsAccessible(const QString& className, QObject* object) {
    if (className != QLatin1String("QObject"))
        return nullptr;
    if (auto* const notification = dynamic_cast<Announcements::Notification*>(object))
        return new NotificationAccessible(*notification);
    auto* const announcements = dynamic_cast<Announcements*>(object);
    return announcements != nullptr ? new AnnouncementsAccessible(*announcements) : nullptr;
}

} // namespace

void Announcements::install() { QAccessible::installFactory(announcementsAccessible); }

Announcements::Announcements(QWidget& window) : QObject(&window) {}

Announcements::~Announcements() = default;

Announcements* Announcements::in(const QWidget& window) {
    for (QObject* const child : window.children())
        if (auto* const found = dynamic_cast<Announcements*>(child))
            return found;
    return nullptr;
}

Announcements& Announcements::of(QWidget& window) {
    Announcements* const known = in(window);
    return known != nullptr ? *known : *new Announcements(window);
}

void Announcements::forgetOldest() {
    QAccessibleEvent hidden(m_last.front().get(), QAccessible::ObjectHide);
    QAccessible::updateAccessibility(&hidden);
    m_last.pop_front();
}

void Announcements::say(const QString& text) {
    if (m_last.size() == mostNotifications)
        forgetOldest();
    m_last.push_back(std::make_unique<Notification>(*this, text));
    QTimer::singleShot(shownMilliseconds, m_last.back().get(), [this] { forgetOldest(); });
    QAccessibleEvent shown(m_last.back().get(), QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}

} // namespace brisklog
