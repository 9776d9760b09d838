#pragma once

#include <QLineEdit>
#include <functional>

namespace brisklog {

/// A single-line input. In text that is pasted or set, line breaks, tabs and other control characters become
/// spaces. The accessible name is the placeholder unless a label was given with `withLabelAbove` or
/// `setAccessibleName`.
class TextField final : public QLineEdit {
public:
    /// 32 high, or 34 next to a button of that height.
    enum class Size { normal, tall };

    explicit TextField(const QString& placeholder = {}, Size size = Size::normal, QWidget* parent = nullptr);

    /// Runs after every change made by the user, with the keyboard or through a screen reader; never after
    /// `setValue`.
    void onEdited(std::function<void(const QString&)> edited);
    /// Runs on Return. Without it, Return triggers the sheet's main action.
    void onReturn(std::function<void()> returned);

    /// Sets the text. Does nothing if it is unchanged, so that the cursor stays.
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
    /// Whether `setValue` is running.
    bool m_isSettingValue = false;
    bool m_isHovered = false;
    std::function<void()> m_returned;
};

/// A label (11 medium) above a field, as one widget; the label becomes the field's accessible name.
[[nodiscard]] QWidget* withLabelAbove(const QString& label, QWidget* field, int gap = 4);

} // namespace brisklog
