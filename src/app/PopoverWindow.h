#pragma once

#include "app/AppDelegate.h"
#include "platform/WindowServer.h"
#include "ui/sheets/SheetHost.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

namespace brisklog {

/// Where the popover opens, in logical pixels: centred below an anchor in the upper half of the screen, above
/// one in the lower half, and at the top right without an anchor. 370 × 650, or as much of that as the
/// screen has beside its panels, and always inside it.
[[nodiscard]] QRect popoverPlace(const std::optional<ScreenRectangle>& anchor, const QRect& screen);

/// The popover: a frameless window of 370 × 650, smaller on a low screen, that closes when the user switches
/// to something else. Without a panel it is an ordinary window with a button to quit.
class PopoverWindow final : public QWidget, public Popover, public SheetHost {
public:
    struct Parts {
        /// Creates the main view and its store; called once, at launch.
        std::function<void()> loadContent;
        /// Creates the widget that shows the main view; called once, before the first show.
        std::function<QWidget*()> makeScreen;
        std::function<void()> quit;
        /// Runs when the user closes the window form, which stays open.
        std::function<void()> leaveWindow;
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

    /// The sheet opened last, else the popover itself.
    [[nodiscard]] QWidget& frontWindow();

    /// Opens it as an ordinary window, because no panel shows an icon.
    void showAsWindow();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    enum class Form { popover, window };

    void buildScreen();
    void setForm(Form form, const QSize& size);
    void showInFront();
    void closeIfLeft();
    /// Called when a button goes down anywhere on the screen.
    void handlePointerPress();

    [[nodiscard]] bool isHeldOpen() const { return m_hold.use_count() > 1; }

    [[nodiscard]] bool isPointerOnAnchor() const;

    Parts m_parts;
    Form m_form = Form::popover;
    QWidget* m_screen = nullptr;
    QWidget* m_windowStrip = nullptr;
    ColorScheme m_appearance = ColorScheme::light;
    std::optional<ScreenRectangle> m_anchor;
    /// Held while it is shown as a popover.
    Subscription m_pointerPresses;
    /// Whether it has had the focus since it was opened. Only then can the user leave it: earlier
    /// deactivations are left over from before.
    bool m_isEntered = false;
    /// Its use count tells how many sheets, alerts and panels keep the popover open: each holds a copy.
    std::shared_ptr<void> m_hold;
};

} // namespace brisklog
