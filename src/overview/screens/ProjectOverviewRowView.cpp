#include "overview/screens/ProjectOverviewRowView.h"

#include "ui/look/Figures.h"
#include "ui/look/Hairline.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Text.h"

using namespace Qt::StringLiterals;

namespace brisklog {

ProjectOverviewRowView::ProjectOverviewRowView(QWidget* parent)
    : QWidget(parent), m_name(new ElidedLabel({}, FontRole::body13)),
      m_workingTime(new FigureLabel({}, FontRole::caption11Medium)),
      m_earningsCaption(new Label(u"Verdienst:"_s, FontRole::caption11, &Palette::secondary)),
      m_earnings(new FigureLabel({}, FontRole::caption11Semibold, &Palette::green,
                                 Qt::AlignRight | Qt::AlignVCenter)) {
    auto* caption = new Label(u"Arbeitszeit:"_s, FontRole::caption11, &Palette::secondary);
    Column{space(8), m_name,
           space(3), Row{caption, m_workingTime, stretch(), m_earningsCaption, m_earnings}.spacing(4),
           space(8), new Hairline(Hairline::Kind::card)}
        .applyTo(*this);
}

void ProjectOverviewRowView::setProject(const ProjectOverviewRow& project) {
    m_name->setValue(screenText(project.name));
    m_workingTime->setValue(screenText(project.workingTime));
    m_earnings->setValue(screenText(project.earnings.value_or("")));
    m_earnings->setVisible(project.earnings.has_value());
    m_earningsCaption->setVisible(project.earnings.has_value());
}

} // namespace brisklog
