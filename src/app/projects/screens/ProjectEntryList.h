#pragma once

#include "app/projects/screens/ProjectEntryModel.h"
#include "ui/lists/Newcomer.h"

#include <QPersistentModelIndex>
#include <QWidget>
#include <optional>

namespace brisklog {

class RowList;

/// The card with all entries of a project. It ends below its last row, or extends past the window's edge and
/// scrolls.
class ProjectEntryList final : public QWidget {
public:
    ProjectEntryList(const TimeTrackingStore& store, const Clock& clock, QWidget* parent = nullptr);

    /// Does nothing if neither the store's projects nor the time zone have changed since.
    void showProject(int projectIndex);

    /// The entry with that id will be a timer's that has been stopped: when it comes, it is brought into
    /// view, and its ground fades once. Any other leaves the list where it is.
    void awaitEntry(const Uuid& id) { m_awaited = id; }

    /// The list's tab stop.
    [[nodiscard]] QWidget* tabStop() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QRect cardArea() const;
    void place();
    void showIfAwaited(const QModelIndex& row);

    RowList* m_view;
    ProjectEntryModel* m_model;
    std::optional<Uuid> m_awaited;
    QPersistentModelIndex m_newRow;
    Newcomer m_newcomer;
};

} // namespace brisklog
