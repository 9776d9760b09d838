#include "app/projects/screens/ProjectForm.h"

#include "ui/look/Layout.h"

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int rateWidth = 140;

} // namespace

ProjectForm makeProjectForm(const ProjectFormTexts& texts) {
    ProjectForm form{.body = new QWidget,
                     .name = new TextField(texts.namePlaceholder),
                     .rate = new TextField(texts.ratePlaceholder)};
    form.rate->setFixedWidth(rateWidth);
    Column{withLabelAbove(u"Projektname"_s, form.name), space(12),
           Row{withLabelAbove(texts.rateLabel, form.rate), stretch()}, stretch()}
        .margins({20, 16, 20, 16})
        .applyTo(*form.body);
    return form;
}

} // namespace brisklog
