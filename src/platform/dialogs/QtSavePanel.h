#pragma once

#include "platform/Files.h"
#include "platform/SavePanel.h"

#include <QDBusConnection>
#include <memory>

class QWidget;

namespace brisklog {

/// The desktop's save panel through its portal where it has one, else the toolkit's file dialog.
class QtSavePanel final : public SavePanel {
public:
    /// Whom the panels belong to.
    struct Owner {
        /// The window a panel appears over; may give none.
        std::function<QWidget*()> parentWindow;
        /// Gives a token that is kept while the panel is up, so that what lies under it stays open.
        std::function<std::shared_ptr<void>()> holdOpen;
    };

    QtSavePanel(const Files& files, Owner owner, QDBusConnection bus = QDBusConnection::sessionBus());
    /// Withdraws panels that are still up; their completions are not called then.
    ~QtSavePanel() override;

    void present(const SaveRequest& request, Completion completed) override;

private:
    class Run;

    const Files& m_files;
    Owner m_owner;
    QDBusConnection m_bus;
    /// Whoever is alive in this object's name ends with it.
    std::unique_ptr<QObject> m_context;
};

} // namespace brisklog
