#pragma once

#include "platform/Appearance.h"

#include <QImage>
#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

namespace brisklog::test {

/// The ground every test with widgets stands on: an application on the offscreen platform with our look in
/// the light scheme and without motion. Nothing is read from or written to the user's home.
class ScreenTest : public ::testing::Test {
protected:
    ScreenTest();
};

/// Shows the widget as the active window and lets everything pending happen.
void showActive(QWidget& widget);

/// Lets queued announcements, layouts and paints happen.
void settle();

/// Moves the pointer over the widget, or away from it.
void hover(QWidget& widget);
void unhover(QWidget& widget);

/// What the widget looks like at that pixel ratio.
[[nodiscard]] QImage picture(QWidget& widget, qreal devicePixelRatio = 1);

/// The first descendant of that type that is visible and has this accessible name or text; null without one.
template <class T>
[[nodiscard]] T* findNamed(QWidget& root, const QString& name) {
    for (T* child : root.findChildren<T*>())
        if (child->accessibleName() == name || child->property("text").toString() == name)
            return child;
    return nullptr;
}

} // namespace brisklog::test
