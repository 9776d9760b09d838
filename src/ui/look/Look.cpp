#include "ui/look/Look.h"

#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Typography.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QScreen>
#include <QStyleOption>
#include <QToolTip>
#include <QVariantAnimation>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int tooltipDelay = 600;
constexpr int tooltipRadius = 4;
/// Minus and plus of a stepper.
constexpr int stepButtonWidth = 28;

/// Our changes to the toolkit's style: tooltips, steppers and style hints.
class ComponentStyle final : public QProxyStyle {
public:
    explicit ComponentStyle(Motion motion) : QProxyStyle(u"fusion"_s), m_motion(motion) {}

    void polish(QWidget* widget) override {
        QProxyStyle::polish(widget);
        if (isTooltip(widget)) {
            widget->setAttribute(Qt::WA_TranslucentBackground, !areCornersCut());
            // Adds to the equal padding on all sides: 4 above and below, 8 at the sides.
            widget->setContentsMargins(3, 0, 3, 0);
        }
    }

    using QProxyStyle::polish;

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        switch (hint) {
        case SH_ToolTip_WakeUpDelay:
            return tooltipDelay;
        case SH_ToolTipLabel_Opacity:
            return 255;
        case SH_ToolTip_Mask:
            if (auto* mask = qstyleoption_cast<QStyleHintReturnMask*>(returned))
                mask->region = roundedShape(option->rect.size(), tooltipRadius);
            return areCornersCut() ? 1 : 0;
        case SH_Widget_Animation_Duration:
            if (m_motion == Motion::reduced)
                return 0;
            break;
        default:
            break;
        }
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        return metric == PM_ToolTipLabelFrameWidth ? 3 : QProxyStyle::pixelMetric(metric, option, widget);
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override {
        const auto* stepper = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
        if (stepper == nullptr || stepper->buttonSymbols == QAbstractSpinBox::NoButtons)
            return QProxyStyle::subControlRect(control, option, part, widget);
        return partOfStepper(stepper->rect, part);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element == PE_PanelTipLabel)
            fillRounded(*painter, option->rect, areCornersCut() ? 0 : tooltipRadius,
                        option->palette.color(QPalette::ToolTipBase));
        else
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

private:
    static bool isTooltip(const QWidget* widget) { return widget->inherits("QTipLabel"); }

    /// From left to right: the number, minus, plus.
    static QRect partOfStepper(QRect area, SubControl part) {
        const QRect plus = area.adjusted(area.width() - stepButtonWidth, 0, 0, 0);
        if (part == SC_SpinBoxUp || part == SC_SpinBoxDown)
            return part == SC_SpinBoxUp ? plus : plus.translated(-stepButtonWidth, 0);
        return part == SC_SpinBoxEditField ? area.adjusted(0, 0, -2 * stepButtonWidth, 0) : area;
    }

    Motion m_motion;
};

/// The same font with its size in points. The toolkit cannot draw texts in the SVG icons of other programs
/// under a font whose size is in pixels.
QFont inPoints(QFont font) {
    constexpr double pointsPerInch = 72;
    font.setPointSizeF(font.pixelSize() * pointsPerInch /
                       QGuiApplication::primaryScreen()->logicalDotsPerInchY());
    return font;
}

} // namespace

Motion motionFromEnvironment() {
    const QByteArray ours = qgetenv("BRISKLOG_REDUCED_MOTION");
    const bool isReduced = (!ours.isEmpty() && ours != "0") || qgetenv("GTK_ENABLE_ANIMATIONS") == "0";
    return isReduced ? Motion::reduced : Motion::full;
}

void installLook(QApplication& application, Motion motion) {
    application.setStyle(new ComponentStyle(motion));
    QApplication::setFont(inPoints(fontFor(FontRole::body13)));
    QToolTip::setFont(fontFor(FontRole::caption11));
    installScreenReaderSupport();
}

bool motionAllowed() {
    const QStyle* style = QApplication::style();
    return dynamic_cast<const ComponentStyle*>(style) &&
           style->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
}

QVariantAnimation* glide(QObject& owner, double from, double to, int milliseconds,
                         std::function<void(double)> each, std::function<void()> ended) {
    if (!motionAllowed()) {
        each(to);
        if (ended)
            ended();
        return nullptr;
    }
    auto* const animation = new QVariantAnimation(&owner);
    animation->setStartValue(from);
    animation->setEndValue(to);
    animation->setDuration(milliseconds);
    animation->setEasingCurve(QEasingCurve::OutCubic);
    QObject::connect(animation, &QVariantAnimation::valueChanged, &owner,
                     [each = std::move(each)](const QVariant& value) { each(value.toDouble()); });
    if (ended)
        QObject::connect(animation, &QVariantAnimation::finished, &owner, std::move(ended));
    animation->start(QAbstractAnimation::DeleteWhenStopped);
    return animation;
}

} // namespace brisklog
