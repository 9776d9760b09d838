#pragma once

#include <QLineEdit>
#include <functional>

namespace brisklog {

/// A line to write on. What is pasted or set comes on one line: line breaks, tabs and other control
/// characters become blanks. The accessible name is the placeholder unless a label was given with
/// `withLabelAbove` or `setAccessibleName`.
class TextField final : public QLineEdit {
public:
    /// 32 high, or 34 beside a button of that height.
    enum class Size { normal, tall };

    explicit TextField(const QString& placeholder = {}, Size size = Size::normal, QWidget* parent = nullptr);

    /// Runs after every change made by the user, with the keyboard or through a screen reader; never after
    /// `setValue`.
    void onEdited(std::function<void(const QString&)> edited);
    /// Runs on Return. Without it Return goes to the sheet's main action.
    void onReturn(std::function<void()> returned);

    /// Sets the text without moving the cursor when it is the same already.
    void setValue(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void cleanUp(const QString& text);

    Size m_size;
    /// `setValue` is under way.
    bool m_isBeingSet = false;
    bool m_isHovered = false;
    std::function<void()> m_returned;
};

/// Label (11 medium) above a field, as one widget; the label becomes the field's accessible name.
[[nodiscard]] QWidget* withLabelAbove(const QString& label, QWidget* field, int gap = 4);

} // namespace brisklog
