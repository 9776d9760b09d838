#include "ui/sheets/Sheets.h"

#include "ui/look/WindowPlace.h"
#include "ui/sheets/SheetHost.h"

#include <QPointer>
#include <QScreen>
#include <algorithm>

namespace brisklog {
namespace {

/// Centred over the window, but inside the screen and no larger than it.
QRect placeOver(const QWidget& window, const QSize& wanted) {
    const QRect available = freeAreaOf(*window.screen());
    QRect place(QPoint(), wanted.boundedTo(available.size()));
    place.moveCenter(window.mapToGlobal(window.rect().center()));
    place.moveLeft(std::clamp(place.left(), available.left(), available.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), available.top(), available.bottom() + 1 - place.height()));
    return place;
}

/// To the host itself, or to the sheet this one was opened from.
void giveFocusBack(QWidget& window) {
    if (auto* host = dynamic_cast<SheetHost*>(&window)) {
        host->takeFocusBack();
        return;
    }
    window.raise();
    window.activateWindow();
}

} // namespace

SheetHost* sheetHostOf(QWidget& widget) {
    for (QWidget* above = &widget; above; above = above->parentWidget())
        if (auto* host = dynamic_cast<SheetHost*>(above))
            return host;
    return nullptr;
}

SheetWindow& presentSheet(QWidget& from, std::unique_ptr<SheetWindow> sheet) {
    SheetWindow& shown = *sheet.release();
    QWidget& window = *from.window();
    const Qt::WindowFlags onTop = window.windowFlags() & Qt::WindowStaysOnTopHint;
    shown.setParent(&window, shown.windowFlags() | onTop);
    shown.setAttribute(Qt::WA_DeleteOnClose);
    shown.setWindowModality(Qt::WindowModal);
    if (SheetHost* host = sheetHostOf(from))
        shown.keep(host->holdOpen());
    shown.onEnded([back = QPointer(&window)] {
        if (back)
            giveFocusBack(*back);
    });
    const QRect place = placeOver(window, shown.size());
    shown.setFixedSize(place.size());
    placeWindow(shown, place.topLeft());
    shown.show();
    shown.activateWindow();
    return shown;
}

} // namespace brisklog
