// savedNotes.json.

#include "RoundTrip.h"

#include "core/SavedNote.h"

namespace brisklog::fuzz {

void tryInput(std::string_view bytes) { decodedAndBack<std::vector<SavedNote>>(bytes, json::Layout::pretty); }

} // namespace brisklog::fuzz
