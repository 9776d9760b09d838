#pragma once

#include "profile/LogoPickerView.h"
#include "profile/Thumbnails.h"
#include "profile/screens/FileItemModel.h"
#include "ui/sheets/Screen.h"

#include <optional>

class QTimer;

namespace brisklog {

class Button;
class ElidedLabel;
class Label;
class RowList;
class SymbolButton;

/// The content of the logo picker's window: a bar with a button to the parent folder, and the folder's
/// entries as tiles.
class LogoPickerScreen final : public Screen {
public:
    /// `pictures` makes the thumbnails; like everything in `platform`, it must outlive the screen.
    LogoPickerScreen(const LogoPickerPlatform& platform, Background& pictures,
                     const LogoPickerView::Actions& actions, QWidget* parent = nullptr);

    /// Gives the tiles the focus.
    void focusTiles();

protected:
    void refresh() override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QWidget* bar();
    [[nodiscard]] QWidget* body();
    [[nodiscard]] QWidget* errorStrip();
    void makeList();
    void showError(const QString& error);
    void showItems();
    void showThumbnails();
    void choose(const QModelIndex& index);

    LogoPickerView m_view;
    Thumbnails m_thumbnails;
    FileItemModel m_model;
    std::optional<std::uint64_t> m_shownItems;
    /// Limits requests for thumbnails to one per turn of the event loop.
    QTimer* m_scrolled;

    SymbolButton* m_up;
    ElidedLabel* m_folder;
    Button* m_cancel;
    Label* m_error;
    QWidget* m_errorStrip;
    RowList* m_list;
    Label* m_loading;
    QWidget* m_nothing;
    /// Between the second press of a double click and its release.
    bool m_isSecondClick = false;
};

} // namespace brisklog
