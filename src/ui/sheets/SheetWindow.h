#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

class QHBoxLayout;
class QVBoxLayout;

namespace brisklog {

class Button;
class ElidedLabel;

/// A window over the popover, with the title in a header, a body, and the actions in a footer. Escape closes
/// it, Return presses the main action. The title is also its window title and accessible name. The focus
/// starts in the body's first field.
class SheetWindow : public QDialog {
public:
    /// `full`: a header of 52 and, once something is added to it, a footer of 56, each with a line; `bare`:
    /// only the body.
    enum class Chrome { full, bare };
    /// `scrolling`: the body scrolls vertically between header and footer; `fixed`: it fills the room.
    enum class Body { scrolling, fixed };

    SheetWindow(const QString& title, const QSize& size, Chrome chrome = Chrome::full);

    void setTitle(const QString& title);
    /// The body has its own margins: 20, in lists 16.
    void setBody(QWidget* body, Body kind = Body::scrolling);
    /// Adds it between the title and the close button, in the order of the calls.
    void addHeaderWidget(QWidget* widget);
    /// The space right of the header's last widget, 12 unless set.
    void setHeaderPaddingRight(int padding);
    /// Adds a symbol button at the header's right end that closes the sheet.
    void addCloseButton(const QString& tooltip, const QString& symbol = QStringLiteral("xmark.circle"));
    /// Adds it at the footer's left end.
    void addFooterLeading(QWidget* widget);
    /// Adds it at the footer's right end, to the right of those added before.
    void addFooterTrailing(QWidget* widget);

    /// Return and Control-Return press it from anywhere in the sheet, unless the focused field uses Return
    /// itself.
    void setMainAction(Button& button) { m_mainAction = &button; }

    /// Closes the sheet; it is destroyed in the next turn of the event loop.
    void dismiss() {
        // Not with a close event: within one, the window would be destroyed only after the one below it has
        // been activated, and window managers would then focus neither.
        reject();
    }

    /// Runs once when the sheet has closed, for whatever reason. Several callbacks run in the order they were
    /// added.
    void onClosed(std::function<void()> closed) { m_closed.push_back(std::move(closed)); }

    /// Keeps something alive until the sheet has closed.
    void keep(std::shared_ptr<void> token) { m_kept = std::move(token); }

    /// Runs before the `onClosed` callbacks; reserved for the code that presents the sheet.
    void onEnded(std::function<void()> ended) { m_ended = std::move(ended); }

    void setVisible(bool isVisible) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void done(int result) override;

private:
    void buildHeader();
    void buildFooter();
    void animateIn();
    void end();
    void arrangeTabOrder();
    void focusFirstField();

    Chrome m_chrome;
    QVBoxLayout* m_column = nullptr;
    ElidedLabel* m_title = nullptr;
    QWidget* m_header = nullptr;
    QWidget* m_footer = nullptr;
    QWidget* m_body = nullptr;
    QHBoxLayout* m_headerRow = nullptr;
    QHBoxLayout* m_footerRow = nullptr;
    Button* m_mainAction = nullptr;
    std::vector<std::function<void()>> m_closed;
    std::function<void()> m_ended;
    std::shared_ptr<void> m_kept;
    int m_leadingCount = 0;
    bool m_hasAnimatedIn = false;
};

} // namespace brisklog
