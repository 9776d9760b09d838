#pragma once

#include "platform/StatusItem.h"

#include <QIcon>
#include <QString>
#include <functional>
#include <optional>

class QMenu;

namespace brisklog {

/// The icon as one kind of panel shows it, for as long as it exists.
class PanelIcon {
public:
    /// What every panel is told.
    struct Content {
        QIcon icon;
        QString description;
        /// Complete already, and outlives the icon.
        QMenu& menu;
        /// Called on a click, with the place of the icon as far as anyone reports it.
        std::function<void(const std::optional<ScreenRectangle>&)> clicked;
    };

    virtual ~PanelIcon() = default;

    virtual void setDescription(const QString& description) = 0;
};

} // namespace brisklog
