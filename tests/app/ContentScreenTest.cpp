#include "app/ContentScreen.h"

#include "app/EmptyContent.h"
#include "support/screen/ScreenTest.h"
#include "ui/controls/NavigationButton.h"
#include "ui/look/Text.h"

namespace brisklog::test {
namespace {

using namespace Qt::StringLiterals;

class ContentScreenTest : public ScreenTest, protected EmptyContent {
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
