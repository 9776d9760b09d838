#include "foundation/JsonDecoder.h"

#include "foundation/JsonStreams.h"
#include "foundation/Text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <optional>
#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>
#include <string>
#include <vector>

namespace brisklog::json {
namespace {

// Numbers are passed as text: the reader's own conversion reads outside its tables for exponents and runs of
// zeros that no program writes but a file may contain. Texts are passed unchecked: the reader's own check
// goes byte by byte and lets through a lone surrogate written as an escape.
constexpr unsigned parseFlags = rapidjson::kParseNumbersAsStringsFlag | rapidjson::kParseIterativeFlag;

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The double nearest to the text of a JSON number; none when it is out of range.
std::optional<double> nearestDouble(std::string_view digits) {
    double number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() ? std::optional(number) : std::nullopt;
}

/// The largest block that the reader may allocate for itself while it reads a document in parts.
constexpr std::size_t longestReaderMemory = std::size_t{1} << 24;

/// A limited allocator for the reader: a text of half a gigabyte, or as many brackets, must not take that
/// much memory. The reader does not expect an allocation to fail, so exceeding the limit throws.
class LimitedMemory {
public:
    [[maybe_unused]] static constexpr bool kNeedFree = true;

    // The reader prescribes these names.
    static void* Malloc(std::size_t size) { return Realloc(nullptr, 0, size); }

    static void* Realloc(void* memory, std::size_t /*sizeBefore*/, std::size_t size) {
        void* const moved = size <= longestReaderMemory ? std::realloc(memory, size) : nullptr;
        if (moved == nullptr)
            throw std::bad_alloc();
        return moved;
    }

    static void Free(void* memory) { std::free(memory); }
};

/// Receives the tokens of one document and fills the target they describe.
class Filler {
public:
    /// The stream is null for a document that is whole in memory.
    Filler(const ValueDecoder& root, void* target, SharedDataPool& pool, PartStream* stream = nullptr)
        : m_pool(pool), m_stream(stream), m_next{&root, target} {}

    // The reader prescribes the names and results of these functions: false stops it.
    bool Null() {
        if (m_skippedDepth > 0)
            return afterSkippedScalar();
        if (m_frames.empty() || m_field == nullptr || m_field->clear == nullptr)
            return complainAboutType("null");
        m_field->clear(m_frames.back().target);
        return afterValue();
    }

    bool Bool(bool truth) {
        return take("a truth value", [truth](const ValueDecoder& decoder, void* target) -> Complaint {
            return decoder.readBoolean ? decoder.readBoolean(target, truth) : wrongType;
        });
    }

    bool RawNumber(const char* digits, rapidjson::SizeType length, bool /*copy*/) {
        const auto number = nearestDouble({digits, length});
        if (!number)
            return complain("number is out of range");
        return take("a number", [number](const ValueDecoder& decoder, void* target) -> Complaint {
            return decoder.readNumber ? decoder.readNumber(target, *number) : wrongType;
        });
    }

    // The reader requires these too but never calls them when it passes numbers as text.
    bool Int(int /*number*/) { return false; }

    bool Uint(unsigned /*number*/) { return false; }

    bool Int64(std::int64_t /*number*/) { return false; }

    bool Uint64(std::uint64_t /*number*/) { return false; }

    bool Double(double /*number*/) { return false; }

    bool String(const char* characters, rapidjson::SizeType length, bool /*copy*/) {
        const auto object = takeTextObject();
        const std::string_view text = object ? *object : std::string_view(characters, length);
        if (!object && !text::isValidUtf8(text))
            return complain(malformedText);
        return take("text", [&](const ValueDecoder& decoder, void* target) -> Complaint {
            if (decoder.takeData)
                return takeData(decoder, target,
                                object ? m_pool.fromBase64(object) : m_pool.fromBase64(text));
            // Most of these objects are Base64 that occurs in thousands of places; only those read as text
            // are checked.
            if (object && !text::isValidUtf8(text))
                return malformedText;
            return decoder.readText ? decoder.readText(target, text) : wrongType;
        });
    }

    bool StartObject() {
        if (m_skippedDepth > 0)
            return skipDeeper();
        const Slot slot = claimSlot();
        if (slot.decoder->fields.empty())
            return complainAboutType("an object");
        m_frames.push_back({slot.decoder, slot.target});
        m_field = nullptr;
        return true;
    }

    bool Key(const char* characters, rapidjson::SizeType length, bool /*copy*/) {
        const auto object = takeTextObject();
        const std::string_view key = object ? *object : std::string_view(characters, length);
        if (m_skippedDepth > 0)
            return isWellFormedKey(key);
        Frame& record = m_frames.back();
        const std::size_t index = indexOf(record, key);
        if (index == record.decoder->fields.size()) {
            m_skippedDepth = 1;
            return isWellFormedKey(key);
        }
        record.seen |= std::uint64_t{1} << index;
        record.position = index;
        m_field = &record.decoder->fields[index];
        m_next = {m_field->value, nullptr};
        return true;
    }

    bool EndObject(rapidjson::SizeType /*members*/) {
        if (m_skippedDepth > 0)
            return skipShallower();
        const Frame record = m_frames.back();
        for (std::size_t i = 0; i < record.decoder->fields.size(); ++i) {
            const bool wasThere = (record.seen >> i & 1) != 0;
            if (wasThere || record.decoder->fields[i].ifMissing == IfMissing::keepsDefault)
                continue;
            m_frames.back().position = i;
            return complain("missing");
        }
        m_frames.pop_back();
        return afterValue();
    }

    bool StartArray() {
        if (m_skippedDepth > 0)
            return skipDeeper();
        const Slot slot = claimSlot();
        if (slot.decoder->element == nullptr)
            return complainAboutType("a list");
        slot.decoder->beginList(slot.target);
        m_frames.push_back({slot.decoder, slot.target});
        m_next = {slot.decoder->element, nullptr};
        m_field = nullptr;
        return true;
    }

    bool EndArray(rapidjson::SizeType /*elements*/) {
        if (m_skippedDepth > 0)
            return skipShallower();
        m_frames.pop_back();
        return afterValue();
    }

    /// Why this class stopped the reader, with the path; empty if it did not, as when the JSON is malformed.
    [[nodiscard]] const std::string& complaint() const { return m_complaint; }

    [[nodiscard]] std::string path() const {
        std::string path;
        for (const Frame& frame : m_frames) {
            if (frame.decoder->element != nullptr)
                path += "[" + std::to_string(frame.position) + "]";
            else if (frame.position < frame.decoder->fields.size())
                path += "." + std::string(frame.decoder->fields[frame.position].key);
        }
        if (path.starts_with('.'))
            path.erase(0, 1);
        return path;
    }

private:
    struct Slot {
        const ValueDecoder* decoder;
        void* target;
    };

    /// A list or record being filled.
    struct Frame {
        const ValueDecoder* decoder;
        void* target;
        /// Index of the element, or of the field last named.
        std::size_t position = 0;
        /// One bit for each field found so far.
        std::uint64_t seen = 0;
    };

    static constexpr Complaint wrongType = "";
    static constexpr Complaint malformedText = "text is not well-formed Unicode";

    bool isWellFormedKey(std::string_view key) {
        return text::isValidUtf8(key) || complain("key is not well-formed Unicode");
    }

    /// The text just read if the stream supplied it as an object; null if the reader read its characters.
    [[nodiscard]] std::shared_ptr<const std::string> takeTextObject() {
        return m_stream != nullptr ? m_stream->takeText() : nullptr;
    }

    static Complaint takeData(const ValueDecoder& decoder, void* target, std::optional<SharedData> data) {
        if (!data)
            return "text is no Base64";
        decoder.takeData(target, std::move(*data));
        return nullptr;
    }

    static std::size_t indexOf(const Frame& record, std::string_view key) {
        const auto& fields = record.decoder->fields;
        // Keys are mostly in our own order: try the next field first.
        const std::size_t guess = record.seen == 0 ? 0 : record.position + 1;
        if (guess < fields.size() && fields[guess].key == key)
            return guess;
        return static_cast<std::size_t>(std::ranges::find(fields, key, &FieldDecoder::key) - fields.begin());
    }

    /// Where the next value goes; makes room for it in its list or record.
    Slot claimSlot() {
        if (m_frames.empty())
            return m_next;
        Frame& frame = m_frames.back();
        if (frame.decoder->element != nullptr)
            return {frame.decoder->element, frame.decoder->appendElement(frame.target)};
        return {m_field->value, m_field->locate(frame.target)};
    }

    template <class Read>
    bool take(const char* found, Read read) {
        if (m_skippedDepth > 0)
            return afterSkippedScalar();
        const Slot slot = claimSlot();
        const Complaint complaint = read(*slot.decoder, slot.target);
        if (complaint == wrongType)
            return complainAboutType(found);
        return complaint == nullptr ? afterValue() : complain(complaint);
    }

    bool afterValue() {
        if (!m_frames.empty() && m_frames.back().decoder->element != nullptr)
            ++m_frames.back().position;
        m_field = nullptr;
        return true;
    }

    // Skipping the value of an unknown key: depth 1 is the value itself, plus 1 inside each list or object.
    bool afterSkippedScalar() {
        if (m_skippedDepth == 1)
            m_skippedDepth = 0;
        return true;
    }

    bool skipDeeper() {
        ++m_skippedDepth;
        return true;
    }

    bool skipShallower() {
        if (--m_skippedDepth == 1)
            m_skippedDepth = 0;
        return true;
    }

    bool complainAboutType(const char* found) {
        const ValueDecoder* wanted = m_next.decoder;
        if (!m_frames.empty() && m_frames.back().decoder->element != nullptr)
            wanted = m_frames.back().decoder->element;
        return complain(std::string("expected ") + wanted->expected + ", found " + found);
    }

    bool complain(const std::string& reason) {
        const std::string place = path();
        m_complaint = place.empty() ? reason : place + ": " + reason;
        return false;
    }

    SharedDataPool& m_pool;
    PartStream* m_stream;
    std::vector<Frame> m_frames;
    Slot m_next;
    const FieldDecoder* m_field = nullptr;
    std::size_t m_skippedDepth = 0;
    std::string m_complaint;
};

Error errorAt(std::size_t offset, const std::string& reason) {
    return Error{reason + " (byte " + std::to_string(offset) + ")"};
}

template <class Stream, class Reader>
Result<Done> read(Stream& stream, Reader& reader, Filler& filler) {
    const rapidjson::ParseResult parsed = reader.template Parse<parseFlags>(stream, filler);
    if (!filler.complaint().empty())
        return errorAt(stream.Tell(), filler.complaint());
    if (!parsed.IsError())
        return Done{};
    const std::string place = filler.path();
    const std::string reason = rapidjson::GetParseError_En(parsed.Code());
    return errorAt(parsed.Offset(), place.empty() ? reason : place + ": " + reason);
}

/// A zero byte ends the document for the reader, but not for us.
Error followedByMore(std::size_t offset) {
    return errorAt(offset, "The document is followed by something else.");
}

} // namespace

Result<Done> decodeInto(const ValueDecoder& decoder, void* target, std::string_view bytes) {
    DocumentStream stream(bytes.data(), bytes.size());
    // Other programs may have written one; ours never does.
    if (bytes.starts_with(byteOrderMark))
        stream.src_ += byteOrderMark.size();
    SharedDataPool pool;
    Filler filler(decoder, target, pool);
    rapidjson::Reader reader;
    auto result = read(stream, reader, filler);
    if (result.succeeded() && stream.Tell() != bytes.size())
        return followedByMore(stream.Tell());
    return result;
}

Result<Done> decodeInto(const ValueDecoder& decoder, void* target, DataParts& parts, SharedDataPool& pool) {
    PartStream stream(parts);
    stream.skipAtStart(byteOrderMark);
    Filler filler(decoder, target, pool, &stream);
    try {
        rapidjson::GenericReader<rapidjson::UTF8<>, rapidjson::UTF8<>, LimitedMemory> reader;
        auto result = read(stream, reader, filler);
        if (result.succeeded() && !stream.isAtEnd())
            return followedByMore(stream.Tell());
        return result;
    } catch (const std::bad_alloc&) {
        return errorAt(stream.Tell(), filler.path() + ": too long or nested too deeply");
    }
}

} // namespace brisklog::json
