#include "platform/dialogs/QtSavePanel.h"

#include "foundation/Text.h"
#include "platform/dialogs/PdfFileName.h"
#include "platform/dialogs/PortalSaveRequest.h"
#include "platform/dialogs/SaveDialog.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPointer>
#include <QWidget>
#include <utility>

namespace brisklog {
namespace {

using namespace Qt::StringLiterals;

SaveQuestion questionFor(const SaveRequest& request, const Files& files) {
    const auto documents = files.documentsFolder();
    const bool hasDocuments = documents && files.exists(*documents);
    return {.title = QString::fromStdString(text::onOneLine(request.title)),
            .name = QString::fromStdString(pdfFileName(request.suggestedName)),
            .folder = hasDocuments ? QFile::decodeName(documents->c_str()) : QDir::homePath()};
}

/// The portal's identifier of the window. Under Wayland the toolkit does not provide it.
QString portalNameOf(const QWidget* window) {
    if (window == nullptr || QGuiApplication::platformName() != u"xcb"_s)
        return {};
    return u"x11:"_s + QString::number(window->window()->winId(), 16);
}

} // namespace

/// One panel, from the request to the answer.
class QtSavePanel::Run final : public QObject {
public:
    Run(QtSavePanel& panel, const SaveRequest& request, Completion completed)
        : QObject(panel.m_context.get()), m_files(panel.m_files),
          m_question(questionFor(request, panel.m_files)), m_completed(std::move(completed)),
          m_hold(panel.m_owner.holdOpen()), m_parent(panel.m_owner.parentWindow()),
          m_portal(
              std::make_unique<PortalSaveRequest>(panel.m_bus, m_question, portalNameOf(m_parent),
                                                  [this](const PortalAnswer& answer) { take(answer); })) {}

private:
    void take(const PortalAnswer& answer) {
        m_portal.release()->deleteLater();
        if (answer.kind == PortalAnswer::Kind::unavailable)
            openDialog();
        else if (answer.kind == PortalAnswer::Kind::chosen)
            finish(answer.file);
        else
            finish(std::nullopt);
    }

    void openDialog() {
        openSaveDialog(m_parent, m_question, this, [this](const auto& file) { finish(file); });
    }

    void finish(const std::optional<std::filesystem::path>& file) {
        deleteLater();
        const auto isTaken = [this](const std::filesystem::path& path) { return m_files.exists(path); };
        m_completed(file ? std::optional(withPdfEnding(*file, isTaken)) : std::nullopt);
        m_hold.reset();
    }

    const Files& m_files;
    SaveQuestion m_question;
    Completion m_completed;
    std::shared_ptr<void> m_hold;
    QPointer<QWidget> m_parent;
    std::unique_ptr<PortalSaveRequest> m_portal;
};

QtSavePanel::QtSavePanel(const Files& files, Owner owner, QDBusConnection bus)
    : m_files(files), m_owner(std::move(owner)), m_bus(std::move(bus)),
      m_context(std::make_unique<QObject>()) {}

QtSavePanel::~QtSavePanel() = default;

void QtSavePanel::present(const SaveRequest& request, Completion completed) {
    // Deletes itself.
    new Run(*this, request, std::move(completed));
}

} // namespace brisklog
