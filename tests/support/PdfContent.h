#pragma once

#include "support/PdfReader.h"

#include <string>
#include <string_view>
#include <vector>

namespace brisklog::test {

/// From 0 (none) to 1.
struct PdfColour {
    double red = 0;
    double green = 0;
    double blue = 0;

    bool operator==(const PdfColour&) const = default;
};

/// From black (0) to white (1).
[[nodiscard]] constexpr PdfColour grey(double brightness) { return {brightness, brightness, brightness}; }

enum class PdfWeight { regular, bold, mixed };

struct PdfStyle {
    double pointSize = 0;
    PdfWeight weight = PdfWeight::regular;
    PdfColour colour{};

    bool operator==(const PdfStyle&) const = default;
};

/// A line of text as it is written, in points from the page's left and top edges.
struct PdfRun {
    double left = 0;
    double baseline = 0;
    PdfStyle style{};
};

/// A straight line between two points.
struct PdfStroke {
    double fromX = 0;
    double fromY = 0;
    double toX = 0;
    double toY = 0;
    double width = 0;
    PdfColour colour{};

    bool operator==(const PdfStroke&) const = default;
};

/// A filled rectangle.
struct PdfArea {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    PdfColour colour{};

    bool operator==(const PdfArea&) const = default;
};

/// What one page tells a viewer to draw: the exact figures, where a picture of it has only pixels.
class PdfContent {
public:
    /// The document must outlive this.
    explicit PdfContent(const PdfReader& pdf, int page = 1);

    [[nodiscard]] const std::vector<PdfRun>& runs() const { return m_runs; }

    [[nodiscard]] const std::vector<PdfStroke>& strokes() const { return m_strokes; }

    [[nodiscard]] const std::vector<PdfArea>& areas() const { return m_areas; }

    /// The style of the text that begins with this phrase, or has it in its line.
    [[nodiscard]] PdfStyle styleOf(std::string_view phrase) const;
    /// All words in that style, line by line.
    [[nodiscard]] std::string wordsIn(const PdfStyle& style) const;

private:
    [[nodiscard]] PdfStyle styleAt(const PdfBox& word) const;

    const PdfReader& m_pdf;
    int m_page;
    std::vector<PdfRun> m_runs;
    std::vector<PdfStroke> m_strokes;
    std::vector<PdfArea> m_areas;
};

/// Readable failures.
void PrintTo(const PdfColour& colour, std::ostream* stream);
void PrintTo(const PdfStyle& style, std::ostream* stream);
void PrintTo(const PdfStroke& stroke, std::ostream* stream);
void PrintTo(const PdfArea& area, std::ostream* stream);

} // namespace brisklog::test
