#pragma once

#include "foundation/Calendar.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/PdfFacility.h"
#include "platform/SavePanel.h"

#include <functional>
#include <string>

namespace brisklog {

class UserProfile;

/// What documents are made with and written through; all of it outlives the save panel.
struct DocumentFacilities {
    PdfFacility& pdf;
    const Clock& clock;
    SavePanel& savePanel;
    Files& files;
    Log& log;
    /// Who sends the documents; loaded when first asked for.
    std::function<const UserProfile&()> profile;
};

/// Asks where to save a document, and makes and writes it once the user has chosen. A failed write is one
/// printed line.
void exportDocument(const DocumentFacilities& facilities, const SaveRequest& request,
                    std::function<std::string()> makeDocument);

} // namespace brisklog
