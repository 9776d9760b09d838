#include "autotrack/screens/DailyUsageDetailScreen.h"

#include "foundation/Text.h"
#include "platform/Images.h"
#include "ui/lists/RowDelegate.h"
#include "ui/look/BitmapImage.h"
#include "ui/look/Figures.h"
#include "ui/look/FocusRing.h"
#include "ui/look/Hairline.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Symbols.h"
#include "ui/look/Text.h"

#include <QAbstractListModel>
#include <QImage>
#include <QPainter>
#include <unordered_map>
#include <utility>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int margin = 20;
constexpr int headerHeight = 52;
constexpr int lineInset = 12;
constexpr int rowHeight = 28;
constexpr int stripeRadius = 4;
/// The margin that leaves room for the focus ring, and the distance from there to a row's contents.
constexpr int stripeMargin = 8;
constexpr int padding = 12;
constexpr int iconColumn = 24;
constexpr int iconSize = 16;
constexpr int durationColumn = 100;

/// A day's applications as items of a list that never changes.
class AppUsageModel final : public QAbstractListModel {
public:
    AppUsageModel(std::vector<AppUsageDetailRow> rows, QObject* parent)
        : QAbstractListModel(parent), m_rows(std::move(rows)) {}

    [[nodiscard]] const AppUsageDetailRow& rowAt(const QModelIndex& index) const {
        return m_rows.at(static_cast<std::size_t>(index.row()));
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }

    /// The name; for screen readers, with the duration.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (!checkIndex(index, CheckIndexOption::IndexIsValid))
            return {};
        const QString name = screenText(text::onOneLine(rowAt(index).appName));
        if (role == Qt::DisplayRole)
            return name;
        if (role == Qt::AccessibleTextRole)
            return u"%1, %2"_s.arg(name, screenText(rowAt(index).durationText()));
        return {};
    }

private:
    std::vector<AppUsageDetailRow> m_rows;
};

QRect stripe(const QRect& area) { return area.adjusted(stripeMargin, 0, -stripeMargin, 0); }

QRect content(const QRect& area) { return stripe(area).adjusted(padding, 0, -padding, 0); }

QRect durationArea(const QRect& area, const QString& duration) {
    // A duration is never elided: it grows to the left.
    const int width = std::max(durationColumn, figureWidth(duration, FontRole::body13));
    const QRect inner = content(area);
    return inner.adjusted(inner.width() - width, 0, 0, 0);
}

QRect nameArea(const QRect& area, const QString& duration) {
    const QRect inner = content(area);
    return {inner.left() + iconColumn, inner.top(),
            durationArea(area, duration).left() - inner.left() - iconColumn, inner.height()};
}

QImage decoded(const std::optional<SharedData>& png, const Images& images, qreal devicePixelRatio) {
    if (!png)
        return {};
    const int pixels = qRound(iconSize * devicePixelRatio);
    const auto icon = images.decode(png->bytes(), [pixels](PixelSize) { return PixelSize{pixels, pixels}; });
    return icon.failed() ? QImage() : imageOf(icon.value(), devicePixelRatio);
}

/// Paints an application's icon, name and duration. Icons are decoded once, when their row is first seen.
class AppUsageDelegate final : public RowDelegate {
public:
    AppUsageDelegate(const AppUsageModel& model, const Images& images, RowList& list)
        : RowDelegate(list), m_model(model), m_images(images) {}

protected:
    [[nodiscard]] QSize sizeOf(const QModelIndex& /*index*/) const override { return {0, rowHeight}; }

    void paintRow(QPainter& painter, const PaintedRow& row) const override {
        const Palette& palette = Palette::current();
        const QString duration = screenText(m_model.rowAt(row.index).durationText());
        if (row.index.row() % 2 == 1)
            fillRounded(painter, stripe(row.area), stripeRadius, withOpacity(palette.secondary, 0.05));
        paintIcon(painter, content(row.area), row.index);
        paintText(painter, nameArea(row.area, duration), row.index.data().toString(), FontRole::body13,
                  palette.text);
        paintFigures(painter, durationArea(row.area, duration), duration, FontRole::body13, palette.secondary,
                     Qt::AlignRight | Qt::AlignVCenter);
        if (row.showsFocusRing)
            paintFocusRing(painter, stripe(row.area).adjusted(0, 3, 0, -3), stripeRadius, palette);
    }

    [[nodiscard]] QString tooltipAt(const QRect& area, const QPoint& /*point*/,
                                    const QModelIndex& index) const override {
        const QString duration = screenText(m_model.rowAt(index).durationText());
        return textIfElided(index.data().toString(), FontRole::body13, nameArea(area, duration).width());
    }

private:
    /// Null where there is no icon, or none that can be decoded.
    [[nodiscard]] const QImage& iconOf(const QModelIndex& index, qreal devicePixelRatio) const {
        if (std::exchange(m_iconResolution, devicePixelRatio) != devicePixelRatio)
            m_icons.clear();
        const auto known = m_icons.find(index.row());
        if (known != m_icons.end())
            return known->second;
        return m_icons[index.row()] = decoded(m_model.rowAt(index).iconData, m_images, devicePixelRatio);
    }

    void paintIcon(QPainter& painter, const QRect& area, const QModelIndex& index) const {
        const QImage& icon = iconOf(index, painter.device()->devicePixelRatioF());
        const QRect place(area.left(), area.top() + (area.height() - iconSize) / 2, iconSize, iconSize);
        if (icon.isNull())
            paintSymbol(painter, place, u"app.fill"_s, iconSize, Palette::current().secondary);
        else
            painter.drawImage(place, icon);
    }

    const AppUsageModel& m_model;
    const Images& m_images;
    /// By row, at the resolution of the screen on which they were last painted.
    mutable std::unordered_map<int, QImage> m_icons;
    mutable qreal m_iconResolution = 0;
};

/// The line under the column headings.
class ColumnLine final : public QWidget {
public:
    ColumnLine() { setFixedHeight(1); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        paintHairline(painter, rect(), withOpacity(Palette::current().secondary, 0.3));
    }
};

QWidget* header(const QString& text) {
    return asBar(
        Row{asHeading(new Label(text, FontRole::heading15)), stretch()}.margins({margin, 0, margin, 0}),
        headerHeight);
}

Label* heading(const QString& text) { return new Label(text, FontRole::body13, &Palette::secondary); }

RowList* list(const DailyUsageDetailView& detail, const Images& images) {
    auto* const list = new RowList;
    auto* const model = new AppUsageModel(detail.rows(), list);
    list->setAccessibleName(u"Anwendungen"_s);
    list->setRows(*model, *new AppUsageDelegate(*model, images, *list));
    return list;
}

} // namespace

DailyUsageDetailScreen::DailyUsageDetailScreen(const DailyUsageDetailView& detail, const Images& images,
                                               QWidget* parent)
    : QWidget(parent) {
    Column{header(screenText(detail.header())),
           new Hairline,
           space(12),
           Row{space(iconColumn), heading(u"Anwendung"_s), stretch(), heading(u"Dauer"_s)}.margins(
               {margin, 0, margin, 0}),
           space(6),
           Row{new ColumnLine}.margins({lineInset, 0, lineInset, 0}),
           space(4),
           expanding(list(detail, images))}
        .applyTo(*this);
}

} // namespace brisklog
