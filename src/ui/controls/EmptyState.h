#pragma once

#include <QString>
#include <QWidget>
#include <functional>

namespace brisklog {

/// Takes the place of an empty list and says what to do next. Fills the available room, with its content
/// centred.
class EmptyState final : public QWidget {
public:
    /// The disc is 72 wide, in sheets 88.
    enum class Place { screen, sheet };

    struct Content {
        QString symbol;
        QString headline;
        QString sentence;
        /// Empty: no button.
        QString buttonCaption = {};
        std::function<void()> action = {};
    };

    explicit EmptyState(const Content& content, Place place = Place::screen, QWidget* parent = nullptr);
};

} // namespace brisklog
