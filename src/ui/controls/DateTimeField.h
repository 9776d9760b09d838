#pragma once

#include <QDateTimeEdit>
#include <QPointer>
#include <functional>

namespace brisklog {

/// Date and time, 172 × 32, as "20.11.2026, 14:30". Each part can be typed or stepped with the arrow keys;
/// the calendar symbol (or Alt-Down) opens a month to choose the day from.
class DateTimeField final : public QDateTimeEdit {
public:
    DateTimeField(const QString& name, Qt::DayOfWeek firstWeekday, QWidget* parent = nullptr);

    /// Shows the moment's date and time, in its own time zone, without calling `onEdited`.
    void setMoment(const QDateTime& moment);
    /// Runs after the user changed it. The field has no time zone: it passes the date and time shown as UTC.
    void onEdited(std::function<void(const QDateTime&)> edited);

    [[nodiscard]] QSize sizeHint() const override { return {172, 32}; }

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /// Opens the month and returns it, for tests.
    QWidget* showCalendar();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] QRect symbolRect() const;
    void placeLine();
    void announceMoment();

    Qt::DayOfWeek m_firstWeekday;
    bool m_isSymbolHovered = false;
    bool m_isSettingMoment = false;
    QPointer<QWidget> m_calendar;
};

} // namespace brisklog
