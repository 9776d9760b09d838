#pragma once

#include "ui/controls/Menu.h"

#include <QWidget>

namespace brisklog {

class RowList;

/// The window of an open menu. It destroys itself when it closes.
class MenuPopup final : public QWidget {
public:
    MenuPopup(QWidget& anchor, const MenuContent& content);

    /// Gives the rows the keyboard and makes the starting row current.
    void takeFocus();

    [[nodiscard]] int currentRow() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] QSize fittingSize(const MenuContent& content, int anchorWidth) const;
    void setCurrentRow(int row);
    /// To the next row in that direction that can be chosen, round the end if need be.
    void step(int from, int direction);
    void choose(int row);
    bool handleKey(int key);

    std::vector<MenuItem> m_items;
    int m_startRow;
    RowList* m_list;
    bool m_isClosing = false;
};

} // namespace brisklog
