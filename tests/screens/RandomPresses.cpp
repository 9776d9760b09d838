#include "screens/RandomPresses.h"

#include "support/screen/ScreenTest.h"
#include "ui/lists/FloatingScrollBar.h"

#include <QAbstractEventDispatcher>
#include <QAbstractItemView>
#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

constexpr int pressesPerSize = 60;

QAbstractItemView* listOf(QWidget& viewport) {
    auto* const list = qobject_cast<QAbstractItemView*>(viewport.parentWidget());
    return list && list->viewport() == &viewport ? list : nullptr;
}

ThingOnScreen thingAt(QWidget& window, const QPoint& point) {
    QWidget* const child = window.childAt(point);
    if (!child)
        return {&window};
    const auto* const list = listOf(*child);
    const QModelIndex row = list ? list->indexAt(child->mapFrom(&window, point)) : QModelIndex();
    return {child, row.isValid(), row};
}

/// Lets the toolkit's timers in the window fire now.
void letTimersFire(QWidget& window) {
    for (QWidget* const widget : window.findChildren<QWidget*>())
        for (const auto& timer : QAbstractEventDispatcher::instance()->registeredTimers(widget)) {
            QTimerEvent due(timer.timerId);
            QCoreApplication::sendEvent(widget, &due);
        }
    settle();
}

/// Ends whatever a click has opened over the window.
void closeAllAbove(QWidget& window) {
    while (QWidget* const popup = QApplication::activePopupWidget()) {
        popup->close();
        settle();
    }
    while (QWidget* const modal = QApplication::activeModalWidget()) {
        if (modal == &window)
            break;
        modal->close();
        settle();
    }
}

/// The hand at the mouse.
class RandomHand {
public:
    RandomHand(const PressedScreen& screen, unsigned seed) : m_screen(screen), m_random(seed) {}

    void pressOnce(const QSize& size) {
        QWidget& window = m_screen.window();
        window.resize(size);
        showActive(window);
        scroll(window);
        walk(window);
        click(window, {upTo(window.width() - 1), upTo(window.height() - 1)});
    }

private:
    [[nodiscard]] int upTo(int most) { return std::uniform_int_distribution(0, std::max(0, most))(m_random); }

    void scroll(QWidget& window) {
        for (const auto* const area : window.findChildren<QAbstractScrollArea*>())
            if (area->isVisible())
                area->verticalScrollBar()->setValue(upTo(area->verticalScrollBar()->maximum()));
        settle();
    }

    /// Sometimes the keyboard has been used before the mouse.
    void walk(QWidget& window) {
        for (int steps = std::max(0, upTo(12) - 6); steps > 0 && window.focusWidget(); --steps)
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        settle();
    }

    void click(QWidget& window, const QPoint& point) {
        const ThingOnScreen pressed = thingAt(window, point);
        const QPoint place = pressed.place();
        const QPointer<QWidget> open = &window;
        const PlacesOfThings before(window);
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, point);
        settle();
        EXPECT_EQ(before.moved().join(u", "_s).toStdString(), "") << "pressed " << describe(pressed, point);
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, point);
        settle();
        if (open)
            letTimersFire(window);
        if (pressed.isThere() && !m_screen.isMeantToMove(pressed)) {
            EXPECT_TRUE(pressed.place() == place) << "clicked " << describe(pressed, point);
        }
        if (open)
            closeAllAbove(window);
    }

    static std::string describe(const ThingOnScreen& thing, const QPoint& point) {
        return u"%1 at %2, %3"_s.arg(thing.name()).arg(point.x()).arg(point.y()).toStdString();
    }

    const PressedScreen& m_screen;
    std::mt19937 m_random;
};

} // namespace

bool ThingOnScreen::isThere() const { return widget && widget->isVisible() && (!isRow || row.isValid()); }

QPoint ThingOnScreen::place() const {
    const QPoint inWidget = row.isValid() ? listOf(*widget)->visualRect(row).topLeft() : QPoint();
    return widget->mapTo(widget->window(), inWidget);
}

QString ThingOnScreen::name() const {
    if (!widget)
        return u"something gone"_s;
    const QString what =
        accessibleNameOf(*widget) + u'/' + QString::fromLatin1(widget->metaObject()->className());
    return row.isValid() ? u"row %1 of "_s.arg(row.row()) + what : what;
}

PlacesOfThings::PlacesOfThings(QWidget& window) {
    for (QWidget* const widget : window.findChildren<QWidget*>())
        if (widget->isVisible() && widget->window() == &window && !dynamic_cast<FloatingScrollBar*>(widget))
            add(*widget);
}

void PlacesOfThings::add(QWidget& widget) {
    m_things.push_back({{&widget}, widget.mapTo(widget.window(), QPoint())});
    const auto* const list = listOf(widget);
    if (!list || !list->model())
        return;
    const QRect seen = widget.visibleRegion().boundingRect();
    for (int row = 0; row < list->model()->rowCount(); ++row)
        if (const QModelIndex index = list->model()->index(row, 0);
            list->visualRect(index).intersects(seen)) {
            const ThingOnScreen thing{&widget, true, index};
            m_things.push_back({thing, thing.place()});
        }
}

QStringList PlacesOfThings::moved() const {
    QStringList names;
    for (const Placed& placed : m_things)
        if (placed.thing.isThere() && placed.thing.place() != placed.place)
            names.append(placed.thing.name());
    return names;
}

void pressAtRandomPlaces(const PressedScreen& screen, unsigned seed) {
    RandomHand hand(screen, seed);
    for (const QSize& size : screen.sizes)
        for (int press = 0; press < pressesPerSize && !::testing::Test::HasFailure(); ++press)
            hand.pressOnce(size);
}

} // namespace brisklog::test
