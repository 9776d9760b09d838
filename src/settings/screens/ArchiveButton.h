#pragma once

#include "ui/controls/Clickable.h"

namespace brisklog {

/// The card that is one button and leads to the archive.
class ArchiveButton final : public Clickable {
public:
    explicit ArchiveButton(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace brisklog
