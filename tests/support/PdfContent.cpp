#include "support/PdfContent.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <ostream>

using namespace Qt::StringLiterals;

namespace brisklog::test {
namespace {

/// The objects of a document, as a tool has written them down.
class PdfObjects {
public:
    explicit PdfObjects(const std::string& json)
        : m_document(QJsonDocument::fromJson(QByteArray::fromStdString(json)).object()),
          m_objects(m_document[u"qpdf"_s][1].toObject()) {}

    /// The commands that draw a page; pages are counted from 1.
    [[nodiscard]] QByteArray commands(int page) const {
        QByteArray commands;
        for (const auto& part : m_document[u"pages"_s][page - 1][u"contents"_s].toArray())
            commands +=
                QByteArray::fromBase64(object(part)[u"stream"_s][u"data"_s].toString().toLatin1()) + "\n";
        return commands;
    }

    /// The names of a page's fonts by the names that its commands use.
    [[nodiscard]] std::map<std::string, std::string> fonts(int page) const {
        const auto resources = value(value(m_document[u"pages"_s][page - 1][u"object"_s])[u"/Resources"_s]);
        const auto fonts = value(resources[u"/Font"_s]).toObject();
        std::map<std::string, std::string> names;
        for (auto font = fonts.begin(); font != fonts.end(); ++font)
            names[font.key().toStdString()] = value(*font)[u"/BaseFont"_s].toString().toStdString();
        return names;
    }

private:
    [[nodiscard]] QJsonValue object(const QJsonValue& reference) const {
        return m_objects[u"obj:"_s + reference.toString()];
    }

    /// What stands there, or what is referred to there.
    [[nodiscard]] QJsonValue value(const QJsonValue& there) const {
        return there.isString() ? object(there)[u"value"_s] : there;
    }

    QJsonObject m_document;
    QJsonObject m_objects;
};

/// The words of a page's commands. Texts and dictionaries are skipped: they say nothing about the look.
class PdfWords {
public:
    explicit PdfWords(const QByteArray& commands) : m_rest(commands.data(), commands.size()) {}

    /// Empty at the end.
    [[nodiscard]] std::string_view next() {
        skipWhile(separators);
        if (m_rest.empty())
            return {};
        if (m_rest.front() == '(')
            return take(lengthOfText());
        if (m_rest.front() == '<' || m_rest.front() == '>')
            return take(std::min(m_rest.find_first_not_of("<>0123456789abcdefABCDEF"), m_rest.size()));
        return take(std::min(m_rest.find_first_of("()<> \n\r\t[]", 1), m_rest.size()));
    }

private:
    static constexpr std::string_view separators = " \n\r\t[]";

    void skipWhile(std::string_view characters) {
        m_rest.remove_prefix(std::min(m_rest.find_first_not_of(characters), m_rest.size()));
    }

    [[nodiscard]] std::string_view take(std::size_t length) {
        const auto taken = m_rest.substr(0, length);
        m_rest.remove_prefix(length);
        return taken;
    }

    [[nodiscard]] std::size_t lengthOfText() const {
        int depth = 0;
        for (std::size_t at = 0; at < m_rest.size(); ++at) {
            if (m_rest[at] == '\\')
                ++at;
            else if (m_rest[at] == '(')
                ++depth;
            else if (m_rest[at] == ')' && --depth == 0)
                return at + 1;
        }
        return m_rest.size();
    }

    std::string_view m_rest;
};

struct Point {
    double x = 0;
    double y = 0;
};

/// Follows a page's commands and keeps what they draw. Cairo draws everything but images upright and in
/// points from the page's top left corner.
class PdfPlayer {
public:
    PdfPlayer(const PdfObjects& objects, int page) : m_fonts(objects.fonts(page)) {
        const QByteArray commands = objects.commands(page);
        PdfWords words(commands);
        for (std::string_view word = words.next(); !word.empty(); word = words.next())
            if (isOperand(word))
                m_operands.emplace_back(word);
            else
                play(word);
    }

    std::vector<PdfRun> runs;
    std::vector<PdfStroke> strokes;
    std::vector<PdfArea> areas;

private:
    struct State {
        PdfColour fill{};
        PdfColour stroke{};
        double lineWidth = 1;
        bool isInImage = false;
    };

    static bool isOperand(std::string_view word) {
        return std::string_view("0123456789.-+/(<>").find(word.front()) != std::string_view::npos;
    }

    [[nodiscard]] double number(std::size_t at) const {
        return at < m_operands.size() ? std::atof(m_operands[at].c_str()) : 0;
    }

    void play(std::string_view command) {
        playState(command);
        playText(command);
        if (!m_state.isInImage)
            playPath(command);
        m_operands.clear();
    }

    void playState(std::string_view command) {
        if (command == "q") {
            m_saved.push_back(m_state);
        } else if (command == "Q" && !m_saved.empty()) {
            m_state = m_saved.back();
            m_saved.pop_back();
        } else if (command == "cm") {
            m_state.isInImage = !m_saved.empty();
        } else if (command == "rg") {
            m_state.fill = {number(0), number(1), number(2)};
        } else if (command == "RG") {
            m_state.stroke = {number(0), number(1), number(2)};
        } else if (command == "w") {
            m_state.lineWidth = number(0);
        }
    }

    void playText(std::string_view command) {
        if (command == "Tm") {
            m_scale = {number(0), number(3)};
            moveText({number(4), number(5)});
        } else if (command == "Td") {
            moveText({m_text.x + number(0) * m_scale.x, m_text.y + number(1) * m_scale.y});
        } else if (command == "Tf" && m_operands.size() == 2) {
            const auto font = m_fonts.find(m_operands[0]);
            const bool isBold = font != m_fonts.end() && font->second.find("Bold") != std::string::npos;
            m_weight = isBold ? PdfWeight::bold : PdfWeight::regular;
            m_fontSize = number(1);
        } else if (command == "Tj" || command == "TJ") {
            write();
        }
    }

    void moveText(Point to) {
        m_text = to;
        m_hasMoved = true;
    }

    void write() {
        const PdfStyle style{m_fontSize * m_scale.x, m_weight, m_state.fill};
        if (m_hasMoved)
            runs.push_back({m_text.x, m_text.y, style});
        else if (!(runs.back().style == style))
            runs.back().style.weight = PdfWeight::mixed;
        m_hasMoved = false;
    }

    void playPath(std::string_view command) {
        if (command == "m") {
            m_from = m_to = {number(0), number(1)};
        } else if (command == "l") {
            m_to = {number(0), number(1)};
        } else if (command == "re") {
            m_rectangle = {number(0), number(1), number(2), number(3), {}};
        } else if (command == "S") {
            strokes.push_back({m_from.x, m_from.y, m_to.x, m_to.y, m_state.lineWidth, m_state.stroke});
        } else if (command == "f" && m_rectangle) {
            m_rectangle->colour = m_state.fill;
            areas.push_back(*m_rectangle);
            m_rectangle.reset();
        }
    }

    std::map<std::string, std::string> m_fonts;
    std::vector<std::string> m_operands;
    State m_state;
    std::vector<State> m_saved;
    Point m_text;
    Point m_scale;
    bool m_hasMoved = false;
    PdfWeight m_weight = PdfWeight::regular;
    double m_fontSize = 0;
    Point m_from;
    Point m_to;
    std::optional<PdfArea> m_rectangle;
};

} // namespace

PdfContent::PdfContent(const PdfReader& pdf, int page) : m_pdf(pdf), m_page(page) {
    PdfPlayer player(PdfObjects(pdf.objects()), page);
    m_runs = std::move(player.runs);
    m_strokes = std::move(player.strokes);
    m_areas = std::move(player.areas);
}

PdfStyle PdfContent::styleOf(std::string_view phrase) const {
    const auto place = m_pdf.find(phrase, m_page);
    EXPECT_TRUE(place) << phrase;
    return place ? styleAt(*place) : PdfStyle{};
}

std::string PdfContent::wordsIn(const PdfStyle& style) const {
    std::string words;
    for (const PdfWord& word : m_pdf.words())
        if (word.box.page == m_page && styleAt(word.box) == style)
            words += (words.empty() ? "" : " ") + word.text;
    return words;
}

PdfStyle PdfContent::styleAt(const PdfBox& word) const {
    constexpr double hair = 0.1;
    const PdfRun* nearest = nullptr;
    for (const PdfRun& run : m_runs) {
        const bool isOnLine = run.baseline > word.top && run.baseline < word.bottom;
        if (isOnLine && run.left < word.left + hair && (nearest == nullptr || run.left >= nearest->left))
            nearest = &run;
    }
    EXPECT_NE(nearest, nullptr) << "no text begins left of " << word.left << ", " << word.top;
    return nearest == nullptr ? PdfStyle{} : nearest->style;
}

void PrintTo(const PdfColour& colour, std::ostream* stream) {
    *stream << "colour " << colour.red << " " << colour.green << " " << colour.blue;
}

void PrintTo(const PdfStyle& style, std::ostream* stream) {
    const char* const weight = style.weight == PdfWeight::bold      ? "bold"
                               : style.weight == PdfWeight::regular ? "regular"
                                                                    : "mixed";
    *stream << style.pointSize << " points, " << weight << ", ";
    PrintTo(style.colour, stream);
}

void PrintTo(const PdfStroke& stroke, std::ostream* stream) {
    *stream << "from " << stroke.fromX << ", " << stroke.fromY << " to " << stroke.toX << ", " << stroke.toY
            << ", " << stroke.width << " wide, ";
    PrintTo(stroke.colour, stream);
}

void PrintTo(const PdfArea& area, std::ostream* stream) {
    *stream << "at " << area.left << ", " << area.top << ", size " << area.width << " x " << area.height
            << ", ";
    PrintTo(area.colour, stream);
}

} // namespace brisklog::test
