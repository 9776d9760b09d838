#pragma once

#include "app/projects/ProjectWorkbench.h"
#include "app/projects/screens/MultiProjectScreen.h"
#include "support/screen/ScreenTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>

namespace brisklog::test {

/// The time tracking section as the popover shows it, over the real store.
class ProjectScreenBench : public ScreenTest {
protected:
    /// The inside of the popover below its navigation bar.
    static constexpr QSize sectionSize{370, 592};

    /// Shows the section with what the test has put into the store by then.
    void open() {
        ProjectServices services = bench.services();
        services.exportReport = exportReport;
        view = std::make_unique<MultiProjectView>(services, bench.tracking());
        screen = std::make_unique<MultiProjectScreen>(
            *view, ProjectScreenServices{bench.store, bench.clock, notifications, actions});
        screen->resize(sectionSize);
        showActive(*screen);
    }

    void advance(TimeInterval seconds) {
        bench.runLoop.advance(seconds);
        settle();
    }

    /// The visible button with that accessible name or caption; fails the test when there is none.
    [[nodiscard]] static QAbstractButton& button(QWidget& root, const QString& name) {
        for (auto* found : root.findChildren<QAbstractButton*>())
            if (found->isVisible() && (found->accessibleName() == name || found->text() == name))
                return *found;
        ADD_FAILURE() << "no button " << name.toStdString();
        std::abort();
    }

    /// The first visible descendant of that class; fails the test when there is none.
    template <class T>
    [[nodiscard]] static T& part(QWidget& root) {
        for (auto* child : root.findChildren<QWidget*>())
            if (auto* found = dynamic_cast<T*>(child); found && found->isVisible())
                return *found;
        ADD_FAILURE() << "no such part";
        std::abort();
    }

    [[nodiscard]] QAbstractButton& button(const QString& name) { return button(*screen, name); }

    void click(const QString& name) {
        button(name).click();
        settle();
    }

    /// The visible field with that accessible name; fails the test when there is none.
    [[nodiscard]] static QLineEdit& field(QWidget& root, const QString& name) {
        for (auto* found : root.findChildren<QLineEdit*>())
            if (found->isVisible() && found->accessibleName() == name)
                return *found;
        ADD_FAILURE() << "no field " << name.toStdString();
        std::abort();
    }

    [[nodiscard]] QLineEdit& taskField() { return field(*screen, QStringLiteral("Aufgabe eingeben")); }

    /// Whether a label with that text is visible.
    [[nodiscard]] bool shows(const QString& text) {
        for (const auto* label : screen->findChildren<QLabel*>())
            if (label->isVisible() && label->text() == text)
                return true;
        return false;
    }

    /// The sheet or alert on top; null when there is none.
    [[nodiscard]] static QWidget* sheet() { return QApplication::activeModalWidget(); }

    ProjectWorkbench bench;
    NotificationCenter notifications;
    ProjectActions actions;
    std::function<void(const Project&)> exportReport;
    std::unique_ptr<MultiProjectView> view;
    std::unique_ptr<MultiProjectScreen> screen;
};

} // namespace brisklog::test
