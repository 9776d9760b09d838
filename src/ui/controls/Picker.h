#pragma once

#include <QComboBox>
#include <QPointer>
#include <functional>
#include <vector>

namespace brisklog {

/// A choice of one of several options, in a field that opens a menu of the same width. Space, Return and
/// Alt-Down open it; arrows and typed letters choose without opening it. The wheel scrolls the screen and
/// never changes the choice.
class Picker final : public QComboBox {
public:
    explicit Picker(QWidget* parent = nullptr);

    /// Replaces the options; the selected index is kept if it still exists, else the first is selected.
    void setOptions(const std::vector<QString>& options);
    /// -1 shows the placeholder (`setPlaceholderText`). Does not call `onChosen`.
    void setSelectedIndex(int index);

    [[nodiscard]] int selectedIndex() const { return currentIndex(); }

    /// The selected option, else the placeholder.
    [[nodiscard]] QString shownText() const;

    /// Whether its menu is open.
    [[nodiscard]] bool isOpen() const { return !m_menu.isNull(); }

    /// Runs when the user has chosen, even the same option again.
    void onChosen(std::function<void(int)> chosen);

    void showPopup() override;
    void hidePopup() override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void choose(int index);
    void announceChoice();
    [[nodiscard]] QRect textRect() const;

    QPointer<QWidget> m_menu;
};

} // namespace brisklog
