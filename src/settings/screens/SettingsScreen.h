#pragma once

#include "settings/AppSettings.h"
#include "ui/sheets/Screen.h"

#include <QPointer>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace brisklog {

class LayoutItem;
class Picker;
class SheetWindow;

/// What the settings open but other parts of the program provide.
struct SettingsActions {
    std::function<std::unique_ptr<SheetWindow>()> makeArchiveSheet;
    /// Opens a web page or a new e-mail outside the program.
    std::function<void(std::string_view address)> openLink;
};

/// The settings section: the archive, the colour scheme, the two rounding choices, a credit line.
class SettingsScreen final : public Screen {
public:
    SettingsScreen(AppSettings& settings, SettingsActions actions, QWidget* parent = nullptr);

protected:
    void refresh() override;

private:
    /// How a setting is chosen on the screen.
    struct Choice;

    [[nodiscard]] QWidget* makeContent();
    [[nodiscard]] QWidget* archiveButton();
    template <SettingsOption Option>
    [[nodiscard]] LayoutItem choiceSection(const Choice& choice, Published<Option>& setting);
    /// Offers all values of that setting; a choice is written at once.
    template <SettingsOption Option>
    [[nodiscard]] Picker* pickerFor(Published<Option>& setting);
    [[nodiscard]] QWidget* credit();
    void openArchive();

    AppSettings& m_settings;
    const SettingsActions m_actions;
    /// Each shows the current value of one setting.
    std::vector<std::function<void()>> m_showSettings;
    QPointer<SheetWindow> m_archiveSheet;
};

} // namespace brisklog
