#pragma once

#include <QPlainTextEdit>
#include <functional>

namespace brisklog {

/// Several lines to write on, 80 high. Tab leaves it.
class TextArea final : public QPlainTextEdit {
public:
    explicit TextArea(const QString& placeholder = {}, QWidget* parent = nullptr);

    /// Runs after every change made by the user; never after `setValue`.
    void onEdited(std::function<void(const QString&)> edited);
    /// Sets the text without moving the cursor when it is the same already.
    void setValue(const QString& text);

    [[nodiscard]] QSize sizeHint() const override { return {240, 80}; }

    [[nodiscard]] QSize minimumSizeHint() const override { return {80, 80}; }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void paintGround();

    bool m_isHovered = false;
    bool m_isSettingValue = false;
};

} // namespace brisklog
