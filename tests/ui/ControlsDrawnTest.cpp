// What the controls look like in each of their states.

#include "support/screen/Drawing.h"
#include "support/screen/ScreenTest.h"
#include "ui/controls/Button.h"
#include "ui/controls/Card.h"
#include "ui/controls/CheckBox.h"
#include "ui/controls/CountBadge.h"
#include "ui/controls/DateTimeField.h"
#include "ui/controls/EmptyState.h"
#include "ui/controls/NavigationButton.h"
#include "ui/controls/Picker.h"
#include "ui/controls/SectionHeader.h"
#include "ui/controls/Stepper.h"
#include "ui/controls/Switch.h"
#include "ui/controls/SymbolButton.h"
#include "ui/controls/TextArea.h"
#include "ui/controls/TextField.h"
#include "ui/look/Figures.h"
#include "ui/look/Hairline.h"
#include "ui/look/Layout.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

enum class ControlState { resting, hovered, pressed, focused, disabled };

QString stateName(ControlState state) {
    switch (state) {
    case ControlState::resting:
        return u"at rest"_s;
    case ControlState::hovered:
        return u"hovered"_s;
    case ControlState::pressed:
        return u"pressed"_s;
    case ControlState::focused:
        return u"focused"_s;
    case ControlState::disabled:
        return u"disabled"_s;
    }
    return {};
}

class ControlsDrawn : public ScreenTest {
protected:
    static constexpr QSize windowSize{300, 120};

    /// Adds the control in that state, in a window of its own.
    template <class Control>
    void add(const QString& caption, Control* control, ControlState state = ControlState::resting) {
        QWidget window;
        showIn(window, control);
        put(*control, state);
        settle();
        states.add(u"%1, %2"_s.arg(caption, stateName(state)), window);
    }

    /// Shows the control in the window, without the focus.
    static void showIn(QWidget& window, QWidget* control) {
        Column{Row{control, stretch()}, stretch()}.margins(10).applyTo(window);
        auto* const focused = new QWidget(&window);
        focused->setFocusPolicy(Qt::StrongFocus);
        focused->setFocus();
        window.resize(windowSize);
        showActive(window);
    }

    /// Adds all states of what `make` makes.
    template <class Make>
    void addStates(const QString& caption, const Make& make, std::initializer_list<ControlState> wanted) {
        for (const ControlState state : wanted)
            add(caption, make(), state);
    }

    static void put(QWidget& control, ControlState state) {
        if (state == ControlState::hovered || state == ControlState::pressed)
            pointAt(control);
        if (state == ControlState::pressed)
            qobject_cast<QAbstractButton*>(&control)->setDown(true);
        if (state == ControlState::focused)
            control.setFocus(Qt::TabFocusReason);
        if (state == ControlState::disabled)
            control.setEnabled(false);
    }

    /// As when the pointer enters it.
    static void pointAt(QWidget& control) {
        control.setAttribute(Qt::WA_UnderMouse);
        hover(control);
    }

    static void movePointer(QWidget& control, const QPoint& place) {
        pointAt(control);
        QMouseEvent move(QEvent::MouseMove, place, control.mapToGlobal(QPointF(place)), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&control, &move);
    }

    DrawnStates states;
};

constexpr std::initializer_list<ControlState> everyControlState{ControlState::resting, ControlState::hovered,
                                                                ControlState::pressed, ControlState::focused,
                                                                ControlState::disabled};

TEST_F(ControlsDrawn, button) {
    using Kind = Button::Kind;
    for (const auto& [name, kind] : {std::pair{u"primary"_s, Kind::primary},
                                     {u"secondary"_s, Kind::secondary},
                                     {u"destructive"_s, Kind::destructive},
                                     {u"destructive in an alert"_s, Kind::alertDestructive},
                                     {u"textual"_s, Kind::textual}})
        addStates(
            name, [kind = kind] { return new Button(u"Sichern"_s, kind); }, everyControlState);
    add(u"small"_s, new Button(u"Alle"_s, Kind::secondary, Button::Size::small));
    add(u"small and primary"_s, new Button(u"Alle"_s, Kind::primary, Button::Size::small));
    add(u"tall"_s, new Button(u"Start"_s, Kind::primary, Button::Size::tall));
    states.expectAccepted(u"control-button"_s);
}

TEST_F(ControlsDrawn, buttonWithMore) {
    const auto menu = [] {
        auto* const made = new Button(u"Notizen"_s);
        made->setSymbol(u"text.badge.checkmark"_s);
        made->setOpensMenu();
        return made;
    };
    const auto red = [] {
        auto* const made = new Button(u"Löschen"_s, Button::Kind::textual);
        made->setTextColor(&Palette::red);
        return made;
    };
    addStates(u"with symbol and menu"_s, menu, {ControlState::resting, ControlState::disabled});
    addStates(u"textual in red"_s, red, {ControlState::resting, ControlState::hovered});
    states.expectAccepted(u"control-button-more"_s);
}

TEST_F(ControlsDrawn, navigationButton) {
    const auto bar = [](bool isSelected) {
        return [isSelected] {
            return new NavigationButton(
                {.icon = u"timer"_s, .label = u"Zeiterfassung"_s, .action = {}, .isSelected = isSelected},
                NavigationButton::Form::bar);
        };
    };
    const auto row = [](bool destructive, bool accent) {
        return [destructive, accent] {
            return new NavigationButton({.icon = u"doc.text"_s,
                                         .label = u"Rechnung"_s,
                                         .action = {},
                                         .destructive = destructive,
                                         .accent = accent});
        };
    };
    addStates(u"bar"_s, bar(false), everyControlState);
    addStates(u"selected in the bar"_s, bar(true),
              {ControlState::resting, ControlState::hovered, ControlState::disabled});
    addStates(u"row"_s, row(false, false),
              {ControlState::resting, ControlState::hovered, ControlState::disabled});
    addStates(u"accent"_s, row(false, true),
              {ControlState::resting, ControlState::hovered, ControlState::disabled});
    addStates(u"destructive"_s, row(true, false),
              {ControlState::resting, ControlState::hovered, ControlState::disabled});
    add(u"symbol only"_s, new NavigationButton({.icon = u"trash"_s, .label = u"Löschen"_s, .action = {}},
                                               NavigationButton::Form::symbolOnly));
    states.expectAccepted(u"control-navigation-button"_s);
}

TEST_F(ControlsDrawn, symbolButton) {
    using Size = SymbolButton::Size;
    const auto make = [](Size size, SymbolButton::Purpose purpose) {
        return [size, purpose] { return new SymbolButton(u"trash"_s, u"Löschen"_s, size, purpose); };
    };
    const auto blue = [] {
        auto* const made = new SymbolButton(u"play.fill"_s, u"Fortsetzen"_s, Size::timer);
        made->setColor(&Palette::blue);
        return made;
    };
    addStates(u"acting"_s, make(Size::normal, SymbolButton::Purpose::acting), everyControlState);
    addStates(u"deleting"_s, make(Size::normal, SymbolButton::Purpose::deleting), everyControlState);
    addStates(u"closing"_s, make(Size::closing, SymbolButton::Purpose::acting), {ControlState::resting});
    addStates(u"of a timer, blue"_s, blue, {ControlState::resting, ControlState::hovered});
    states.expectAccepted(u"control-symbol-button"_s);
}

TEST_F(ControlsDrawn, switches) {
    const auto make = [](bool isOn) {
        return [isOn] {
            auto* const made = new Switch(u"Schalter"_s);
            made->setOn(isOn);
            return made;
        };
    };
    addStates(u"off"_s, make(false), {ControlState::resting, ControlState::focused, ControlState::disabled});
    addStates(u"on"_s, make(true), {ControlState::resting, ControlState::disabled});
    auto* const switched = new Switch(u"Schalter"_s);
    switched->click();
    add(u"switched on"_s, switched);
    states.expectAccepted(u"control-switch"_s);
}

TEST_F(ControlsDrawn, textField) {
    const auto make = [](const QString& text) {
        return [text] {
            auto* const made = new TextField(u"Projektname eingeben"_s);
            made->setFixedWidth(160);
            made->setValue(text);
            return made;
        };
    };
    addStates(u"empty"_s, make({}), {ControlState::resting, ControlState::focused});
    addStates(u"filled in"_s, make(u"Köln"_s),
              {ControlState::resting, ControlState::hovered, ControlState::focused, ControlState::disabled});
    add(u"tall"_s, new TextField(u"Aufgabe"_s, TextField::Size::tall));
    add(u"with a label above"_s, withLabelAbove(u"Ort"_s, make(u"Köln"_s)()));
    states.expectAccepted(u"control-text-field"_s);
}

TEST_F(ControlsDrawn, textArea) {
    const auto make = [](const QString& text) {
        return [text] {
            auto* const made = new TextArea(u"Anmerkungen"_s);
            made->setFixedWidth(200);
            made->setValue(text);
            return made;
        };
    };
    addStates(u"empty"_s, make({}), {ControlState::resting});
    addStates(u"filled in"_s, make(u"Bitte ohne Abzug überweisen.\nVielen Dank!"_s),
              {ControlState::resting, ControlState::hovered, ControlState::focused, ControlState::disabled});
    states.expectAccepted(u"control-text-area"_s);
}

TEST_F(ControlsDrawn, picker) {
    const auto make = [] {
        auto* const made = new Picker;
        made->setOptions({u"Aufrunden"_s, u"Abrunden"_s});
        made->setSelectedIndex(1);
        return made;
    };
    const auto unchosen = [] {
        auto* const made = new Picker;
        made->setPlaceholderText(u"Kunde wählen"_s);
        made->setOptions({u"Müller"_s});
        made->setSelectedIndex(-1);
        return made;
    };
    addStates(u"chosen"_s, make,
              {ControlState::resting, ControlState::hovered, ControlState::focused, ControlState::disabled});
    addStates(u"not chosen"_s, unchosen, {ControlState::resting});
    auto* const narrow = make();
    narrow->setFixedWidth(80);
    add(u"narrow"_s, narrow);
    states.expectAccepted(u"control-picker"_s);
}

TEST_F(ControlsDrawn, stepper) {
    const auto make = [](int number) {
        auto* const made = new Stepper(0, 23, u"h"_s, u"Stunden"_s);
        made->setNumber(number);
        return made;
    };
    for (const ControlState state :
         {ControlState::resting, ControlState::hovered, ControlState::focused, ControlState::disabled})
        add(u"in between"_s, make(2), state);
    add(u"lowest"_s, make(0));
    add(u"highest"_s, make(23));
    states.expectAccepted(u"control-stepper"_s);
}

TEST_F(ControlsDrawn, stepperUnderThePointer) {
    constexpr QPoint minusButton(60, 16);
    constexpr QPoint plusButton(90, 16);
    QWidget window;
    auto* const stepper = new Stepper(0, 23, u"h"_s, u"Stunden"_s);
    showIn(window, stepper);
    movePointer(*stepper, plusButton);
    states.add(u"on plus"_s, window);
    QTest::mousePress(stepper, Qt::LeftButton, {}, plusButton);
    states.add(u"plus pressed"_s, window);
    QTest::mouseRelease(stepper, Qt::LeftButton, {}, plusButton);
    movePointer(*stepper, minusButton);
    states.add(u"on minus"_s, window);
    stepper->setNumber(0);
    states.add(u"on a minus that cannot"_s, window);
    states.expectAccepted(u"control-stepper-pointer"_s);
}

TEST_F(ControlsDrawn, dateTimeField) {
    const auto make = [] {
        auto* const made = new DateTimeField(u"Datum"_s, Qt::Monday);
        made->setMoment(QDateTime(QDate(2026, 11, 20), QTime(14, 30)));
        return made;
    };
    addStates(u"date"_s, make,
              {ControlState::resting, ControlState::hovered, ControlState::focused, ControlState::disabled});
    QWidget window;
    auto* const field = make();
    showIn(window, field);
    movePointer(*field, {160, 16});
    states.add(u"pointer on the symbol"_s, window);
    states.expectAccepted(u"control-date-time-field"_s);
}

/// As the rows of lists paint them.
class CheckBoxes final : public QWidget {
public:
    CheckBoxes() { setFixedSize(40, 28); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        paintCheckBox(painter, {0, 0, 16, height()}, CheckBoxState::empty, Palette::current());
        paintCheckBox(painter, {24, 0, 16, height()}, CheckBoxState::ticked, Palette::current());
    }
};

TEST_F(ControlsDrawn, whatCannotBePressed) {
    add(u"check boxes"_s, new CheckBoxes);
    add(u"badge"_s, new CountBadge(128));
    add(u"section header"_s, new SectionHeader(u"Laufende Timer"_s, u"timer"_s));
    add(u"line"_s, new Hairline);
    add(u"line in a card"_s, new Hairline(Hairline::Kind::card, Qt::Vertical));
    add(u"card"_s, new Card(Column{new Label(u"Karte"_s)}, {14, 14, 14, 13}));
    for (const ControlState state : {ControlState::resting, ControlState::disabled}) {
        add(u"label"_s, new Label(u"Text"_s, FontRole::heading15, &Palette::green), state);
        add(u"figures"_s, new FigureLabel(u"01:24:07"_s, FontRole::title17, &Palette::blue), state);
    }
    states.expectAccepted(u"control-others"_s);
}

TEST_F(ControlsDrawn, emptyStates) {
    for (const auto place : {EmptyState::Place::screen, EmptyState::Place::sheet}) {
        EmptyState state({.symbol = u"timer"_s,
                          .headline = u"Keine Kunden"_s,
                          .sentence = u"Erstellen Sie Kundenprofile, um sie bei der Rechnung zu wählen."_s,
                          .buttonCaption = u"Ersten Kunden anlegen"_s,
                          .action = [] {}},
                         place);
        state.resize(370, 300);
        showActive(state);
        states.add(place == EmptyState::Place::screen ? u"in a screen"_s : u"in a sheet"_s, state);
    }
    states.expectAccepted(u"control-empty-state"_s);
}

} // namespace
} // namespace brisklog::test
