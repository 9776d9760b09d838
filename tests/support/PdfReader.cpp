#include "support/PdfReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <tuple>
#include <unistd.h>

namespace brisklog::test {
namespace {

constexpr double pointsPerInch = 72;
/// Words whose tops differ by no more than this are on one line.
constexpr double sameLine = 1;
constexpr int white = 255;

struct Output {
    int status = -1;
    std::string text;
};

/// Runs a shell command to its end.
Output run(const std::string& command) {
    Output output;
    FILE* const pipe = ::popen(command.c_str(), "r");
    std::array<char, 65536> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe))
        output.text.append(buffer.data(), count);
    output.status = ::pclose(pipe);
    return output;
}

std::string runSuccessfully(const std::string& command) {
    // Keeps the tool's warnings, for example about an empty page, out of its output.
    const Output output = run(command + " 2>/dev/null");
    EXPECT_EQ(output.status, 0) << command << "\n" << output.text.substr(0, 1000);
    return output.text;
}

std::string replacingAll(std::string text, std::string_view from, std::string_view to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

std::string unescaped(std::string text) {
    for (const auto& [entity, character] :
         {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}})
        text = replacingAll(std::move(text), entity, character);
    return text;
}

std::vector<std::string> splitAtBlanks(std::string_view phrase) {
    std::istringstream stream(replacingAll(std::string(phrase), "\u00A0", " "));
    std::vector<std::string> parts;
    for (std::string part; stream >> part;)
        parts.push_back(part);
    return parts;
}

std::string between(const std::string& text, const std::string& before, const std::string& after) {
    const std::size_t begin = text.find(before) + before.size();
    return text.substr(begin, text.rfind(after) - begin);
}

double attribute(const std::string& element, const std::string& name) {
    const std::size_t value = element.find(name + "=\"") + name.size() + 2;
    return std::stod(element.substr(value, element.find('"', value) - value));
}

/// Sorts line by line, each from left to right; the tops of words on one line may differ a little.
void sortIntoLines(std::vector<PdfWord>& words) {
    std::ranges::stable_sort(words, {},
                             [](const PdfWord& word) { return std::tuple(word.box.page, word.box.top); });
    for (auto begin = words.begin(); begin != words.end();) {
        const auto end = std::find_if(begin, words.end(), [&first = *begin](const PdfWord& word) {
            return word.box.page != first.box.page || word.box.top - first.box.top > sameLine;
        });
        std::stable_sort(begin, end,
                         [](const PdfWord& a, const PdfWord& b) { return a.box.left < b.box.left; });
        begin = end;
    }
}

/// If BRISKLOG_PICTURES names a folder, keeps a copy there under the test's name for inspection.
void keepForLooking(const std::filesystem::path& file) {
    const char* const folder = std::getenv("BRISKLOG_PICTURES");
    const auto* const current = testing::UnitTest::GetInstance()->current_test_info();
    if (folder == nullptr || current == nullptr)
        return;
    static int number = 0;
    const std::string name = std::string(current->test_suite_name()) + "." + current->name() + "-" +
                             std::to_string(++number) + ".pdf";
    std::filesystem::copy_file(file, std::filesystem::path(folder) / name,
                               std::filesystem::copy_options::overwrite_existing);
}

PdfBox around(const PdfWord& first, const PdfWord& last) {
    return {first.box.page, first.box.left, first.box.top, last.box.right, last.box.bottom};
}

} // namespace

int PdfPicture::brightness(int column, int row) const {
    const auto at = static_cast<std::size_t>(row * width + column) * 3;
    const auto channel = [this, at](std::size_t offset) {
        return static_cast<int>(static_cast<unsigned char>(pixels[at + offset]));
    };
    return std::min({channel(0), channel(1), channel(2)});
}

std::optional<PdfBox> PdfPicture::inkWithin(const PdfBox& area) const {
    const auto pixel = [this](double points) {
        return static_cast<int>(std::lround(points * pixelsPerPoint));
    };
    std::optional<PdfBox> ink;
    for (int row = pixel(area.top); row < std::min(height, pixel(area.bottom)); ++row)
        for (int column = pixel(area.left); column < std::min(width, pixel(area.right)); ++column) {
            if (brightness(column, row) == white)
                continue;
            if (!ink)
                ink = PdfBox{area.page, 1e9, 1e9, 0, 0};
            ink->left = std::min(ink->left, column / pixelsPerPoint);
            ink->top = std::min(ink->top, row / pixelsPerPoint);
            ink->right = std::max(ink->right, (column + 1) / pixelsPerPoint);
            ink->bottom = std::max(ink->bottom, (row + 1) / pixelsPerPoint);
        }
    return ink;
}

PdfReader::PdfReader(std::string_view bytes) {
    std::string name = std::filesystem::temp_directory_path() / "brisklog-pdf-XXXXXX";
    const int descriptor = ::mkstemp(name.data());
    EXPECT_GE(descriptor, 0);
    ::close(descriptor);
    m_file = name;
    std::ofstream(m_file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    keepForLooking(m_file);
    m_words = readWords();
}

PdfReader::~PdfReader() {
    std::error_code ignored;
    std::filesystem::remove(m_file, ignored);
}

std::vector<PdfWord> PdfReader::readWords() const {
    std::istringstream lines(runSuccessfully("pdftotext -bbox " + m_file.string() + " -"));
    std::vector<PdfWord> words;
    int page = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line.find("<page ") != std::string::npos)
            ++page;
        if (line.find("<word ") == std::string::npos)
            continue;
        words.push_back({{page, attribute(line, "xMin"), attribute(line, "yMin"), attribute(line, "xMax"),
                          attribute(line, "yMax")},
                         unescaped(between(line, ">", "</word>"))});
    }
    sortIntoLines(words);
    return words;
}

std::string PdfReader::complaints() const {
    const Output check = run("qpdf --check " + m_file.string() + " 2>&1");
    const bool isSound =
        check.status == 0 && check.text.find("No syntax or stream encoding errors") != std::string::npos;
    return isSound ? "" : check.text;
}

std::optional<std::string> PdfReader::information(std::string_view name) const {
    std::istringstream lines(runSuccessfully("pdfinfo -box " + m_file.string()));
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(std::string(name) + ":"))
            return line.substr(std::min(line.size(), line.find_first_not_of(' ', name.size() + 1)));
    return std::nullopt;
}

std::string PdfReader::language() const {
    const std::string show = "qpdf " + m_file.string() + " --show-object=";
    const std::string catalog =
        runSuccessfully(show + between(runSuccessfully(show + "trailer"), "/Root ", " 0 R"));
    return catalog.find("/Lang (") == catalog.npos ? "" : between(catalog, "/Lang (", ")");
}

std::string PdfReader::structure() const {
    return runSuccessfully("pdfinfo -struct-text " + m_file.string());
}

std::string PdfReader::objects() const {
    return runSuccessfully("qpdf --json --json-stream-data=inline --decode-level=generalized " +
                           m_file.string());
}

int PdfReader::pageCount() const { return std::stoi(information("Pages").value_or("0")); }

std::string PdfReader::copiedText() const {
    return withoutBlanks(runSuccessfully("pdftotext -raw " + m_file.string() + " -"));
}

std::string PdfReader::readText() const { return runSuccessfully("pdftotext " + m_file.string() + " -"); }

std::optional<PdfBox> PdfReader::find(std::string_view phrase, int page) const {
    const auto parts = splitAtBlanks(phrase);
    const auto isPart = [page](const PdfWord& word, const std::string& part) {
        return word.box.page == page && word.text == part;
    };
    const auto found = std::search(m_words.begin(), m_words.end(), parts.begin(), parts.end(), isPart);
    if (found == m_words.end() || parts.empty())
        return std::nullopt;
    const auto last = found + static_cast<std::ptrdiff_t>(parts.size()) - 1;
    if (std::abs(last->box.top - found->box.top) > sameLine)
        return std::nullopt;
    return around(*found, *last);
}

std::vector<PdfImage> PdfReader::images() const {
    std::istringstream lines(runSuccessfully("pdfimages -list " + m_file.string()));
    std::string line;
    std::getline(lines, line); // the headings
    std::getline(lines, line); // the rule under them
    std::vector<PdfImage> images;
    while (std::getline(lines, line)) {
        std::istringstream cells(line);
        PdfImage image;
        std::string ignored;
        cells >> image.page >> ignored >> image.kind >> image.width >> image.height >> ignored >> ignored >>
            ignored >> image.encoding;
        images.push_back(image);
    }
    return images;
}

PdfPicture PdfReader::picture(int page, int dotsPerInch) const {
    const std::string number = std::to_string(page);
    const std::string data = runSuccessfully("pdftoppm -f " + number + " -l " + number + " -r " +
                                             std::to_string(dotsPerInch) + " " + m_file.string());
    std::istringstream stream(data);
    PdfPicture picture;
    picture.pixelsPerPoint = dotsPerInch / pointsPerInch;
    std::string format;
    int brightest = 0;
    stream >> format >> picture.width >> picture.height >> brightest;
    stream.get();
    picture.pixels = data.substr(std::min(data.size(), static_cast<std::size_t>(stream.tellg())));
    EXPECT_EQ(picture.pixels.size(), static_cast<std::size_t>(picture.width * picture.height) * 3);
    return picture;
}

std::string withoutBlanks(std::string_view text) {
    std::string kept = replacingAll(std::string(text), "\u00A0", "");
    std::erase_if(kept, [](char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\f' || c == '\t'; });
    return kept;
}

} // namespace brisklog::test
