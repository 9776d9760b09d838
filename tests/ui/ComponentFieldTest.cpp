#include "ui/controls/TextArea.h"
#include "ui/controls/TextField.h"
#include "ui/look/Palette.h"

#include "support/screen/ScreenTest.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

class ComponentField : public ScreenTest {
protected:
    static void paste(QWidget& field, const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    }
};

TEST_F(ComponentField, turnsPastedLineBreaksTabsAndControlCharactersIntoBlanks) {
    TextField field;
    showActive(field);
    paste(field, u"Angebot\r\nTeil\tzwei\nEnde\u0007!\u2028x"_s);
    EXPECT_EQ(field.text(), u"Angebot Teil zwei Ende ! x"_s);
}

TEST_F(ComponentField, keepsEveryOtherPastedCharacter) {
    TextField field;
    showActive(field);
    const QString text = u"  Müller & Söhne – „GmbH“ <b>\u00a0€ 🕒  "_s;
    paste(field, text);
    EXPECT_EQ(field.text(), text);
}

TEST_F(ComponentField, keepsTheCursorBehindWhatWasPasted) {
    TextField field;
    field.setValue(u"ab"_s);
    showActive(field);
    field.setCursorPosition(1);
    paste(field, u"x\ny"_s);
    EXPECT_EQ(field.text(), u"ax yb"_s);
    EXPECT_EQ(field.cursorPosition(), 4);
}

TEST_F(ComponentField, tellsTheCleanTextWhenEditedAndNothingWhenSet) {
    TextField field;
    QStringList told;
    field.onEdited([&told](const QString& text) { told.push_back(text); });
    showActive(field);
    field.setValue(u"gesetzt"_s);
    EXPECT_TRUE(told.isEmpty());
    field.selectAll();
    paste(field, u"a\nb"_s);
    EXPECT_EQ(told, QStringList{u"a b"_s});
}

TEST_F(ComponentField, tellsWhatAScreenReaderWroteIntoIt) {
    TextField field;
    QStringList told;
    field.onEdited([&told](const QString& text) { told.push_back(text); });
    auto* const interface = QAccessible::queryAccessibleInterface(&field);
    interface->editableTextInterface()->insertText(0, u"Muster\nmann"_s);
    interface->setText(QAccessible::Value, u"Beispiel"_s);
    EXPECT_EQ(told, (QStringList{u"Muster mann"_s, u"Beispiel"_s}));
}

TEST_F(ComponentField, settingTheSameTextLeavesTheCursor) {
    TextField field;
    field.setValue(u"Navigation\nprüfen"_s);
    field.setCursorPosition(3);
    field.setValue(u"Navigation\nprüfen"_s);
    EXPECT_EQ(field.cursorPosition(), 3);
}

TEST_F(ComponentField, isNamedAfterItsPlaceholderOrTheLabelAboveIt) {
    TextField plain(u"Aufgabe eingeben"_s);
    EXPECT_EQ(accessibleNameOf(plain), u"Aufgabe eingeben"_s);
    auto* labelled = new TextField(u"85,00"_s);
    const std::unique_ptr<QWidget> group(withLabelAbove(u"Stundensatz (€, optional)"_s, labelled));
    EXPECT_EQ(accessibleNameOf(*labelled), u"Stundensatz (€, optional)"_s);
}

TEST_F(ComponentField, runsReturnAndKeepsTheFocus) {
    TextField field;
    int returns = 0;
    field.onReturn([&returns] { ++returns; });
    showActive(field);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(returns, 1);
    EXPECT_TRUE(field.hasFocus());
}

TEST_F(ComponentField, measuresAsDrawn) {
    EXPECT_EQ(TextField().sizeHint().height(), 32);
    EXPECT_EQ(TextField({}, TextField::Size::tall).sizeHint().height(), 34);
    EXPECT_EQ(TextArea().sizeHint().height(), 80);
}

TEST_F(ComponentField, showsTheLedgerLineAtRestAndABlueFrameWithTheFocus) {
    QWidget window;
    auto* field = new TextField;
    auto* other = new TextField;
    field->setParent(&window);
    other->setParent(&window);
    field->setGeometry(10, 10, 120, 32);
    other->setGeometry(10, 60, 120, 32);
    window.resize(140, 100);
    showActive(window);
    other->setFocus();
    const Palette& palette = Palette::of(ColorScheme::light);
    EXPECT_EQ(picture(*field).pixelColor(60, 31), palette.rule);
    EXPECT_EQ(picture(*field).pixelColor(60, 10), palette.field);
    EXPECT_EQ(picture(*other).pixelColor(60, 31), palette.blue);
    EXPECT_EQ(picture(*other).pixelColor(60, 30), palette.blue);
    field->setEnabled(false);
    EXPECT_PRED2(looksLike, picture(*field).pixelColor(60, 31),
                 blendedOver(withOpacity(palette.control, 0.5), palette.ground));
}

TEST_F(ComponentField, areaTellsWhatIsTypedAndNothingWhenSet) {
    TextArea area;
    QStringList told;
    area.onEdited([&told](const QString& text) { told.push_back(text); });
    showActive(area);
    area.setValue(u"Zeile 1\nZeile 2"_s);
    EXPECT_TRUE(told.isEmpty());
    area.moveCursor(QTextCursor::End);
    QTest::keyClicks(&area, u"!"_s);
    EXPECT_EQ(told, QStringList{u"Zeile 1\nZeile 2!"_s});
}

TEST_F(ComponentField, areaKeepsNoBreakSpacesAndTheCursor) {
    TextArea area;
    const QString text = u"12\u00a0€\nnetto"_s;
    area.setValue(text);
    EXPECT_EQ(area.value(), text);
    area.moveCursor(QTextCursor::End);
    area.setValue(text);
    EXPECT_TRUE(area.textCursor().atEnd());
}

TEST_F(ComponentField, areaBreaksLinesAsOftenAsReturnIsPressed) {
    TextArea area;
    area.setValue(u"ab"_s);
    showActive(area);
    area.selectAll();
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&area, Qt::Key_Return);
    QTest::keyClicks(&area, u"x"_s);
    EXPECT_EQ(area.value(), u"\n\n\nx"_s);
}

TEST_F(ComponentField, areaTakesPastedTextAsPlain) {
    TextArea area;
    showActive(area);
    paste(area, u"<b>fett</b>"_s);
    EXPECT_EQ(area.value(), u"<b>fett</b>"_s);
}

TEST_F(ComponentField, areaLeavesItsFirstTextWhenUndone) {
    TextArea area;
    area.setValue(u"Notiz"_s);
    showActive(area);
    area.undo();
    EXPECT_EQ(area.value(), u"Notiz"_s);
}

TEST_F(ComponentField, tabLeavesTheArea) {
    QWidget window;
    auto* area = new TextArea;
    auto* next = new TextField;
    area->setParent(&window);
    next->setParent(&window);
    showActive(window);
    area->setFocus();
    QTest::keyClick(area, Qt::Key_Tab);
    EXPECT_TRUE(next->hasFocus());
    EXPECT_EQ(area->value(), QString());
}

} // namespace
} // namespace brisklog::test
