// What keeping everything in whole files costs, compared with the least that the same bytes can cost:
// reading     at most 1.5 times one pass of the bare reader, which keeps nothing,
// saving      at most 1.5 times the bare writer with the same tokens plus one bare write,
// stopping    a timer among 100,000 entries at most 60 ms where the bare write takes 22.

#include "bench/Histories.h"
#include "bench/IdlePlatform.h"
#include "core/TimeTrackingStore.h"
#include "platform/defaults/SqliteUserDefaults.h"
#include "platform/files/PosixFiles.h"
#include "platform/loop/SystemClock.h"
#include "support/WritableStore.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <rapidjson/memorystream.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/reader.h>
#include <unistd.h>

namespace brisklog {
namespace {

using namespace bench;
namespace fs = std::filesystem;

std::string bytesOf(const std::vector<Project>& projects) {
    return std::string(json::encode(projects, json::Layout::pretty).value().bytes());
}

// A temporary home

struct Home {
    fs::path path;

    Home() {
        std::string name = fs::temp_directory_path() / "brisklog-bench-XXXXXX";
        path = ::mkdtemp(name.data());
        ::setenv("HOME", path.c_str(), 1);
    }

    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;

    ~Home() { fs::remove_all(path); }
};

/// The least that replacing a file can cost.
void writeBare(const fs::path& path, std::string_view bytes) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    for (std::size_t written = 0; written < bytes.size();) {
        const auto count = ::write(file, bytes.data() + written, bytes.size() - written);
        if (count <= 0)
            std::abort();
        written += static_cast<std::size_t>(count);
    }
    if (::ftruncate(file, static_cast<off_t>(bytes.size())) != 0 || ::close(file) != 0)
        std::abort();
}

void writeBareThroughToMedium(const fs::path& path, std::string_view bytes) {
    writeBare(path, bytes);
    const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (::fdatasync(file) != 0 || ::close(file) != 0)
        std::abort();
}

// Reading

void readTyped(benchmark::State& state) {
    const std::string bytes = bytesOf(workHistory(state.range(0)));
    for (auto run : state)
        benchmark::DoNotOptimize(json::decode<std::vector<Project>>(bytes));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

/// Takes every token and keeps none.
struct EmptyHandler : rapidjson::BaseReaderHandler<rapidjson::UTF8<>, EmptyHandler> {};

template <unsigned flags>
void readBare(benchmark::State& state) {
    const std::string bytes = bytesOf(workHistory(state.range(0)));
    for (auto run : state) {
        rapidjson::MemoryStream stream(bytes.data(), bytes.size());
        rapidjson::Reader reader;
        EmptyHandler handler;
        if (reader.Parse<flags>(stream, handler).IsError())
            std::abort();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

constexpr unsigned checkedFlags = rapidjson::kParseValidateEncodingFlag | rapidjson::kParseIterativeFlag;

void readBareNumbersAsText(benchmark::State& state) {
    readBare<checkedFlags | rapidjson::kParseNumbersAsStringsFlag>(state);
}

void readBareNumbersConverted(benchmark::State& state) {
    readBare<checkedFlags | rapidjson::kParseFullPrecisionFlag>(state);
}

// Saving

/// One token of a document, ready to be given to a writer.
struct Token {
    enum class Kind { beginObject, endObject, beginArray, endArray, key, text, number, truth };

    Kind kind;
    std::string text;
    double number = 0;
    bool truth = false;
};

/// Keeps every token.
struct Recorder : rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Recorder> {
    std::vector<Token> tokens;

    bool add(Token token) {
        tokens.push_back(std::move(token));
        return true;
    }

    bool Bool(bool truth) { return add({.kind = Token::Kind::truth, .text = {}, .truth = truth}); }

    bool Double(double number) { return add({.kind = Token::Kind::number, .text = {}, .number = number}); }

    bool String(const char* text, rapidjson::SizeType length, bool) {
        return add({.kind = Token::Kind::text, .text = {text, length}});
    }

    bool Key(const char* text, rapidjson::SizeType length, bool) {
        return add({.kind = Token::Kind::key, .text = {text, length}});
    }

    bool StartObject() { return add({.kind = Token::Kind::beginObject, .text = {}}); }

    bool EndObject(rapidjson::SizeType) { return add({.kind = Token::Kind::endObject, .text = {}}); }

    bool StartArray() { return add({.kind = Token::Kind::beginArray, .text = {}}); }

    bool EndArray(rapidjson::SizeType) { return add({.kind = Token::Kind::endArray, .text = {}}); }
};

std::vector<Token> tokensOf(const std::string& bytes) {
    rapidjson::MemoryStream stream(bytes.data(), bytes.size());
    rapidjson::Reader reader;
    Recorder recorder;
    reader.Parse<rapidjson::kParseFullPrecisionFlag>(stream, recorder);
    return std::move(recorder.tokens);
}

void give(rapidjson::PrettyWriter<rapidjson::StringBuffer>& writer, const Token& token) {
    const auto length = static_cast<rapidjson::SizeType>(token.text.size());
    switch (token.kind) {
    case Token::Kind::beginObject:
        writer.StartObject();
        break;
    case Token::Kind::endObject:
        writer.EndObject();
        break;
    case Token::Kind::beginArray:
        writer.StartArray();
        break;
    case Token::Kind::endArray:
        writer.EndArray();
        break;
    case Token::Kind::key:
        writer.Key(token.text.data(), length);
        break;
    case Token::Kind::text:
        writer.String(token.text.data(), length);
        break;
    case Token::Kind::number:
        writer.Double(token.number);
        break;
    case Token::Kind::truth:
        writer.Bool(token.truth);
        break;
    }
}

void encodeBare(const std::vector<Token>& tokens, rapidjson::StringBuffer& buffer) {
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
    writer.SetIndent(' ', 2);
    for (const Token& token : tokens)
        give(writer, token);
}

void encodeTyped(benchmark::State& state) {
    const auto projects = workHistory(state.range(0));
    for (auto run : state)
        benchmark::DoNotOptimize(json::encode(projects, json::Layout::pretty));
}

void encodeBareTokens(benchmark::State& state) {
    const auto tokens = tokensOf(bytesOf(workHistory(state.range(0))));
    for (auto run : state) {
        rapidjson::StringBuffer buffer;
        encodeBare(tokens, buffer);
        benchmark::DoNotOptimize(buffer.GetString());
    }
}

void saveTyped(benchmark::State& state) {
    const Home home;
    PosixFiles files;
    const auto projects = workHistory(state.range(0));
    const JsonFile<std::vector<Project>> file{home.path / "projects.json", json::Layout::pretty,
                                              Durability::leftToSystem};
    for (auto run : state)
        if (file.save(files, projects).failed())
            std::abort();
}

void saveBareTokens(benchmark::State& state) {
    const Home home;
    const auto tokens = tokensOf(bytesOf(workHistory(state.range(0))));
    for (auto run : state) {
        rapidjson::StringBuffer buffer;
        encodeBare(tokens, buffer);
        writeBare(home.path / "projects.json", {buffer.GetString(), buffer.GetSize()});
    }
}

// The whole operation, through to the medium

void stopTracking(benchmark::State& state) {
    const Home home;
    PosixFiles files;
    SilentLog log;
    IdleRunLoop runLoop;
    const SystemClock clock;
    SystemClock storeClock;
    SqliteUserDefaults userDefaults(std::nullopt, clock, log);
    TimeTrackingStore store({files, userDefaults, storeClock, runLoop, log});
    writable(store.projects) = workHistory(state.range(0));
    for (auto run : state) {
        state.PauseTiming();
        store.startTracking("Entwurf");
        const Uuid timer = store.activeEntries->begin()->first;
        state.ResumeTiming();
        store.stopTracking(timer);
    }
}

void writeSameBytesThroughToMedium(benchmark::State& state) {
    const Home home;
    const std::string bytes = bytesOf(workHistory(state.range(0)));
    for (auto run : state)
        writeBareThroughToMedium(home.path / "projects.json", bytes);
}

void start(benchmark::State& state) {
    const Home home;
    PosixFiles files;
    SilentLog log;
    IdleRunLoop runLoop;
    SystemClock clock;
    SqliteUserDefaults userDefaults(std::nullopt, clock, log);
    fs::create_directories(*files.documentsFolder());
    writeBare(*files.documentsFolder() / "projects.json", bytesOf(workHistory(state.range(0))));
    for (auto run : state)
        benchmark::DoNotOptimize(TimeTrackingStore({files, userDefaults, clock, runLoop, log}));
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(readTyped)->Apply(sizes);
BENCHMARK(readBareNumbersAsText)->Apply(sizes);
BENCHMARK(readBareNumbersConverted)->Apply(sizes);
BENCHMARK(encodeTyped)->Apply(sizes);
BENCHMARK(encodeBareTokens)->Apply(sizes);
BENCHMARK(saveTyped)->Apply(sizes);
BENCHMARK(saveBareTokens)->Apply(sizes);
BENCHMARK(stopTracking)->Apply(sizes);
BENCHMARK(writeSameBytesThroughToMedium)->Apply(sizes);
BENCHMARK(start)->Apply(sizes);

} // namespace
} // namespace brisklog
