#pragma once

#include <QTextEdit>
#include <functional>

namespace brisklog {

/// Several lines of plain text to write on, 80 high, 18 from line to line. Tab leaves it.
class TextArea final : public QTextEdit {
public:
    explicit TextArea(const QString& placeholder = {}, QWidget* parent = nullptr);

    /// Runs after every change made by the user; never after `setValue`.
    void onEdited(std::function<void(const QString&)> edited);
    /// Sets the text without moving the cursor when it is the same already.
    void setValue(const QString& text);
    /// The text with its lines parted by line feeds; unlike `toPlainText` it keeps no-break spaces.
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
    /// What was set or typed last.
    QString m_value;
};

} // namespace brisklog
