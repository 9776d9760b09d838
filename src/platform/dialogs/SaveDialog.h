#pragma once

#include <QString>
#include <filesystem>
#include <functional>
#include <optional>

class QObject;
class QWidget;

namespace brisklog {

/// What a save panel shows, cleaned and ready.
struct SaveQuestion {
    QString title;
    /// The offered file name.
    QString name;
    /// The folder it opens in.
    QString folder;
};

/// Opens the toolkit's file dialog (the desktop's own where the toolkit has one) as a sheet of `parent`, or
/// free without one. `answered` is called once, with no file on cancel and when the dialog vanishes with its
/// parent; it is not called when `context` is gone by then.
void openSaveDialog(QWidget* parent, const SaveQuestion& question, QObject* context,
                    std::function<void(std::optional<std::filesystem::path>)> answered);

} // namespace brisklog
