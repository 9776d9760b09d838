#include "app/projects/screens/ProjectSettingsScreen.h"

#include "app/projects/screens/ProjectForm.h"
#include "ui/controls/Button.h"
#include "ui/look/Text.h"
#include "ui/sheets/Alert.h"
#include "ui/sheets/SheetWindow.h"

using namespace Qt::StringLiterals;

namespace brisklog {

ProjectSettingsScreen::ProjectSettingsScreen(TimeTrackingStore& store, int projectIndex)
    : SheetWindow(u"Projekteinstellungen"_s, projectSheetSize), m_view(store, projectIndex) {
    setBody(makeBody(), Body::fixed);
    addFooter();
}

QWidget* ProjectSettingsScreen::makeBody() {
    const ProjectForm form = makeProjectForm({.rateLabel = u"Stundensatz (€, optional)"_s});
    form.name->setValue(screenText(*m_view.projectName));
    form.rate->setValue(screenText(*m_view.hourlyRateString));
    form.name->onEdited([this](const QString& text) { m_view.projectName = text.toStdString(); });
    form.rate->onEdited([this](const QString& text) { m_view.hourlyRateString = text.toStdString(); });
    return form.body;
}

void ProjectSettingsScreen::addFooter() {
    auto* deleteButton = new Button(u"Projekt löschen"_s, Button::Kind::destructive);
    deleteButton->setSymbol(u"trash"_s);
    deleteButton->onClick([this] { confirmDeleting(); });
    auto* cancelButton = new Button(u"Abbrechen"_s);
    cancelButton->onClick([this] {
        m_view.cancel();
        closeWhenDone();
    });
    auto* saveButton = new Button(u"Speichern"_s, Button::Kind::primary);
    saveButton->onClick([this] {
        m_view.save();
        closeWhenDone();
    });
    addFooterLeading(deleteButton);
    addFooterTrailing(cancelButton);
    addFooterTrailing(saveButton);
    setMainAction(*saveButton);
}

void ProjectSettingsScreen::confirmDeleting() {
    presentAlert(*this,
                 {.title = u"Projekt löschen?"_s,
                  .message = u"Diese Aktion kann nicht rückgängig gemacht werden. Alle Zeiterfassungen "
                             "dieses Projekts werden gelöscht."_s},
                 [this] {
                     m_view.deleteProject();
                     closeWhenDone();
                 });
}

void ProjectSettingsScreen::closeWhenDone() {
    if (!m_view.isPresented)
        dismiss();
}

} // namespace brisklog
