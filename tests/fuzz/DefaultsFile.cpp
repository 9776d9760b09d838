#include "DefaultsFile.h"

#include "platform/defaults/SqliteUserDefaults.h"
#include "support/FakeClock.h"
#include "support/RecordingLog.h"
#include "support/StoredData.h"

#include <cstdlib>
#include <fstream>

namespace brisklog::fuzz {

namespace fs = std::filesystem;

namespace {

/// Once for the file itself, once for the fresh file that replaces it.
constexpr int mostAttempts = 2;

const std::string picture(600, 'Q');

void read(const LargeValueStore& defaults, const UserDefaults::Entry& entry) {
    const auto value = defaults.value(entry.key);
    (void)numberValue(defaults, entry.key);
    (void)truthValue(defaults, entry.key);
    std::string inParts;
    const auto reading = defaults.readData(entry.key, [&](DataParts& parts) {
        while (const auto part = parts.next())
            inParts += part->bytes;
    });
    if (reading == LargeValueStore::Reading::complete && value && std::holds_alternative<Data>(*value))
        require(std::get<Data>(*value).bytes == inParts,
                "reading in parts gives the same bytes as reading whole");
}

/// Does everything that the program may do to a value it has found.
void change(LargeValueStore& defaults, const UserDefaults::Entry& entry) {
    const auto before = dataValue(defaults, entry.key);
    const std::size_t kept = before ? before->size() / 2 : entry.size / 2;
    const bool isChanged = test::replaceTail(defaults, entry.key, kept, "\"" + picture + "\"");
    const auto after = dataValue(defaults, entry.key);
    if (before && isChanged && after)
        require(*after == before->substr(0, kept) + "\"" + picture + "\"", "the rest of a value stays");
    const std::string newKey = entry.key + " aside";
    if (defaults.renameValue(entry.key, newKey))
        defaults.removeValue(newKey);
}

bool keepsWhatItIsGiven(UserDefaults& defaults) {
    defaults.setValue("fresh", Data{"new"});
    defaults.setValue("text", std::string("kurz"));
    return dataValue(defaults, "fresh") == "new" && textValue(defaults, "text") == "kurz";
}

} // namespace

DefaultsFile::DefaultsFile() {
    std::string name = fs::temp_directory_path() / "brisklog-fuzz-XXXXXX";
    require(::mkdtemp(name.data()) != nullptr, "a temporary folder can be made");
    m_folder = name;
}

DefaultsFile::~DefaultsFile() {
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
}

void DefaultsFile::reset(std::string_view bytes) const {
    for (const auto& entry : fs::directory_iterator(m_folder))
        fs::remove(entry.path());
    std::ofstream(path(), std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void DefaultsFile::use() const {
    const test::FakeClock clock;
    test::RecordingLog log;
    SqliteUserDefaults defaults(path(), clock, log);
    const auto entries = defaults.entries();
    for (const auto& entry : entries)
        read(defaults, entry);
    for (const auto& entry : entries)
        change(defaults, entry);
    bool works = false;
    for (int tries = 0; tries < mostAttempts && !works; ++tries)
        works = keepsWhatItIsGiven(defaults);
    require(works, "the store works, at the latest with a fresh file");
    defaults.synchronise();
}

} // namespace brisklog::fuzz
