#pragma once

#include <QWidget>

namespace brisklog {

/// The windows among the shared components: sheets, an alert, the month of a date field, and the empty state.
class SheetGallery final : public QWidget {
public:
    SheetGallery();
};

} // namespace brisklog
