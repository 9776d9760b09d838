#include "ui/look/Look.h"

#include "ui/look/Painting.h"
#include "ui/look/Typography.h"
#include "ui/look/WindowAccessible.h"

#include <QAccessible>
#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int tooltipDelay = 600;
constexpr int tooltipRadius = 4;

/// What is left of the toolkit's style: tooltips, and the habits it asks its style for.
class ComponentStyle final : public QProxyStyle {
public:
    explicit ComponentStyle(Motion motion) : QProxyStyle(u"fusion"_s), m_motion(motion) {}

    void polish(QWidget* widget) override {
        QProxyStyle::polish(widget);
        if (isTooltip(widget)) {
            widget->setAttribute(Qt::WA_TranslucentBackground);
            // On top of the same padding on all sides: 4 above and below, 8 at the sides.
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
                mask->region = roundedShape(option->rect, tooltipRadius);
            return 1;
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

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        if (element == PE_PanelTipLabel)
            fillRounded(*painter, option->rect, tooltipRadius, option->palette.color(QPalette::ToolTipBase));
        else
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

private:
    static bool isTooltip(const QWidget* widget) { return widget->inherits("QTipLabel"); }

    Motion m_motion;
};

} // namespace

Motion motionFromEnvironment() {
    const QByteArray ours = qgetenv("BRISKLOG_REDUCED_MOTION");
    const bool isReduced = (!ours.isEmpty() && ours != "0") || qgetenv("GTK_ENABLE_ANIMATIONS") == "0";
    return isReduced ? Motion::reduced : Motion::full;
}

void installLook(QApplication& application, Motion motion) {
    application.setStyle(new ComponentStyle(motion));
    QApplication::setFont(fontFor(FontRole::body13));
    QToolTip::setFont(fontFor(FontRole::caption11));
    QAccessible::installFactory(windowAccessible);
}

bool motionAllowed() {
    const QStyle* style = QApplication::style();
    return dynamic_cast<const ComponentStyle*>(style) &&
           style->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
}

} // namespace brisklog
