#pragma once

#include "app/AppDelegate.h"
#include "platform/WindowServer.h"
#include "ui/sheets/SheetHost.h"

#include <QRect>
#include <QWidget>
#include <functional>
#include <memory>

namespace brisklog {

/// The popover: a frameless window of 370 × 650 that closes when the user turns to something else. Without a
/// panel to hang from it is an ordinary window with a way to quit.
class PopoverWindow final : public QWidget, public Popover, public SheetHost {
public:
    struct Parts {
        /// Creates the main view and its store; called once, at launch.
        std::function<void()> loadContent;
        /// Makes the widget that shows the main view; called once, before the first show.
        std::function<QWidget*()> makeScreen;
        std::function<void()> quit;
        WindowServer& windowServer;
    };

    explicit PopoverWindow(Parts parts);
    ~PopoverWindow() override;

    [[nodiscard]] bool isShown() const override { return isVisible(); }

    void show(const std::optional<ScreenRectangle>& anchor) override;
    /// Closes it; while something holds it open, brings that to the front instead.
    void close() override;
    void setAppearance(ColorScheme appearance) override;
    void loadContent() override;

    [[nodiscard]] std::shared_ptr<void> holdOpen() override;
    void takeFocusBack() override;

    /// What has the user's attention: the sheet opened last, else the popover itself.
    [[nodiscard]] QWidget& frontWindow();

    /// Opens it as a window of its own, because no panel shows an icon.
    void showAsWindow();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    enum class Form { popover, window };

    void buildScreen();
    void setForm(Form form);
    void showInFront();
    void closeIfLeft();
    /// Wherever a button went down.
    void handlePointerPress();

    [[nodiscard]] bool isHeldOpen() const { return m_hold.use_count() > 1; }

    [[nodiscard]] bool isPointerOnAnchor() const;

    Parts m_parts;
    Form m_form = Form::popover;
    QWidget* m_screen = nullptr;
    QWidget* m_windowStrip = nullptr;
    ColorScheme m_appearance = ColorScheme::light;
    std::optional<ScreenRectangle> m_anchor;
    /// While it is shown as a popover.
    Subscription m_pointerPresses;
    /// Since it was opened it has had the focus. Only then can the user leave it: what is heard before
    /// belongs to the time before.
    bool m_isEntered = false;
    /// Counts the sheets, alerts and panels that keep it open: each holds a copy.
    std::shared_ptr<void> m_hold;
};

} // namespace brisklog
