#pragma once

#include <QAccessible>
#include <QString>
#include <QStringList>
#include <vector>

class QWidget;

namespace brisklog::test {

/// What a screen reader is told while one of these exists, and what it can ask and do. One at a time.
class ScreenReader {
public:
    struct Event {
        QAccessible::Event type;
        QAccessible::Role role;
        /// The name of what it is about.
        QString name;
    };

    ScreenReader();
    ~ScreenReader();
    ScreenReader(const ScreenReader&) = delete;
    ScreenReader& operator=(const ScreenReader&) = delete;

    [[nodiscard]] const std::vector<Event>& events() const { return m_events; }

    /// How often it was told this of something with that name.
    [[nodiscard]] long count(QAccessible::Event type, const QString& name) const;

    /// What was announced: the notifications that appeared, the oldest first.
    [[nodiscard]] QStringList announced() const;

    void forget() { m_events.clear(); }

    [[nodiscard]] static QAccessibleInterface& of(QWidget& widget);

    [[nodiscard]] static QAccessible::Role roleOf(QWidget& widget) { return of(widget).role(); }

    [[nodiscard]] static QStringList actionsOf(QAccessibleInterface& thing);

    /// Does it through the action interface, as over the bus, and lets the program go on.
    static void act(QAccessibleInterface& thing, const QString& action);

private:
    std::vector<Event> m_events;
};

} // namespace brisklog::test
