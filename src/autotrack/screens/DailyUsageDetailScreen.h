#pragma once

#include "autotrack/DailyUsageDetailView.h"

#include <QWidget>

namespace brisklog {

class Images;

/// What a day's window shows: the total and every application with its time.
class DailyUsageDetailScreen final : public QWidget {
public:
    DailyUsageDetailScreen(const DailyUsageDetailView& detail, const Images& images,
                           QWidget* parent = nullptr);
};

} // namespace brisklog
