#pragma once

#include "SourceTree.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace brisklog::test {

/// Which boxes a box stands on, by box. A box is a folder of src/, such as "core" or "ui/look"; main.cpp is
/// one of its own, "app/main.cpp".
using Arrows = std::map<std::string, std::vector<std::string>>;

/// One line each, about one violation.
using Complaints = std::vector<std::string>;

/// A line that includes something.
struct Include {
    SourceLine line;
    std::string header;
};

/// The box of a source file ("src/core/Project.h") or of a header as it is included ("core/Project.h").
[[nodiscard]] std::string boxOf(std::string file);

/// What is included of our own, between quotation marks.
[[nodiscard]] std::vector<Include> ownIncludes(const std::vector<SourceLine>& lines);

/// What is included of others, between angle brackets.
[[nodiscard]] std::vector<Include> foreignIncludes(const std::vector<SourceLine>& lines);

/// The boxes that the build files link, by the box that links them; a library that is none keeps its name.
/// The texts stand under the build files' folders below src/.
[[nodiscard]] Arrows linksIn(const std::map<std::string, std::string>& buildFiles);

/// Whether a box stands on another, be it over others. Each stands on itself.
[[nodiscard]] bool standsOn(const Arrows& arrows, const std::string& box, const std::string& below);

[[nodiscard]] Complaints circlesIn(const Arrows& arrows);

/// Includes of a box that the including one does not stand on.
[[nodiscard]] Complaints includesBeside(const Arrows& arrows, const std::vector<Include>& includes);

/// Links to a box that the linking one does not stand on.
[[nodiscard]] Complaints linksBeside(const Arrows& arrows, const Arrows& links);

/// Arrows to a box of which nothing is included.
[[nodiscard]] Complaints unusedArrows(const Arrows& arrows, const std::vector<Include>& includes);

/// The toolkit's widgets where nothing is shown. `isWidgets` tells their headers from others.
[[nodiscard]] Complaints widgetsWhereNothingIsShown(const std::vector<Include>& includes,
                                                    const std::function<bool(const std::string&)>& isWidgets);

/// Lines outside the application that make one of the process-wide objects instead of taking a reference.
[[nodiscard]] Complaints processWideObjectsMadeIn(const std::vector<SourceLine>& lines);

} // namespace brisklog::test
