#include "ui/controls/EmptyState.h"

#include "ui/controls/Button.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Symbols.h"

#include <QPainter>

namespace brisklog {
namespace {

constexpr int widestSentence = 290;

/// The disc with the symbol in it.
class Disc final : public QWidget {
public:
    Disc(const QString& symbol, int size) : m_symbol(symbol) { setFixedSize(size, size); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const Palette& palette = Palette::current();
        fillRounded(painter, rect(), width() / 2.0, withOpacity(palette.control, 0.5));
        paintSymbol(painter, rect(), m_symbol, width() / 2, palette.secondary);
    }

private:
    QString m_symbol;
};

Label* sentenceLabel(const QString& sentence) {
    auto* label = new Label(sentence, FontRole::body13, &Palette::secondary, Label::Lines::wrapped);
    label->setAlignment(Qt::AlignHCenter);
    const int width = std::min(widestSentence, label->sizeHint().width());
    label->setFixedSize(width, label->heightForWidth(width));
    return label;
}

} // namespace

EmptyState::EmptyState(const Content& content, Place place, QWidget* parent) : QWidget(parent) {
    auto* disc = new Disc(content.symbol, place == Place::sheet ? 88 : 72);
    Column column{
        stretch(), aligned(disc, Qt::AlignHCenter),
        space(14), aligned(asHeading(new Label(content.headline, FontRole::heading15)), Qt::AlignHCenter),
        space(4),  aligned(sentenceLabel(content.sentence), Qt::AlignHCenter)};
    if (!content.buttonCaption.isEmpty()) {
        auto* button = new Button(content.buttonCaption, Button::Kind::primary);
        button->onClick(content.action);
        column.add(space(18)).add(aligned(button, Qt::AlignHCenter));
    }
    column.add(stretch()).applyTo(*this);
}

} // namespace brisklog
