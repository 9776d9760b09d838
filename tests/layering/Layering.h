#pragma once

#include "SourceTree.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace brisklog::test {

/// For each box, the boxes it stands on directly. A box is a folder of src/, such as "core" or "ui/look";
/// main.cpp is a box by itself, "app/main.cpp".
using Arrows = std::map<std::string, std::vector<std::string>>;

/// One line per violation.
using Complaints = std::vector<std::string>;

/// A line with an #include directive.
struct Include {
    SourceLine line;
    std::string header;
};

/// The box of a source file ("src/core/Project.h") or of a header as it is included ("core/Project.h").
[[nodiscard]] std::string boxOf(std::string file);

/// Includes of our own headers, in quotation marks.
[[nodiscard]] std::vector<Include> ownIncludes(const std::vector<SourceLine>& lines);

/// Includes of foreign headers, in angle brackets.
[[nodiscard]] std::vector<Include> foreignIncludes(const std::vector<SourceLine>& lines);

/// For each box, what its build file links; a library that is not a box keeps its name. `buildFiles` maps
/// folders below src/ to the texts of their build files.
[[nodiscard]] Arrows linksIn(const std::map<std::string, std::string>& buildFiles);

/// Whether a box stands on another, directly or not. Each stands on itself.
[[nodiscard]] bool standsOn(const Arrows& arrows, const std::string& box, const std::string& below);

[[nodiscard]] Complaints circlesIn(const Arrows& arrows);

/// Includes from a box that the including one does not stand on.
[[nodiscard]] Complaints forbiddenIncludes(const Arrows& arrows, const std::vector<Include>& includes);

/// Links to a box that the linking one does not stand on.
[[nodiscard]] Complaints forbiddenLinks(const Arrows& arrows, const Arrows& links);

/// Arrows to a box from which nothing is included.
[[nodiscard]] Complaints unusedArrows(const Arrows& arrows, const std::vector<Include>& includes);

/// Includes of the toolkit's widgets in boxes that must not show anything. `isWidgets` recognises their
/// headers.
[[nodiscard]] Complaints widgetsWhereNothingIsShown(const std::vector<Include>& includes,
                                                    const std::function<bool(const std::string&)>& isWidgets);

/// Lines outside the application that make one of the process-wide objects instead of taking a reference.
[[nodiscard]] Complaints processWideObjectsMadeIn(const std::vector<SourceLine>& lines);

} // namespace brisklog::test
