#pragma once

#include <QWidget>

namespace brisklog {

enum class PopupPlace {
    underAnchor,    ///< the left edges on one line
    middleOfWindow, ///< under the anchor too, but in the middle of its window
};

/// The rounded window of a menu or a calendar that a button or field opens. It destroys itself when it
/// closes.
class Popup : public QWidget {
public:
    /// Shows it under the anchor (above it where there is no room below), 4 pixels away, inside the screen.
    void open(PopupPlace place = PopupPlace::underAnchor);

protected:
    explicit Popup(QWidget& anchor);

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget& m_anchor;
};

} // namespace brisklog
