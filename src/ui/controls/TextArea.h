#pragma once

#include <QTextEdit>
#include <functional>

namespace brisklog {

/// An input for several lines of plain text, 80 high, with a line height of 18. Tab moves the focus.
class TextArea final : public QTextEdit {
public:
    explicit TextArea(const QString& placeholder = {}, QWidget* parent = nullptr);

    /// Runs after every change made by the user; never after `setValue`.
    void onEdited(std::function<void(const QString&)> edited);
    /// Sets the text. Does nothing if it is unchanged, so that the cursor stays.
    void setValue(const QString& text);
    /// The text with its lines separated by line feeds; unlike `toPlainText` it keeps no-break spaces.
    [[nodiscard]] QString value() const;

    [[nodiscard]] QSize sizeHint() const override { return {240, 80}; }

    [[nodiscard]] QSize minimumSizeHint() const override { return {80, 80}; }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void paintGround();
    void setLineHeights();
    void breakLine();

    bool m_isHovered = false;
    bool m_isSettingValue = false;
    /// The text last set or typed.
    QString m_value;
};

} // namespace brisklog
