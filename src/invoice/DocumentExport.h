#pragma once

#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/PdfFacility.h"
#include "platform/SavePanel.h"

#include <functional>
#include <string>

namespace brisklog {

class UserProfile;

/// What exporting a document needs; all of it outlives the save panel.
struct DocumentFacilities {
    PdfFacility& pdf;
    const Clock& clock;
    SavePanel& savePanel;
    Files& files;
    Log& log;
    /// The sender of the documents; loaded on first use.
    std::function<const UserProfile&()> profile;
};

/// Asks where to save a document, then makes and writes it once the user has chosen. A failed write prints
/// one line.
void exportDocument(const DocumentFacilities& facilities, const SaveRequest& request,
                    std::function<std::string()> makeDocument);

} // namespace brisklog
