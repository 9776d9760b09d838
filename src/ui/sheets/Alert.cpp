#include "ui/sheets/Alert.h"

#include "ui/controls/Button.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Symbols.h"
#include "ui/sheets/Sheets.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int width = 340;
constexpr int padding = 20;
constexpr int paddingBottom = 16;
constexpr int tileSize = 36;
constexpr int tileRadius = 10;
constexpr int symbolSize = 20;
constexpr int gap = 12;
constexpr int buttonWidth = 96;
constexpr int availableTextWidth = width - 2 * padding - tileSize - gap;

/// The red triangle in its tile.
class WarningTile final : public QWidget {
public:
    WarningTile() { setFixedSize(tileSize, tileSize); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const Palette& palette = Palette::current();
        fillRounded(painter, rect(), tileRadius, withOpacity(palette.redFill, 0.12));
        paintSymbol(painter, rect(), u"exclamationmark.triangle.fill"_s, symbolSize, palette.red);
    }
};

Label* wrapped(const QString& text, FontRole font, ColorRole color) {
    auto* label = new Label(text, font, color, Label::Lines::wrapped);
    label->setFixedSize(availableTextWidth, label->heightForWidth(availableTextWidth));
    return label;
}

Button* alertButton(const QString& caption, Button::Kind kind) {
    auto* button = new Button(caption, kind);
    button->setMinimumWidth(buttonWidth);
    return button;
}

} // namespace

SheetWindow& presentAlert(QWidget& from, const AlertContent& content, std::function<void()> confirmed) {
    auto sheet = std::make_unique<SheetWindow>(content.title, QSize(width, 0), SheetWindow::Chrome::bare);
    SheetWindow& alert = *sheet;
    auto* cancel = alertButton(u"Abbrechen"_s, Button::Kind::secondary);
    auto* action = alertButton(content.actionCaption, Button::Kind::alertDestructive);
    cancel->onClick([&alert] { alert.dismiss(); });
    action->onClick([&alert, confirmed = std::move(confirmed)] {
        alert.onClosed(confirmed);
        alert.dismiss();
    });
    auto* body = asWidget(
        Column{Row{aligned(new WarningTile, Qt::AlignTop),
                   Column{asHeading(wrapped(content.title, FontRole::heading15, &Palette::text)), space(4),
                          wrapped(content.message, FontRole::body13, &Palette::secondary), stretch()}}
                   .spacing(gap),
               space(18), Row{stretch(), cancel, action}.spacing(8)}
            .margins({padding, padding, padding, paddingBottom}));
    alert.setBody(body, SheetWindow::Body::fixed);
    alert.setAccessibleDescription(content.message);
    alert.resize(width, body->sizeHint().height());
    cancel->focusVisibly();
    return presentSheet(from, std::move(sheet));
}

} // namespace brisklog
