#pragma once

#include "foundation/JsonCoding.h"
#include "foundation/Uuid.h"

#include <string>

namespace brisklog {

/// A text block kept for the notes of later invoices.
struct SavedNote {
    Uuid id;
    /// The title shown in the menu.
    std::string name;
    std::string content;

    bool operator==(const SavedNote&) const = default;
};

constexpr auto jsonFields(std::type_identity<SavedNote>) {
    return std::tuple{json::field<&SavedNote::id>("id"), json::field<&SavedNote::name>("name"),
                      json::field<&SavedNote::content>("content")};
}

} // namespace brisklog
