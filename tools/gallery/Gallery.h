#pragma once

#include <QWidget>

namespace brisklog {

/// All shared components in all their states on one sheet.
class Gallery final : public QWidget {
public:
    Gallery();

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace brisklog
