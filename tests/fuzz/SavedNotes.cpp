// savedNotes.json.

#include "RoundTrip.h"

#include "core/TimeTrackingStore.h"

namespace brisklog::fuzz {

void tryInput(std::string_view bytes) { roundTripped<std::vector<SavedNote>>(bytes, json::Layout::pretty); }

} // namespace brisklog::fuzz
