#pragma once

#include <QEvent>
#include <QObject>
#include <QWidget>

namespace brisklog::test {

/// Counts how often a widget is painted during this object's lifetime.
class PaintCounter final : public QObject {
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }

    [[nodiscard]] int count() const { return m_count; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            ++m_count;
        return QObject::eventFilter(watched, event);
    }

private:
    int m_count = 0;
};

} // namespace brisklog::test
