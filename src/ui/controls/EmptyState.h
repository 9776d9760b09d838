#pragma once

#include <QString>
#include <QWidget>
#include <functional>

namespace brisklog {

/// Stands where a list would be and says what to do next. Fills the room it is given, its content in the
/// middle.
class EmptyState final : public QWidget {
public:
    /// The disc is 72 wide, in sheets 88.
    enum class Place { screen, sheet };

    struct Content {
        QString symbol;
        QString headline;
        QString sentence;
        /// Empty: there is nothing to press.
        QString buttonCaption = {};
        std::function<void()> action = {};
    };

    explicit EmptyState(const Content& content, Place place = Place::screen, QWidget* parent = nullptr);
};

} // namespace brisklog
