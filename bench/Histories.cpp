#include "bench/Histories.h"

#include <array>
#include <random>

namespace brisklog::bench {
namespace {

constexpr int projectCount = 20;

constexpr int sessionsPerDay = 275;
constexpr std::size_t iconSize = 4000;

} // namespace

Uuid nextId() {
    static std::mt19937_64 random(20261115);
    std::string text = "00000000-0000-4000-8000-000000000000";
    for (char& character : text)
        if (character == '0')
            character = "0123456789ABCDEF"[random() % 16];
    return *Uuid::parse(text);
}

std::vector<Project> workHistory(std::int64_t entryCount) {
    constexpr std::array names{"Entwurf der Startseite", "Besprechung mit dem Kunden", "Fehlersuche",
                               "Übersetzung der Oberfläche, zweiter Teil", "Buchhaltung"};
    std::vector<Project> projects(projectCount);
    Date moment{700000000.25};
    for (Project& project : projects)
        project = {.id = nextId(), .name = "Projekt", .hourlyRate = 85.5, .entries = {}};
    for (std::int64_t i = 0; i < entryCount; ++i) {
        Project& project = projects[static_cast<std::size_t>(i) % projectCount];
        TimeEntry entry;
        entry.id = nextId();
        entry.taskName = names[static_cast<std::size_t>(i) % names.size()];
        entry.startTime = moment;
        moment = moment.addingSeconds(600.123456 + static_cast<double>(i % 97) * 68.7);
        entry.endTime = moment;
        entry.projectId = project.id;
        entry.isInvoiced = i % 3 == 0;
        project.entries.push_back(entry);
    }
    return projects;
}

std::string applicationName(int application) { return "Anwendung " + std::to_string(application); }

std::string applicationIdentifier(int application) {
    return "org.example.Anwendung" + std::to_string(application);
}

std::string applicationIcon(int application) {
    std::minstd_rand random(static_cast<unsigned>(application) + 1);
    std::string bytes(iconSize, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random() >> 8);
    return bytes;
}

std::vector<DailyAppUsage> usageHistory(std::int64_t sessionCount) {
    std::vector<SharedData> icons;
    icons.reserve(applicationCount);
    for (int application = 0; application < applicationCount; ++application)
        icons.push_back(SharedData::of(applicationIcon(application)));
    std::vector<DailyAppUsage> days;
    Date moment = firstDay;
    for (std::int64_t i = 0; i < sessionCount; ++i) {
        const auto application = static_cast<int>(i * 7 % applicationCount);
        if (i % sessionsPerDay == 0) {
            const std::int64_t day = i / sessionsPerDay;
            moment = firstDay.addingSeconds(static_cast<double>(day) * 86400);
            days.push_back({.id = Uuid::generate(), .date = moment, .sessions = {}});
        }
        const Date end = moment.addingSeconds(10.123456 + static_cast<double>(i % 97));
        days.back().sessions.push_back({.id = Uuid::generate(),
                                        .appName = applicationName(application),
                                        .bundleIdentifier = applicationIdentifier(application),
                                        .startTime = moment,
                                        .endTime = end,
                                        .iconData = icons[static_cast<std::size_t>(application)]});
        moment = end;
    }
    return days;
}

} // namespace brisklog::bench
