#pragma once

#include "platform/PdfDocument.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brisklog::test {

/// Where something stands on a page: points from the page's left and top edges.
struct PdfBox {
    /// Counted from 1.
    int page = 0;
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

/// The first page of A4, in full.
inline constexpr PdfBox wholePage{1, 0, 0, a4.width, a4.height};

/// A word as it can be selected and copied.
struct PdfWord {
    PdfBox box;
    std::string text;
};

struct PdfImage {
    int page = 0;
    int width = 0;
    int height = 0;
    /// "image", or "smask" for the opacity of the image before it.
    std::string kind;
    /// "jpeg" for a JPEG kept as it was, "image" for pixels.
    std::string encoding;
};

/// A page as it is printed.
struct PdfPicture {
    double pixelsPerPoint = 1;
    int width = 0;
    int height = 0;
    /// Red, green, blue, row by row from the top.
    std::string pixels;

    /// 0 (black) to 255 (white): the darkest of the three colours.
    [[nodiscard]] int brightness(int column, int row) const;
    /// The smallest box, in points, around all that is not white inside `area`; absent when all is white.
    [[nodiscard]] std::optional<PdfBox> inkWithin(const PdfBox& area) const;
};

/// Reads a document back with the tools a user's viewer is made of.
class PdfReader {
public:
    explicit PdfReader(std::string_view bytes);
    ~PdfReader();
    PdfReader(const PdfReader&) = delete;
    PdfReader& operator=(const PdfReader&) = delete;

    /// What a thorough check complains about; empty for a sound document.
    [[nodiscard]] std::string complaints() const;
    /// A line of the document's information, for example "Author"; absent when it has none.
    [[nodiscard]] std::optional<std::string> information(std::string_view name) const;
    [[nodiscard]] int pageCount() const;
    /// All text in the order in which it was drawn, without blanks and line breaks.
    [[nodiscard]] std::string copiedText() const;

    /// All text as one reads it, from the top of a page to its bottom; the one way in which this reader gives
    /// back words written from right to left.
    [[nodiscard]] std::string readText() const;

    [[nodiscard]] const std::vector<PdfWord>& words() const { return m_words; }

    /// Words that follow each other on one line. The first place on a page counts.
    [[nodiscard]] std::optional<PdfBox> find(std::string_view phrase, int page = 1) const;
    [[nodiscard]] std::vector<PdfImage> images() const;
    [[nodiscard]] PdfPicture picture(int page, int dotsPerInch = 144) const;

private:
    [[nodiscard]] std::vector<PdfWord> readWords() const;

    std::filesystem::path m_file;
    /// Line by line, from left to right.
    std::vector<PdfWord> m_words;
};

/// The text without blanks, no-break spaces and line breaks.
[[nodiscard]] std::string withoutBlanks(std::string_view text);

} // namespace brisklog::test
