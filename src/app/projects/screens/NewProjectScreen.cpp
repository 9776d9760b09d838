#include "app/projects/screens/NewProjectScreen.h"

#include "app/projects/screens/ProjectForm.h"
#include "ui/controls/Button.h"
#include "ui/controls/SymbolButton.h"

using namespace Qt::StringLiterals;

namespace brisklog {

NewProjectScreen::NewProjectScreen(TimeTrackingStore& store)
    : SheetWindow(u"Neues Projekt erstellen"_s, projectSheetSize), m_view(store) {
    auto* closeButton = new SymbolButton(u"xmark.circle.fill"_s, u"Schließen"_s, SymbolButton::Size::closing);
    auto* cancelButton = new Button(u"Abbrechen"_s);
    auto* createButton = new Button(u"Erstellen"_s, Button::Kind::primary);
    for (Clickable* button : std::initializer_list<Clickable*>{closeButton, cancelButton})
        button->onClick([this] {
            m_view.cancel();
            dismiss();
        });
    createButton->onClick([this] { create(); });
    addHeaderWidget(closeButton);
    setBody(makeBody(), Body::fixed);
    addFooterTrailing(cancelButton);
    addFooterTrailing(createButton);
    setMainAction(*createButton);
}

QWidget* NewProjectScreen::makeBody() {
    const ProjectForm form = makeProjectForm({.namePlaceholder = u"Projektname eingeben"_s,
                                              .rateLabel = u"Stundensatz (optional)"_s,
                                              .ratePlaceholder = u"85,00"_s});
    form.name->onEdited([this](const QString& text) { m_view.projectName = text.toStdString(); });
    form.rate->onEdited([this](const QString& text) { m_view.hourlyRateString = text.toStdString(); });
    if (m_view.isProjectNameFocused)
        form.name->setFocus();
    return form.body;
}

void NewProjectScreen::create() {
    m_view.create();
    if (!m_view.isPresented)
        dismiss();
}

} // namespace brisklog
