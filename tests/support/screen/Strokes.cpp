#include "support/screen/Strokes.h"

#include "support/screen/RoleNames.h"
#include "support/screen/SymbolNames.h"

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

QString number(qreal value) {
    const double tenths = std::round(value * 10) / 10;
    return QString::number(tenths == 0 ? 0 : tenths);
}

QString pointText(const QPointF& point) { return u"%1,%2"_s.arg(number(point.x()), number(point.y())); }

QString boxText(const QRectF& box) {
    return u"%1 %2×%3"_s.arg(pointText(box.topLeft()), number(box.width()), number(box.height()));
}

bool isSame(const QPainterPath& one, const QPainterPath& other) {
    constexpr qreal rounding = 0.01;
    if (one.elementCount() != other.elementCount())
        return false;
    for (int i = 0; i < one.elementCount(); ++i)
        if ((QPointF(one.elementAt(i)) - QPointF(other.elementAt(i))).manhattanLength() > rounding)
            return false;
    return true;
}

/// The radius of a rounded rectangle, 0 of a plain one, nothing of any other path.
std::optional<qreal> cornerRadiusOf(const QPainterPath& path) {
    const QRectF box = path.boundingRect();
    QPainterPath candidate;
    candidate.addRect(box);
    if (isSame(path, candidate))
        return 0;
    const qreal radius = path.elementAt(0).y - box.top();
    candidate.clear();
    candidate.addRoundedRect(box, radius, radius);
    return isSame(path, candidate) ? std::optional(radius) : std::nullopt;
}

QString cornersOf(const QPainterPath& path) {
    QStringList corners;
    for (int i = 0; i < path.elementCount(); ++i)
        corners << pointText(path.elementAt(i));
    return corners.join(u' ');
}

/// Turns the painter's calls into strokes.
class StrokeEngine final : public QPaintEngine {
public:
    StrokeEngine() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice* /*device*/) override { return true; }

    bool end() override { return true; }

    void updateState(const QPaintEngineState& /*state*/) override {}

    [[nodiscard]] Type type() const override { return User; }

    void drawPath(const QPainterPath& path) override { addShape(path); }

    using QPaintEngine::drawEllipse;
    using QPaintEngine::drawLines;
    using QPaintEngine::drawPolygon;
    using QPaintEngine::drawRects;

    void drawRects(const QRectF* boxes, int count) override {
        for (int i = 0; i < count; ++i) {
            QPainterPath path;
            path.addRect(boxes[i]);
            addShape(path);
        }
    }

    void drawEllipse(const QRectF& box) override {
        QPainterPath path;
        path.addEllipse(box);
        addShape(path);
    }

    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
        QPainterPath path;
        path.addPolygon(QPolygonF(QList<QPointF>(points, points + count)));
        if (mode != PolylineMode)
            path.closeSubpath();
        addShape(path, mode == PolylineMode ? Filling::none : Filling::brush);
    }

    void drawLines(const QLineF* lines, int count) override {
        for (int i = 0; i < count; ++i) {
            const QLineF line = state->transform().map(lines[i]);
            const qreal half = penWidth() / 2;
            const QRectF box = QRectF(line.p1(), line.p2()).normalized();
            add({.kind = Stroke::Kind::line,
                 .color = shown(state->pen().color()),
                 .place =
                     u"%1–%2 %3px"_s.arg(pointText(line.p1()), pointText(line.p2()), number(penWidth()))},
                box.adjusted(-half, -half, half, half));
        }
    }

    void drawPixmap(const QRectF& box, const QPixmap& pixmap, const QRectF& /*part*/) override {
        const QRectF place = state->transform().mapRect(box);
        if (const auto symbol = symbolIn(pixmap))
            add({.kind = Stroke::Kind::symbol,
                 .color = shown(symbol->color),
                 .place = u"%1 %2"_s.arg(pointText(place.topLeft()), number(place.width())),
                 .what = symbol->name},
                place);
        else
            addPicture(place, pixmap.toImage());
    }

    void drawImage(const QRectF& box, const QImage& image, const QRectF& /*part*/,
                   Qt::ImageConversionFlags /*flags*/) override {
        addPicture(state->transform().mapRect(box), image);
    }

    void drawTextItem(const QPointF& start, const QTextItem& item) override {
        const QPointF place = state->transform().map(start);
        Stroke stroke{.kind = Stroke::Kind::text, .color = shown(state->pen().color())};
        stroke.line = {.left = place.x(),
                       .right = place.x() + item.width(),
                       .baseline = place.y(),
                       .font = fontRoleName(item.font()),
                       .words = item.text()};
        add(stroke, {place.x(), place.y() - item.ascent(), item.width(), item.ascent() + item.descent()});
    }

    QRectF bounds;
    std::vector<Stroke> strokes;

private:
    enum class Filling { none, brush };

    [[nodiscard]] qreal penWidth() const { return std::max(1.0, state->pen().widthF()); }

    [[nodiscard]] QColor shown(QColor color) const {
        color.setAlphaF(color.alphaF() * static_cast<float>(state->opacity()));
        return color;
    }

    void addShape(const QPainterPath& path, Filling filling = Filling::brush) {
        const QPainterPath placed = state->transform().map(path);
        if (filling == Filling::brush && state->brush().style() != Qt::NoBrush)
            addOutlined(Stroke::Kind::fill, state->brush().color(), placed, 0);
        if (state->pen().style() != Qt::NoPen)
            addOutlined(Stroke::Kind::frame, state->pen().color(), placed, penWidth());
    }

    /// The place of a frame is what its outer edge surrounds.
    void addOutlined(Stroke::Kind kind, const QColor& color, const QPainterPath& path, qreal width) {
        const qreal half = width / 2;
        const QRectF box = path.boundingRect().adjusted(-half, -half, half, half);
        const auto radius = cornerRadiusOf(path);
        Stroke stroke{.kind = kind, .color = shown(color), .place = boxText(box)};
        if (!radius)
            stroke.what = cornersOf(path);
        else if (*radius > 0)
            stroke.place += u" r%1"_s.arg(number(*radius + half));
        if (width > 0)
            stroke.place += u" %1px"_s.arg(number(width));
        if (kind == Stroke::Kind::fill && state->brush().style() != Qt::SolidPattern)
            stroke.what += u" pattern %1"_s.arg(state->brush().style());
        add(stroke, box);
    }

    /// Told by its size and the colour in its middle.
    void addPicture(const QRectF& box, const QImage& image) {
        const QColor middle = image.pixelColor(image.rect().center());
        add({.kind = Stroke::Kind::picture,
             .place = boxText(box),
             .what = u"%1×%2, %3 in the middle"_s.arg(image.width())
                         .arg(image.height())
                         .arg(middle.name(QColor::HexArgb))},
            box);
    }

    void add(Stroke stroke, const QRectF& box) {
        const QRectF clip =
            painter()->hasClipping() ? state->transform().mapRect(painter()->clipBoundingRect()) : box;
        const bool isTransparent = stroke.color.isValid() && stroke.color.alpha() == 0;
        if (isTransparent || !bounds.intersects(box) || !clip.intersects(box))
            return;
        const bool isCut = !clip.adjusted(-0.1, -0.1, 0.1, 0.1).contains(box);
        if (isCut && stroke.kind != Stroke::Kind::text)
            stroke.place += u" within %1"_s.arg(boxText(clip));
        strokes.push_back(std::move(stroke));
    }
};

/// A device that widgets can be rendered to; it keeps strokes instead of pixels.
class StrokeDevice final : public QPaintDevice {
public:
    explicit StrokeDevice(const QSize& size) : m_size(size) { m_engine.bounds = QRectF(QPointF(), size); }

    [[nodiscard]] QPaintEngine* paintEngine() const override { return &m_engine; }

    [[nodiscard]] const std::vector<Stroke>& strokes() const { return m_engine.strokes; }

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override {
        constexpr int dotsPerInch = 96;
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmDepth:
            return 32;
        case PdmNumColors:
            return INT_MAX;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        case PdmWidthMM:
        case PdmHeightMM:
            return 100;
        default:
            return dotsPerInch;
        }
    }

private:
    QSize m_size;
    mutable StrokeEngine m_engine;
};

bool continues(const Stroke& before, const Stroke& after) {
    constexpr qreal widestGap = 5;
    const qreal gap = after.line.left - before.line.right;
    return before.kind == Stroke::Kind::text && after.kind == Stroke::Kind::text &&
           before.color == after.color && before.line.font == after.line.font &&
           std::abs(before.line.baseline - after.line.baseline) < 1 && gap > -1 && gap < widestGap;
}

/// Figures are painted digit by digit, and the toolkit paints in runs.
std::vector<Stroke> joined(const std::vector<Stroke>& strokes) {
    std::vector<Stroke> lines;
    for (const Stroke& stroke : strokes) {
        if (lines.empty() || !continues(lines.back(), stroke)) {
            lines.push_back(stroke);
            continue;
        }
        lines.back().line.words += stroke.line.words;
        lines.back().line.right = stroke.line.right;
    }
    return lines;
}

/// From where to where a line reaches, and its baseline: whole pixels, because fractions depend on the
/// toolkit.
void describeLine(Stroke& stroke) {
    const Stroke::Line& line = stroke.line;
    QString words = line.words.trimmed();
    words.replace(QChar::Nbsp, u'⍽');
    stroke.place = u"%1–%2,%3"_s.arg(qRound(line.left)).arg(qRound(line.right)).arg(qRound(line.baseline));
    stroke.what = u"%1 “%2”"_s.arg(line.font, words);
}

} // namespace

std::vector<Stroke> strokesOf(QWidget& widget) {
    StrokeDevice device(widget.size());
    widget.render(&device, {}, {},
                  widget.isWindow() ? QWidget::DrawWindowBackground : QWidget::RenderFlags());
    std::vector<Stroke> strokes = joined(device.strokes());
    for (Stroke& stroke : strokes)
        if (stroke.kind == Stroke::Kind::text)
            describeLine(stroke);
    std::erase_if(strokes, [](const Stroke& stroke) {
        return stroke.kind == Stroke::Kind::text && stroke.line.words.trimmed().isEmpty();
    });
    return strokes;
}

} // namespace brisklog::test
