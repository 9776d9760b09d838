#include "autotrack/screens/DailyUsageDetailScreen.h"

#include "autotrack/screens/AppUsageDelegate.h"
#include "ui/lists/RowList.h"
#include "ui/look/Hairline.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Text.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int margin = 20;
constexpr int headerHeight = 52;
constexpr int iconColumn = 24;
constexpr int lineInset = 12;

/// Under the columns' headings.
class ColumnLine final : public QWidget {
public:
    ColumnLine() { setFixedHeight(1); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(rect(), withOpacity(Palette::current().secondary, 0.3));
    }
};

QWidget* header(const DailyUsageDetailView& detail) {
    auto* const row = new QWidget;
    row->setFixedHeight(headerHeight);
    Row{new Label(screenText(detail.header()), FontRole::heading15), stretch()}
        .margins({margin, 0, margin, 0})
        .applyTo(*row);
    return row;
}

Label* heading(const QString& text) { return new Label(text, FontRole::body13, &Palette::secondary); }

} // namespace

DailyUsageDetailScreen::DailyUsageDetailScreen(DailyUsageDetailView detail, const Images& images,
                                               QWidget* parent)
    : QWidget(parent), m_model(std::move(detail)) {
    Column{header(m_model.detail()),
           new Hairline,
           space(12),
           Row{space(iconColumn), heading(u"Anwendung"_s), stretch(), heading(u"Dauer"_s)}.margins(
               {margin, 0, margin, 0}),
           space(6),
           Row{new ColumnLine}.margins({lineInset, 0, lineInset, 0}),
           space(4),
           expanding(list(images))}
        .applyTo(*this);
}

QWidget* DailyUsageDetailScreen::list(const Images& images) {
    auto* const rows = new RowList;
    rows->setAccessibleName(u"Anwendungen"_s);
    rows->setRows(m_model, *new AppUsageDelegate(m_model, images, *rows));
    return rows;
}

} // namespace brisklog
