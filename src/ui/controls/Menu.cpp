#include "ui/controls/Menu.h"

#include "ui/lists/RowDelegate.h"
#include "ui/look/Layout.h"
#include "ui/look/Painting.h"
#include "ui/look/ScreenReader.h"
#include "ui/look/Symbols.h"
#include "ui/look/WindowPlace.h"

#include <QAbstractListModel>
#include <QPainter>
#include <QScreen>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace brisklog {
namespace {

constexpr int rowRadius = 5;
constexpr int padding = 4;
constexpr int widest = 420;
constexpr int rowHeight = 28;
constexpr int dividerHeight = 9;
constexpr int dividerInset = 6;
constexpr int symbolSize = 14;
constexpr int rowPaddingLeft = 8;
constexpr int rowPaddingRight = 8;
constexpr int columnGap = 8;
constexpr int textLeft = rowPaddingLeft + symbolSize + columnGap;

int heightOf(const MenuItem& item) { return item.isDivider ? dividerHeight : rowHeight; }

/// The items as a list model.
class MenuModel final : public QAbstractListModel {
public:
    MenuModel(const std::vector<MenuItem>& items, QObject* parent)
        : QAbstractListModel(parent), m_items(items) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_items.size());
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        switch (role) {
        case Qt::DisplayRole:
            return item(index).text;
        case Qt::CheckStateRole:
            return isChoice() ? QVariant(item(index).isChecked ? Qt::Checked : Qt::Unchecked) : QVariant();
        case RowList::accessibleRole:
            return item(index).isDivider ? QAccessible::Separator : QAccessible::MenuItem;
        default:
            return {};
        }
    }

    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override {
        return item(index).isEnabled ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
    }

private:
    [[nodiscard]] const MenuItem& item(const QModelIndex& index) const {
        return m_items[static_cast<std::size_t>(index.row())];
    }

    /// Whether the menu shows which of its items is the chosen one.
    [[nodiscard]] bool isChoice() const {
        return std::ranges::find(m_items, true, &MenuItem::isChecked) != m_items.end();
    }

    const std::vector<MenuItem>& m_items;
};

class MenuDelegate final : public RowDelegate {
public:
    MenuDelegate(const std::vector<MenuItem>& items, RowList& list) : RowDelegate(list), m_items(items) {}

protected:
    [[nodiscard]] QSize sizeOf(const QModelIndex& index) const override { return {0, heightOf(item(index))}; }

    void paintRow(QPainter& painter, const PaintedRow& row) const override {
        const Palette& palette = Palette::current();
        if (item(row.index).isDivider)
            paintHairline(painter,
                          QRect(row.area.x() + dividerInset, row.area.center().y(),
                                row.area.width() - 2 * dividerInset, 1),
                          palette.line);
        else
            paintItem(painter, row.area, item(row.index), list().currentIndex() == row.index, palette);
    }

private:
    static void paintItem(QPainter& painter, const QRect& area, const MenuItem& row, bool isCurrent,
                          const Palette& palette) {
        if (isCurrent && row.isEnabled)
            fillRounded(painter, area, rowRadius, withOpacity(palette.control, 0.8));
        QRect column(area.x() + rowPaddingLeft, area.y(), symbolSize, area.height());
        if (row.isChecked)
            paintSymbol(painter, column, u"checkmark"_s, symbolSize, palette.text);
        column.translate(symbolSize + columnGap, 0);
        int left = textLeft;
        if (!row.symbol.isEmpty()) {
            paintSymbol(painter, column, row.symbol, symbolSize, palette.*row.symbolColor);
            left += symbolSize + columnGap;
        }
        paintText(painter, area.adjusted(left, 0, -rowPaddingRight, 0), row.text, FontRole::body13,
                  row.isEnabled ? palette.text : palette.disabled());
    }

    [[nodiscard]] const MenuItem& item(const QModelIndex& index) const {
        return m_items[static_cast<std::size_t>(index.row())];
    }

    const std::vector<MenuItem>& m_items;
};

int widthOf(const MenuItem& item) {
    const int symbol = item.symbol.isEmpty() ? 0 : symbolSize + columnGap;
    return textLeft + symbol + textWidth(item.text, FontRole::body13) + rowPaddingRight;
}

int startRowOf(const MenuContent& content) {
    if (content.currentRow >= 0)
        return content.currentRow;
    const auto checked = std::ranges::find(content.items, true, &MenuItem::isChecked);
    if (checked != content.items.end())
        return static_cast<int>(checked - content.items.begin());
    const auto enabled = std::ranges::find(content.items, true, &MenuItem::isEnabled);
    return enabled == content.items.end() ? -1 : static_cast<int>(enabled - content.items.begin());
}

/// The window of an open menu.
class MenuPopup final : public Popup {
public:
    MenuPopup(QWidget& anchor, const MenuContent& content);

    /// Gives the rows the focus and makes the starting row current.
    void takeFocus();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] QSize fittingSize(const MenuContent& content, const QWidget& anchor) const;
    void setCurrentRow(int row);
    /// Moves to the next enabled row in that direction, wrapping around at the end if necessary.
    void step(int from, int direction);
    void choose(int row);
    bool handleKey(int currentRow, int key);

    std::vector<MenuItem> m_items;
    int m_startRow;
    RowList* m_list;
    bool m_isClosing = false;
};

MenuPopup::MenuPopup(QWidget& anchor, const MenuContent& content)
    : Popup(anchor), m_items(content.items), m_startRow(startRowOf(content)),
      m_list(new RowList(RowList::RowHeights::different)) {
    setAccessibleRole(*this, QAccessible::PopupMenu);
    const QString name = QAccessible::queryAccessibleInterface(&anchor)->text(QAccessible::Name);
    setAccessibleName(name);
    m_list->setRows(*new MenuModel(m_items, this), *new MenuDelegate(m_items, *m_list));
    m_list->setAccessibleName(name);
    m_list->onKey([this](const QModelIndex& current, int key) { return handleKey(current.row(), key); });
    connect(m_list, &QAbstractItemView::entered, this,
            [this](const QModelIndex& index) { setCurrentRow(index.row()); });
    m_list->onClicked([this](const QModelIndex& index) { choose(index.row()); });
    Column{m_list}.margins(padding).applyTo(*this);
    setFixedSize(fittingSize(content, anchor));
}

QSize MenuPopup::fittingSize(const MenuContent& content, const QWidget& anchor) const {
    int longest = 0;
    int height = 0;
    for (std::size_t row = 0; row < m_items.size(); ++row) {
        longest = std::max(longest, widthOf(m_items[row]));
        if (std::cmp_less(row, content.maximumVisibleRows))
            height += heightOf(m_items[row]);
    }
    const int width = std::max(anchor.width(), std::min(longest + 2 * padding, widest));
    const QSize whole(content.width > 0 ? content.width : width, height + 2 * padding);
    return whole.boundedTo(freeAreaOf(*anchor.screen()).size());
}

void MenuPopup::takeFocus() {
    m_list->setFocus(Qt::PopupFocusReason);
    setCurrentRow(m_startRow);
    m_list->scrollTo(m_list->currentIndex());
}

void MenuPopup::setCurrentRow(int row) {
    if (row < 0 || std::cmp_greater_equal(row, m_items.size()) ||
        !m_items[static_cast<std::size_t>(row)].isEnabled)
        return;
    m_list->setCurrentIndex(m_list->model()->index(row, 0));
    m_list->viewport()->update();
}

void MenuPopup::step(int from, int direction) {
    const int count = static_cast<int>(m_items.size());
    for (int tried = 1; tried <= count; ++tried) {
        const int row = ((from + direction * tried) % count + count) % count;
        if (m_items[static_cast<std::size_t>(row)].isEnabled) {
            setCurrentRow(row);
            return;
        }
    }
}

void MenuPopup::choose(int row) {
    if (m_isClosing || row < 0 || !m_items[static_cast<std::size_t>(row)].isEnabled)
        return;
    // A copy: closing may destroy the menu before the action has run.
    const auto chosen = m_items[static_cast<std::size_t>(row)].chosen;
    close();
    if (chosen)
        chosen();
}

bool MenuPopup::handleKey(int currentRow, int key) {
    switch (key) {
    case Qt::Key_Down:
        step(currentRow, 1);
        return true;
    case Qt::Key_Up:
        step(currentRow, -1);
        return true;
    case Qt::Key_Home:
        step(-1, 1);
        return true;
    case Qt::Key_End:
        step(0, -1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        choose(currentRow);
        return true;
    case Qt::Key_Escape:
        close();
        return true;
    default:
        return false;
    }
}

void MenuPopup::closeEvent(QCloseEvent* event) {
    m_isClosing = true;
    Popup::closeEvent(event);
}

} // namespace

MenuItem MenuItem::divider() {
    MenuItem item;
    item.isDivider = true;
    item.isEnabled = false;
    return item;
}

QWidget* showMenu(QWidget& anchor, const MenuContent& content) {
    auto* const popup = new MenuPopup(anchor, content);
    popup->open(content.place);
    popup->takeFocus();
    return popup;
}

} // namespace brisklog
