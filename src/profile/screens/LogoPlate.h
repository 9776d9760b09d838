#pragma once

#include <QImage>
#include <QLabel>
#include <optional>
#include <string>

namespace brisklog {

class Images;

/// The logo as it will look on paper: on a white plate, in the dark scheme too. Without a logo the plate says
/// so.
class LogoPlate final : public QLabel {
public:
    explicit LogoPlate(const Images& images, QWidget* parent = nullptr);

    /// Shows the image in these bytes, or the empty plate when there are none or they cannot be decoded.
    void setLogo(const std::optional<std::string>& bytes);

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintLogo(QPainter& painter) const;
    void paintEmpty(QPainter& painter) const;

    const Images& m_images;
    QImage m_logo;
};

} // namespace brisklog
