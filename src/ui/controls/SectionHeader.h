#pragma once

#include <QLabel>
#include <QString>

namespace brisklog {

/// A symbol and a title in the headline font. Light: symbol blue, title in the text colour; dark: both white.
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
