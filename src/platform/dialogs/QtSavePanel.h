#pragma once

#include "platform/Files.h"
#include "platform/SavePanel.h"

#include <QDBusConnection>
#include <memory>

class QWidget;

namespace brisklog {

/// The desktop's save panel through its portal if it has one, otherwise the toolkit's file dialog.
class QtSavePanel final : public SavePanel {
public:
    /// The part of the program that the panels belong to.
    struct Owner {
        /// The window a panel appears over; may return null.
        std::function<QWidget*()> parentWindow;
        /// Returns a token that is held while the panel is open, so that what is beneath it stays open.
        std::function<std::shared_ptr<void>()> holdOpen;
    };

    QtSavePanel(const Files& files, Owner owner, QDBusConnection bus = QDBusConnection::sessionBus());
    /// Withdraws panels that are still open; their completions are not called.
    ~QtSavePanel() override;

    void present(const SaveRequest& request, Completion completed) override;

private:
    class Run;

    const Files& m_files;
    Owner m_owner;
    QDBusConnection m_bus;
    /// Parent of the open panels, which are destroyed with it.
    std::unique_ptr<QObject> m_context;
};

} // namespace brisklog
