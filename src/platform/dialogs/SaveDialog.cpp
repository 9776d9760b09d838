#include "platform/dialogs/SaveDialog.h"

#include <QFile>
#include <QFileDialog>
#include <QWidget>
#include <memory>
#include <utility>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

using Answer = std::function<void(std::optional<std::filesystem::path>)>;

void setTexts(QFileDialog& dialog, const SaveQuestion& question) {
    // Before the labels, because it recreates the buttons.
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setWindowTitle(question.title);
    dialog.setNameFilter(u"PDF-Dokumente (*.pdf)"_s);
    dialog.setLabelText(QFileDialog::Accept, u"Speichern"_s);
    dialog.setLabelText(QFileDialog::Reject, u"Abbrechen"_s);
    dialog.setLabelText(QFileDialog::LookIn, u"Ordner:"_s);
    dialog.setLabelText(QFileDialog::FileName, u"Name:"_s);
    dialog.setLabelText(QFileDialog::FileType, u"Dateityp:"_s);
}

void offerName(QFileDialog& dialog, const SaveQuestion& question) {
    dialog.setDefaultSuffix(u"pdf"_s);
    dialog.setDirectory(question.folder);
    QString name = question.name;
    // The toolkit's dialog treats text between quotation marks as one of several names.
    dialog.selectFile(name.replace(u'"', u'\''));
}

std::optional<std::filesystem::path> chosenFile(const QFileDialog& dialog, int result) {
    const QStringList files = dialog.selectedFiles();
    if (result != QDialog::Accepted || files.isEmpty())
        return std::nullopt;
    return std::filesystem::path(QFile::encodeName(files.first()).toStdString());
}

} // namespace

void openSaveDialog(QWidget* parent, const SaveQuestion& question, QObject* context, Answer answered) {
    auto* const dialog = new QFileDialog(parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::WindowModal);
    setTexts(*dialog, question);
    offerName(*dialog, question);
    const auto pending = std::make_shared<Answer>(std::move(answered));
    QObject::connect(dialog, &QDialog::finished, context, [dialog, pending](int result) {
        if (const auto answer = std::exchange(*pending, {}))
            answer(chosenFile(*dialog, result));
    });
    // The parent may be destroyed at any time, even while the program ends, so this answer is queued.
    QObject::connect(
        dialog, &QObject::destroyed, context,
        [pending] {
            if (const auto answer = std::exchange(*pending, {}))
                answer(std::nullopt);
        },
        Qt::QueuedConnection);
    QObject::connect(context, &QObject::destroyed, dialog, &QObject::deleteLater);
    dialog->open();
}

} // namespace brisklog
