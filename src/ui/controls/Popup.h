#pragma once

#include <QWidget>

namespace brisklog {

enum class PopupPlace {
    underAnchor,    ///< left edges aligned
    middleOfWindow, ///< below the anchor too, but centred in its window
};

/// The rounded window of a menu or a calendar that a button or field opens. It destroys itself when it
/// closes.
class Popup : public QWidget {
public:
    /// Shows it below the anchor (above it where there is no room below), 4 pixels away and inside the
    /// screen.
    void open(PopupPlace place = PopupPlace::underAnchor);

protected:
    explicit Popup(QWidget& anchor);

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget& m_anchor;
};

} // namespace brisklog
