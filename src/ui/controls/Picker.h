#pragma once

#include <QComboBox>
#include <QPointer>
#include <functional>
#include <vector>

namespace brisklog {

/// A choice of one among several, in a field that opens a menu of its own width. Space, Return and Alt-Down
/// open it, arrows and typed letters choose without opening. The wheel scrolls the screen, never the choice.
class Picker final : public QComboBox {
public:
    explicit Picker(QWidget* parent = nullptr);

    /// Replaces the choices; the chosen index stays where it still exists, else becomes the first.
    void setOptions(const std::vector<QString>& options);
    /// -1 shows the placeholder (`setPlaceholderText`). Does not count as chosen by the user.
    void setSelectedIndex(int index);

    [[nodiscard]] int selectedIndex() const { return currentIndex(); }

    /// Runs when the user chose, also the same one again.
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
    [[nodiscard]] QString shownText() const;
    [[nodiscard]] QRect textRect() const;

    QPointer<QWidget> m_menu;
};

} // namespace brisklog
