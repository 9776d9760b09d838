#pragma once

#include "ui/controls/Popup.h"

#include <QDate>
#include <functional>

namespace brisklog {

/// The calendar month that a date field opens: a click or Return chooses a day, arrows move by days and
/// weeks, Page keys and the two chevrons by months.
class MonthPopup final : public Popup {
public:
    MonthPopup(QWidget& anchor, const QDate& selected, Qt::DayOfWeek firstWeekday,
               std::function<void(const QDate&)> chosen);

    [[nodiscard]] QDate currentDay() const { return m_current; }

    /// The weekday over that column, from 0.
    [[nodiscard]] QString heading(int column) const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QDate firstShownDay() const;
    [[nodiscard]] QRect cellRect(int cell) const;
    [[nodiscard]] QDate dayAt(const QPoint& position) const;
    void paintHeadings(QPainter& painter) const;
    void paintDay(QPainter& painter, int cell) const;
    void moveTo(const QDate& day);
    void choose(const QDate& day);

    QDate m_selected;
    QDate m_current;
    QDate m_hovered;
    Qt::DayOfWeek m_firstWeekday;
    std::function<void(const QDate&)> m_chosen;
    class Label* m_title;
};

} // namespace brisklog
