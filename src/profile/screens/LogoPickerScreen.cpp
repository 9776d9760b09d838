#include "profile/screens/LogoPickerScreen.h"

#include "profile/screens/FileItemView.h"
#include "ui/controls/Button.h"
#include "ui/controls/EmptyState.h"
#include "ui/controls/SymbolButton.h"
#include "ui/lists/RowList.h"
#include "ui/look/Hairline.h"
#include "ui/look/Keys.h"
#include "ui/look/Label.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Text.h"

#include <QGridLayout>
#include <QScrollBar>
#include <QTimer>
#include <cmath>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int barHeight = 47;
constexpr QMargins barMargins{12, 0, 16, 0};
constexpr QMargins errorMargins{16, 10, 16, 0};
/// Together with the tiles' inset in their cells, the first row is 12 below the bar and 16 from the edge.
constexpr QMargins listMargins{12, 7, 0, 0};
constexpr int gap = 8;

QString nameOf(const std::filesystem::path& folder) {
    const auto name = folder.has_filename() ? folder.filename() : folder;
    return onOneLine(screenText(name.string()));
}

QWidget* emptyFolderNotice() {
    return new EmptyState({.symbol = u"photo"_s,
                           .headline = u"Hier liegen keine Bilder"_s,
                           .sentence = u"Mit dem Pfeil in den übergeordneten Ordner wechseln."_s},
                          EmptyState::Place::sheet);
}

} // namespace

LogoPickerScreen::LogoPickerScreen(const LogoPickerPlatform& platform, Background& pictures,
                                   const LogoPickerView::Actions& actions, QWidget* parent)
    : Screen(parent), m_view(platform, actions),
      m_thumbnails(platform.images, pictures, [this] { m_list->viewport()->update(); }),
      m_scrolled(new QTimer(this)), m_up(new SymbolButton(u"arrow.up"_s, u"Übergeordneter Ordner"_s)),
      m_folder(new ElidedLabel({}, FontRole::body13Semibold)), m_cancel(new Button(u"Abbrechen"_s)),
      m_error(new Label({}, FontRole::tab12, &Palette::red, Label::Lines::wrapped)),
      m_errorStrip(errorStrip()), m_list(new RowList),
      m_loading(new Label(u"Lade Inhalte..."_s, FontRole::body13, &Palette::secondary)),
      m_nothing(emptyFolderNotice()) {
    m_up->onClick([this] { m_view.moveToParentFolder(); });
    m_cancel->onClick(actions.dismiss);
    makeList();
    Column{bar(), new Hairline, m_errorStrip, expanding(body())}.applyTo(*this);
    setTabOrder(m_up, m_list);
    setTabOrder(m_list, m_cancel);
    observe(m_view);
}

QWidget* LogoPickerScreen::bar() {
    return asBar(Row{m_up, expanding(m_folder), m_cancel}.spacing(gap).margins(barMargins), barHeight);
}

QWidget* LogoPickerScreen::errorStrip() { return asWidget(Row{expanding(m_error)}.margins(errorMargins)); }

QWidget* LogoPickerScreen::body() {
    auto* const body = new QWidget;
    auto* const layers = new QGridLayout(body);
    layers->setContentsMargins({});
    // The list stays visible below the others, so that it keeps the focus while a folder is read.
    layers->addWidget(asWidget(Column{expanding(m_list)}.margins(listMargins)), 0, 0);
    layers->addWidget(m_loading, 0, 0, Qt::AlignCenter);
    layers->addWidget(m_nothing, 0, 0);
    return body;
}

void LogoPickerScreen::focusTiles() { m_list->setFocus(); }

void LogoPickerScreen::makeList() {
    m_list->setFlow(QListView::LeftToRight);
    m_list->setWrapping(true);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setGridSize(FileItemView::cell);
    m_list->setRows(m_model, *new FileItemView(m_model, m_thumbnails, *m_list));
    m_list->onKey([this](const QModelIndex& current, int key) {
        if (isReturn(key))
            choose(current);
        return isReturn(key);
    });
    m_list->viewport()->installEventFilter(this);
    m_list->onClicked([this](const QModelIndex& index) { choose(index); });
    m_scrolled->setSingleShot(true);
    connect(m_scrolled, &QTimer::timeout, this, [this] { showThumbnails(); });
    connect(m_list->verticalScrollBar(), &QScrollBar::valueChanged, m_scrolled,
            [this] { m_scrolled->start(0); });
}

void LogoPickerScreen::refresh() {
    const QString folder = nameOf(m_view.currentDirectory);
    const bool isLoading = m_view.isLoading;
    const bool hasError = !m_view.errorText->empty();
    m_folder->setValue(folder);
    m_list->setAccessibleName(folder);
    showError(onOneLine(screenText(*m_view.errorText)));
    m_errorStrip->setVisible(hasError);
    m_loading->setVisible(isLoading);
    m_nothing->setVisible(!isLoading && !hasError && m_view.items->empty());
    showItems();
}

void LogoPickerScreen::showError(const QString& error) {
    if (m_error->text() != error)
        announce(*this, error);
    m_error->setValue(error);
}

void LogoPickerScreen::showItems() {
    if (m_shownItems == m_view.items.revision())
        return;
    m_shownItems = m_view.items.revision();
    m_thumbnails.clear();
    m_model.setItems(m_view.items);
    m_list->scrollToTop();
    const auto previous = m_view.rowOfPreviousDirectory();
    if (previous || m_list->showsFocusRing()) {
        m_list->setCurrentIndex(m_model.index(static_cast<int>(previous.value_or(0))));
        m_list->scrollTo(m_list->currentIndex());
    }
    m_scrolled->start(0);
}

void LogoPickerScreen::resizeEvent(QResizeEvent* event) {
    Screen::resizeEvent(event);
    m_scrolled->start(0);
}

void LogoPickerScreen::showThumbnails() {
    const QSize seen = m_list->viewport()->size();
    const int columns = std::max(1, seen.width() / FileItemView::cell.width());
    const int scrolled = m_list->verticalScrollBar()->value();
    const int first = scrolled / FileItemView::cell.height() * columns;
    const int pastLast = ((scrolled + seen.height()) / FileItemView::cell.height() + 1) * columns;
    std::vector<std::filesystem::path> files;
    for (int row = first; row < std::min(pastLast, m_model.rowCount()); ++row)
        if (const FileItem* const item = m_model.item(row); !item->isDirectory)
            files.push_back(item->path);
    const int side = static_cast<int>(std::ceil(FileItemView::pictureSide * devicePixelRatioF()));
    m_thumbnails.show(files, {side, side});
}

void LogoPickerScreen::choose(const QModelIndex& index) {
    // A copy: the selection may replace the model's items before it returns.
    if (const FileItem* const item = m_model.item(index.row()))
        m_view.handleSelection(FileItem(*item));
}

bool LogoPickerScreen::eventFilter(QObject* watched, QEvent* event) {
    // The first click already opens a folder: the second click of a double click must not choose what is then
    // under the pointer.
    if (event->type() == QEvent::MouseButtonDblClick)
        return m_isSecondClick = true;
    if (event->type() == QEvent::MouseButtonRelease)
        return std::exchange(m_isSecondClick, false);
    return Screen::eventFilter(watched, event);
}

} // namespace brisklog
