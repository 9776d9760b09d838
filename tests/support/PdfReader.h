#pragma once

#include "platform/PdfDocument.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brisklog::test {

/// Where something is on a page, in points from the page's left and top edges.
struct PdfBox {
    /// Counted from 1.
    int page = 0;
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

/// The whole first page of A4.
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

/// A rendered page.
struct PdfPicture {
    double pixelsPerPoint = 1;
    int width = 0;
    int height = 0;
    /// Red, green, blue, row by row from the top.
    std::string pixels;

    /// 0 (black) to 255 (white): the darkest of the three channels.
    [[nodiscard]] int brightness(int column, int row) const;
    /// The smallest box, in points, around everything in `area` that is not white; absent when all is white.
    [[nodiscard]] std::optional<PdfBox> inkWithin(const PdfBox& area) const;
};

/// Reads a document back with command line tools that share their libraries with common viewers.
class PdfReader {
public:
    explicit PdfReader(std::string_view bytes);
    ~PdfReader();
    PdfReader(const PdfReader&) = delete;
    PdfReader& operator=(const PdfReader&) = delete;

    /// What a thorough check complains about; empty for a valid document.
    [[nodiscard]] std::string complaints() const;
    /// An item of the document's information, for example "Author"; absent when it has none.
    [[nodiscard]] std::optional<std::string> information(std::string_view name) const;
    /// The language the document says it is written in; empty when it does not say.
    [[nodiscard]] std::string language() const;
    /// What a screen reader is told: the tags line by line, indented by two blanks a level, each followed by
    /// its texts in quotation marks. Empty for a document without tags.
    [[nodiscard]] std::string structure() const;
    /// Its pages and objects with everything that is drawn, in JSON.
    [[nodiscard]] std::string objects() const;
    [[nodiscard]] int pageCount() const;
    /// All text in the order in which it was drawn, without blanks and line breaks.
    [[nodiscard]] std::string copiedText() const;

    /// All text in reading order, from the top of each page to its bottom; only this gets right-to-left words
    /// right.
    [[nodiscard]] std::string readText() const;

    [[nodiscard]] const std::vector<PdfWord>& words() const { return m_words; }

    /// The first place on the page where these words follow each other on one line.
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
