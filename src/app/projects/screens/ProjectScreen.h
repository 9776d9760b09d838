#pragma once

#include "app/projects/screens/ProjectScreenServices.h"
#include "ui/sheets/Screen.h"

#include <memory>
#include <optional>

class QStackedWidget;

namespace brisklog {

class Button;
class CountBadge;
class ElidedLabel;
class Label;
class NavigationButton;
class ProjectEntryList;
class ProjectView;
class SymbolButton;
class TextField;
class TimerList;

/// One project: its name, the task to start, its timers, its actions and its entries.
class ProjectScreen final : public Screen {
public:
    ProjectScreen(const ProjectScreenServices& services, std::shared_ptr<ProjectView> view,
                  QWidget* parent = nullptr);

    /// Shows another project.
    void setView(std::shared_ptr<ProjectView> view);

protected:
    void refresh() override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void watchView();
    void makeWidgets();
    void makeActions();
    void arrange();
    void arrangeTabOrder();
    [[nodiscard]] QWidget* header();
    [[nodiscard]] QWidget* actionBar();

    void refreshInput();
    void refreshTimers();
    void refreshProject();

    void start();
    void stop(const Uuid& entryId);
    void openSettings();
    void openCustomers();
    void openInvoice();
    void confirmReset();

    const ProjectScreenServices m_services;
    std::shared_ptr<ProjectView> m_view;
    Subscription m_viewSubscription;
    Subscription m_customersSubscription;
    /// The revision of the store's projects when the project was last read.
    std::optional<std::uint64_t> m_shownRevision;

    ElidedLabel* m_name = nullptr;
    SymbolButton* m_settingsButton = nullptr;
    TextField* m_taskField = nullptr;
    Button* m_startButton = nullptr;
    Label* m_noTimers = nullptr;
    TimerList* m_timers = nullptr;
    NavigationButton* m_exportButton = nullptr;
    NavigationButton* m_customersButton = nullptr;
    NavigationButton* m_invoiceButton = nullptr;
    SymbolButton* m_resetButton = nullptr;
    CountBadge* m_count = nullptr;
    QStackedWidget* m_entriesOrNone = nullptr;
    ProjectEntryList* m_entries = nullptr;
    QWidget* m_noEntries = nullptr;
};

} // namespace brisklog
