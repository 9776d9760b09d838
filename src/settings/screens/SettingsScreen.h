#pragma once

#include "settings/SettingsView.h"
#include "ui/sheets/Screen.h"

#include <QPointer>
#include <functional>
#include <memory>
#include <string_view>

namespace brisklog {

class Card;
class Picker;
class SheetWindow;

/// What the settings open that others provide.
struct SettingsActions {
    std::function<std::unique_ptr<SheetWindow>()> makeArchiveSheet;
    /// Leaves the program for a web page or a new e-mail.
    std::function<void(std::string_view address)> openLink;
};

/// The settings section: the archive, the colour scheme, the two rounding choices, a credit line.
class SettingsScreen final : public Screen {
public:
    SettingsScreen(AppSettings& settings, SettingsActions actions, QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    [[nodiscard]] QWidget* makeContent();
    [[nodiscard]] QWidget* archiveButton();
    [[nodiscard]] Card* appearanceCard();
    [[nodiscard]] Card* timeCard();
    [[nodiscard]] Card* invoiceCard();
    [[nodiscard]] QWidget* credit();
    /// Shows the archive's sheet, as the view says.
    void refreshArchiveSheet();

    SettingsView m_view;
    const SettingsActions m_actions;
    Picker* m_colorScheme;
    Picker* m_timeRounding;
    Picker* m_invoiceRounding;
    QPointer<SheetWindow> m_archiveSheet;
};

} // namespace brisklog
