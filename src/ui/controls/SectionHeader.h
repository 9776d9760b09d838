#pragma once

#include <QLabel>

namespace brisklog {

struct Palette;

/// Paints a symbol and a title in the headline font, for delegates. In the light scheme the symbol is blue
/// and the title has the text colour; in the dark scheme both are white.
void paintSectionHeader(QPainter& painter, const QRect& area, const QString& title, const QString& symbol,
                        const Palette& palette);

/// The symbol and the title as a widget.
class SectionHeader final : public QLabel {
public:
    SectionHeader(const QString& title, const QString& systemImage, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_systemImage;
};

} // namespace brisklog
