#include "invoice/DocumentExport.h"

namespace brisklog {

void exportDocument(const DocumentFacilities& facilities, const SaveRequest& request,
                    std::function<std::string()> makeDocument) {
    facilities.savePanel.present(request, [&files = facilities.files, &log = facilities.log,
                                           makeDocument = std::move(makeDocument)](const auto& file) {
        if (!file)
            return;
        const auto written = files.writeDocument(*file, makeDocument());
        if (written.failed())
            log.print("Fehler beim Speichern der PDF: " + written.error().description);
    });
}

} // namespace brisklog
