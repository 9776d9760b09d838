#pragma once

#include <QString>
#include <filesystem>
#include <functional>
#include <optional>

class QObject;
class QWidget;

namespace brisklog {

/// What a save panel shows, sanitised and ready for use.
struct SaveQuestion {
    QString title;
    /// The suggested file name.
    QString name;
    /// The folder it opens in.
    QString folder;
};

/// Opens the toolkit's file dialog (the desktop's own if the toolkit supports it) as a sheet of `parent`, or
/// as a separate window without one. `answered` is called once, without a file on cancel and when the dialog
/// is destroyed with its parent; it is not called once `context` has been destroyed.
void openSaveDialog(QWidget* parent, const SaveQuestion& question, QObject* context,
                    std::function<void(std::optional<std::filesystem::path>)> answered);

} // namespace brisklog
