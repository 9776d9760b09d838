#pragma once

#include "autotrack/screens/AppUsageModel.h"

#include <QWidget>

namespace brisklog {

class Images;

/// What a day's window shows: the total and every application with its time.
class DailyUsageDetailScreen final : public QWidget {
public:
    DailyUsageDetailScreen(DailyUsageDetailView detail, const Images& images, QWidget* parent = nullptr);

private:
    [[nodiscard]] QWidget* list(const Images& images);

    AppUsageModel m_model;
};

} // namespace brisklog
