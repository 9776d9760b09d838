#include "app/projects/screens/ProjectSheets.h"

#include "app/projects/ProjectSheetViews.h"
#include "ui/controls/Button.h"
#include "ui/controls/SymbolButton.h"
#include "ui/controls/TextField.h"
#include "ui/look/Layout.h"
#include "ui/look/Text.h"
#include "ui/sheets/Alert.h"
#include "ui/sheets/SheetWindow.h"

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr QSize sheetSize{400, 252};
constexpr int rateWidth = 140;

/// Shows the text in the field and updates it with what is typed.
TextField* bound(TextField* field, Published<std::string>& text) {
    field->setValue(screenText(*text));
    field->onEdited([&text](const QString& typed) { text = typed.toStdString(); });
    return field;
}

/// The two fields of a project, as the body of a sheet.
QWidget* makeBody(TextField* name, const QString& rateLabel, TextField* rate) {
    rate->setFixedWidth(rateWidth);
    return asWidget(Column{withLabelAbove(u"Projektname"_s, name), space(12),
                           Row{withLabelAbove(rateLabel, rate), stretch()}, stretch()}
                        .margins({20, 16, 20, 16}));
}

class NewProjectSheet final : public SheetWindow {
public:
    explicit NewProjectSheet(TimeTrackingStore& store)
        : SheetWindow(u"Neues Projekt erstellen"_s, sheetSize), m_view(store) {
        auto* name = bound(new TextField(u"Projektname eingeben"_s), m_view.projectName);
        auto* rate = bound(new TextField(u"85,00"_s), m_view.hourlyRateString);
        auto* body = makeBody(name, u"Stundensatz (optional)"_s, rate);
        if (m_view.isProjectNameFocused)
            name->setFocus();
        setBody(body, Body::fixed);
        addButtons();
    }

private:
    void addButtons() {
        auto* closeButton =
            new SymbolButton(u"xmark.circle.fill"_s, u"Schließen"_s, SymbolButton::Size::closing);
        auto* cancelButton = new Button(u"Abbrechen"_s);
        auto* createButton = new Button(u"Erstellen"_s, Button::Kind::primary);
        for (Clickable* button : std::initializer_list<Clickable*>{closeButton, cancelButton})
            button->onClick([this] {
                m_view.cancel();
                dismiss();
            });
        createButton->onClick([this] {
            m_view.create();
            if (!m_view.isPresented)
                dismiss();
        });
        addHeaderWidget(closeButton);
        addFooterTrailing(cancelButton);
        addFooterTrailing(createButton);
        setMainAction(*createButton);
    }

    NewProjectView m_view;
};

class ProjectSettingsSheet final : public SheetWindow {
public:
    ProjectSettingsSheet(TimeTrackingStore& store, int projectIndex)
        : SheetWindow(u"Projekteinstellungen"_s, sheetSize), m_view(store, projectIndex) {
        setBody(makeBody(bound(new TextField, m_view.projectName), u"Stundensatz (€, optional)"_s,
                         bound(new TextField, m_view.hourlyRateString)),
                Body::fixed);
        addFooter();
    }

private:
    void addFooter() {
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

    void confirmDeleting() {
        presentAlert(*this,
                     {.title = u"Projekt löschen?"_s,
                      .message = u"Diese Aktion kann nicht rückgängig gemacht werden. Alle Zeiterfassungen "
                                 "dieses Projekts werden gelöscht."_s},
                     [this] {
                         m_view.deleteProject();
                         closeWhenDone();
                     });
    }

    void closeWhenDone() {
        if (!m_view.isPresented)
            dismiss();
    }

    ProjectSettingsView m_view;
};

} // namespace

std::unique_ptr<SheetWindow> makeNewProjectSheet(TimeTrackingStore& store) {
    return std::make_unique<NewProjectSheet>(store);
}

std::unique_ptr<SheetWindow> makeProjectSettingsSheet(TimeTrackingStore& store, int projectIndex) {
    return std::make_unique<ProjectSettingsSheet>(store, projectIndex);
}

} // namespace brisklog
