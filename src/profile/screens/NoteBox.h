#pragma once

#include <QWidget>

namespace brisklog {

/// A remark that wants to be read: a heading over a text, marked like running time by the bar at its left.
class NoteBox final : public QWidget {
public:
    NoteBox(const QString& heading, const QString& text, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace brisklog
