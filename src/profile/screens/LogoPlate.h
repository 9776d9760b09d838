#pragma once

#include <QImage>
#include <QLabel>
#include <optional>
#include <string>

namespace brisklog {

class Images;

/// The logo as it will stand on paper: on a white plate, also in the dark scheme. Without one the plate says
/// so.
class LogoPlate final : public QLabel {
public:
    explicit LogoPlate(const Images& images, QWidget* parent = nullptr);

    /// Shows the image in these bytes; none, or such that are no image, show the empty plate.
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
