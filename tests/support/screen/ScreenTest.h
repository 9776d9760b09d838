#pragma once

#include "platform/Appearance.h"
#include "support/screen/Printing.h"

#include <QColor>
#include <QImage>
#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

namespace brisklog::test {

/// Base of every test with widgets: an application on the offscreen platform with our look, in the light
/// scheme and without motion, the pointer beside every window. Nothing is read from or written to the user's
/// home.
class ScreenTest : public ::testing::Test {
protected:
    ScreenTest();
};

/// Shows the widget as the active window and processes everything pending.
void showActive(QWidget& widget);

/// Processes queued announcements, layouts and paints.
void settle();

/// Moves the pointer over the widget, or away from it.
void hover(QWidget& widget);
void unhover(QWidget& widget);

/// The name a screen reader says, as the toolkit provides it.
[[nodiscard]] QString accessibleNameOf(const QWidget& widget);

/// What the widget looks like at that pixel ratio, on its window's background.
[[nodiscard]] QImage picture(QWidget& widget, qreal devicePixelRatio = 1);

/// Whether two colours differ by no more than the rounding of blended channels.
[[nodiscard]] bool looksLike(const QColor& first, const QColor& second);

/// What the widget's window last painted where the widget is: unlike `picture`, without painting anew.
[[nodiscard]] QImage seenOnScreen(const QWidget& widget);

/// The first descendant of that type, hidden ones included; null when there is none. The toolkit's own search
/// knows only classes with meta-objects.
template <class T>
[[nodiscard]] T* findFirst(const QWidget& root) {
    for (QWidget* child : root.findChildren<QWidget*>())
        if (auto* match = dynamic_cast<T*>(child))
            return match;
    return nullptr;
}

/// The first descendant of that type that a screen reader would call by this name, hidden ones included; null
/// when there is none.
template <class T>
[[nodiscard]] T* findNamed(QWidget& root, const QString& name) {
    for (QWidget* child : root.findChildren<QWidget*>())
        if (auto* match = dynamic_cast<T*>(child); match && accessibleNameOf(*match) == name)
            return match;
    return nullptr;
}

} // namespace brisklog::test
