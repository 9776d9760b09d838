#include "app/ContentScreen.h"

#include "support/FakeClock.h"
#include "support/MemoryUserDefaults.h"
#include "support/RecordingFiles.h"
#include "support/RecordingLog.h"
#include "support/TemporaryHome.h"
#include "support/VirtualRunLoop.h"
#include "support/screen/ScreenTest.h"
#include "ui/controls/NavigationButton.h"
#include "ui/look/Text.h"

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

class ContentScreenTest : public ScreenTest {
protected:
    ContentScreenTest() { showActive(screen); }

    /// The captions of the buttons marked as selected.
    QStringList marked() {
        settle();
        QStringList captions;
        for (const Section& section : sections)
            if (findNamed<NavigationButton>(screen, screenText(section.label))->isSelected())
                captions << screenText(section.label);
        return captions;
    }

    TemporaryHome home;
    RecordingFiles files;
    MemoryUserDefaults userDefaults;
    FakeClock clock;
    VirtualRunLoop runLoop{clock};
    RecordingLog log;
    AppSettings settings{{.files = files, .userDefaults = userDefaults, .log = log}};
    ContentView content{
        projectsSection,
        settings,
        {.files = files, .userDefaults = userDefaults, .clock = clock, .runLoop = runLoop, .log = log}};
    std::vector<int> made;
    ContentScreen screen{content, [this](int section) {
                             made.push_back(section);
                             return new QWidget;
                         }};
};

TEST_F(ContentScreenTest, marksTheButtonOfTheSelectedSection) {
    EXPECT_EQ(marked(), QStringList(u"Zeiterfassung"_s));
    content.selectedSection = profileSection;
    EXPECT_EQ(marked(), QStringList(u"Profil"_s));
}

TEST_F(ContentScreenTest, marksNoneForAValueThatNamesNoSectionAndShowsTheProjects) {
    content.selectedSection = settingsSection;
    settle();
    content.selectedSection = 7;
    EXPECT_EQ(marked(), QStringList());
    EXPECT_EQ(made, (std::vector{projectsSection, settingsSection}));
    content.selectedSection = projectsSection;
    EXPECT_EQ(marked(), QStringList(u"Zeiterfassung"_s));
}

} // namespace
} // namespace brisklog::test
