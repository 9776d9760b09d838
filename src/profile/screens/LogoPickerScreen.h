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

/// The logo picker's window inside: a bar with the way up, and the folder's entries as tiles.
class LogoPickerScreen final : public Screen {
public:
    /// `pictures` makes the thumbnails; like all of the platform it must outlive the screen.
    LogoPickerScreen(const LogoPickerPlatform& platform, Background& pictures,
                     const LogoPickerView::Actions& actions, QWidget* parent = nullptr);

    /// Gives the tiles the keyboard.
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
    void showItems();
    void showThumbnails();
    void choose(const QModelIndex& index);

    LogoPickerView m_view;
    Thumbnails m_thumbnails;
    FileItemModel m_model;
    std::optional<std::uint64_t> m_shownItems;
    /// Scrolling asks for thumbnails at most once a turn.
    QTimer* m_scrolled;

    SymbolButton* m_up;
    ElidedLabel* m_folder;
    Button* m_cancel;
    Label* m_error;
    QWidget* m_errorStrip;
    RowList* m_list;
    Label* m_loading;
    QWidget* m_nothing;
    /// The press that follows a click on a folder within a double click belongs to that click.
    bool m_isSecondClick = false;
};

} // namespace brisklog
