#pragma once

#include <QPersistentModelIndex>
#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <random>
#include <vector>

namespace brisklog::test {

/// What the pointer can be on: a widget or, in a list, one of its rows.
struct ThingOnScreen {
    QPointer<QWidget> widget;
    bool isRow = false;
    QPersistentModelIndex row = {};

    [[nodiscard]] bool isThere() const;
    [[nodiscard]] QPoint place() const;
    [[nodiscard]] QString name() const;
};

/// Where everything that is visible in a window is at one moment.
class PlacesOfThings {
public:
    explicit PlacesOfThings(QWidget& window);

    /// What is somewhere else by now; what has gone or been hidden has not moved.
    [[nodiscard]] QStringList moved() const;

private:
    struct Placed {
        ThingOnScreen thing;
        QPoint place;
    };

    void add(QWidget& widget);

    std::vector<Placed> m_things;
};

/// A screen to press in.
struct PressedScreen {
    /// The window, opened anew where the press before has closed it.
    std::function<QWidget&()> window;
    std::vector<QSize> sizes;
    /// What a click is meant to move away from the pointer.
    std::function<bool(const ThingOnScreen&)> isMeantToMove = [](const ThingOnScreen&) { return false; };
};

/// Presses and releases the mouse at random places of the screen at each of its sizes, scrolled at random and
/// with the focus anywhere. Fails where a press moves anything, or a click moves what is under the pointer.
void pressAtRandomPlaces(const PressedScreen& screen, unsigned seed);

} // namespace brisklog::test
