// Documents read in parts must decode as if they were read whole.

#include "JsonRecords.h"

#include <gtest/gtest.h>
#include <map>
#include <random>

namespace brisklog::test {
namespace {

struct Picture {
    std::string name;
    std::optional<SharedData> image;

    bool operator==(const Picture&) const = default;
};

constexpr auto jsonFields(std::type_identity<Picture>) {
    return std::tuple{json::field<&Picture::name>("name"), json::field<&Picture::image>("image")};
}

using Pictures = std::vector<Picture>;

class ListedParts final : public DataParts {
public:
    explicit ListedParts(std::vector<DataPart> parts) : m_parts(std::move(parts)) {}

    std::optional<DataPart> next() override {
        // Invalidates what the previous call returned.
        m_current.assign(m_current.size(), '#');
        if (m_position == m_parts.size())
            return std::nullopt;
        const DataPart& part = m_parts[m_position++];
        if (part.repeated)
            return part;
        m_current = part.bytes;
        return DataPart{m_current, nullptr};
    }

private:
    std::vector<DataPart> m_parts;
    std::size_t m_position = 0;
    std::string m_current;
};

/// Text between '<' and '>' becomes an object, the same one for equal texts; '|' ends a part.
std::vector<DataPart> split(std::string_view marked) {
    static std::map<std::string, std::shared_ptr<const std::string>, std::less<>> objects;
    std::vector<DataPart> parts;
    while (!marked.empty()) {
        const bool isObject = marked.front() == '<';
        const auto end = isObject ? marked.find('>') : marked.find_first_of("<|");
        const auto bytes = marked.substr(isObject, end - isObject);
        marked.remove_prefix(
            std::min(marked.size(), end == marked.npos || marked[end] == '<' ? end : end + 1));
        if (isObject) {
            auto& object = objects[std::string(bytes)];
            object = object ? object : std::make_shared<const std::string>(bytes);
            parts.push_back({*object, object});
        } else {
            parts.push_back({bytes, nullptr});
        }
    }
    return parts;
}

template <class T>
Result<T> decodeParts(std::vector<DataPart> parts) {
    SharedDataPool pool;
    ListedParts listed(std::move(parts));
    return json::decode<T>(listed, pool);
}

template <class T>
std::string errorOfParts(std::string_view marked) {
    const auto decoded = decodeParts<T>(split(marked));
    EXPECT_TRUE(decoded.failed()) << marked;
    return decoded.failed() ? decoded.error().description : "";
}

TEST(JsonParts, aDocumentReadsTheSameHoweverItIsCut) {
    const std::string whole =
        "\xEF\xBB\xBF[{\"name\":\"Grü\\u00dfe \\\"x\\\"\",\"image\":\"Zm9vYmFy\"}, {\"name\":\"\"}] ";
    const auto expected = json::decode<Pictures>(whole).value();
    std::mt19937 chance(3);
    for (int round = 0; round < 300; ++round) {
        std::vector<DataPart> parts;
        for (std::size_t at = 0; at < whole.size();) {
            const std::size_t length = chance() % 4;
            parts.push_back({std::string_view(whole).substr(at, length), nullptr});
            at += length;
        }
        const auto decoded = decodeParts<Pictures>(parts);
        ASSERT_TRUE(decoded.succeeded()) << decoded.error().description;
        ASSERT_EQ(decoded.value(), expected);
    }
}

TEST(JsonParts, errorsNameTheSamePlaceHoweverADocumentIsCut) {
    for (const std::string whole :
         {R"([{"name":"a"},{"image":"Zm9v"}])", R"([{"name":5}])", R"([{"name":"a")", R"([] x)",
          R"([{"name":"a","image":"Zm9"}])", "", "[{\"name\":\"\xFF\"}]", "\xEF\xBB\xBF]", "\xEF\xBB[]"}) {
        for (const std::size_t length : {1U, 3U}) {
            std::vector<DataPart> parts;
            for (std::size_t at = 0; at < whole.size(); at += length)
                parts.push_back({std::string_view(whole).substr(at, length), nullptr});
            const auto decoded = decodeParts<Pictures>(parts);
            ASSERT_TRUE(decoded.failed()) << whole;
            EXPECT_EQ(decoded.error(), json::decode<Pictures>(whole).error());
        }
    }
}

TEST(JsonParts, aTextThatIsOneObjectIsShared) {
    SharedDataPool pool;
    ListedParts parts(split(R"([{"name":"a","image":"<Zm9vYmFy>"},{"image":"<Zm9vYmFy>","name":"b"}])"));
    const auto pictures = json::decode<Pictures>(parts, pool).value();
    EXPECT_EQ(pictures[0].image->bytes(), "foobar");
    EXPECT_TRUE(pictures[0].image->sharesBytesWith(*pictures[1].image));
    EXPECT_EQ(&pictures[0].image->base64(), split("<Zm9vYmFy>")[0].repeated.get());
}

TEST(JsonParts, anObjectWithinATextIsReadLikeAnyOtherBytes) {
    const auto pictures =
        decodeParts<Pictures>(
            split(R"([{"name":"a<Zm9v>b","image":"Zm9v<Zm9v>"},{"name":"\"<Zm9v>"},{"<name>":"x<>"}])"))
            .value();
    EXPECT_EQ(pictures[0].name, "aZm9vb");
    EXPECT_EQ(pictures[0].image->bytes(), "foofoo");
    EXPECT_EQ(pictures[1].name, "\"Zm9v");
    EXPECT_EQ(pictures[2].name, "x");
}

TEST(JsonParts, anObjectMayBeAKeyOrANameOrPassedOver) {
    const auto pictures =
        decodeParts<Pictures>(
            split(
                R"([{"<unknown>":["<Zm9v>",{"<k>":"<v>"}],"name":"<Zm9v>"},{"name":"","x":"<Zm9v>","<image>":"|<Zm9v>|"}])"))
            .value();
    EXPECT_EQ(pictures[0].name, "Zm9v");
    EXPECT_EQ(pictures[1].name, "");
    EXPECT_EQ(pictures[1].image->bytes(), "foo");
}

TEST(JsonParts, anObjectOutsideATextIsAnError) {
    errorOfParts<Pictures>(R"([{"name":"a"<Zm9v>"b"}])");
    errorOfParts<Pictures>(R"([{"name":"a"<Zm9v>}])");
    errorOfParts<Pictures>(R"(["<Zm9v>"])");
    errorOfParts<Pictures>(R"([{"name":"<Zm9v>)");
    errorOfParts<Pictures>(R"(<Zm9v>)");
    EXPECT_EQ(errorOfParts<Pictures>(R"([{"name":"","image":"<Zm9v!>"}])"),
              "[0].image: text is no Base64 (byte 27)");
}

TEST(JsonParts, anObjectThatIsNoUnicodeIsNeitherTextNorKey) {
    EXPECT_EQ(errorOfParts<Pictures>("[{\"name\":\"<\xFF>\"}]"),
              "[0].name: text is not well-formed Unicode (byte 12)");
    EXPECT_EQ(errorOfParts<Pictures>("[{\"name\":\"\",\"<\xFF>\":1}]"),
              "[0].name: key is not well-formed Unicode (byte 15)");
}

/// Gives `beginning`, then the same character without end.
class EndlessParts final : public DataParts {
public:
    EndlessParts(std::string_view beginning, char filling) : m_part(beginning), m_filling(65536, filling) {}

    std::optional<DataPart> next() override {
        given += m_part.size();
        return DataPart{std::exchange(m_part, m_filling), nullptr};
    }

    std::size_t given = 0;

private:
    std::string_view m_part;
    std::string m_filling;
};

TEST(JsonParts, aTextWithoutEndIsRefusedBeforeItFillsTheMemory) {
    SharedDataPool pool;
    EndlessParts parts(R"([{"name":")", 'x');
    const auto decoded = json::decode<Pictures>(parts, pool);
    ASSERT_TRUE(decoded.failed());
    EXPECT_TRUE(decoded.error().description.starts_with("[0].name: too long")) << decoded.error().description;
    EXPECT_LT(parts.given, std::size_t{1} << 25);
}

TEST(JsonParts, bracketsWithoutEndAreRefusedBeforeTheyFillTheMemory) {
    SharedDataPool pool;
    EndlessParts parts(R"([{"name":"a","unknown":)", '[');
    ASSERT_TRUE(json::decode<Pictures>(parts, pool).failed());
    EXPECT_LT(parts.given, std::size_t{1} << 25);
}

TEST(JsonCoding, sharedDataIsWrittenAsBase64) {
    const Pictures pictures{{"a", SharedData::of("foobar")}, {"b", std::nullopt}, {"c", SharedData()}};
    const auto encoded = json::encode(pictures, json::Layout::compact);
    EXPECT_EQ(encoded.value().bytes(),
              R"([{"name":"a","image":"Zm9vYmFy"},{"name":"b"},{"name":"c","image":""}])");
    EXPECT_EQ(json::decode<Pictures>(encoded.value().bytes()).value(), pictures);
}

} // namespace
} // namespace brisklog::test
