#include "invoice/ReportExport.h"

#include "invoice/InvoiceSheet.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

/// The export over a real store with one project of three entries.
class ReportExportTest : public testing::Test {
protected:
    ReportPlatform platform() {
        return {.store = sheet.store,
                .savePanel = sheet.savePanel,
                .files = sheet.files,
                .log = sheet.log,
                .generate = [this](const Project& project) {
                    generated.push_back(project.name + " " + std::to_string(project.entries.size()));
                    return "%PDF " + project.name;
                }};
    }

    void begin() {
        exportReport(platform(), sheet.store.projects->front());
        sheet.log.lines.clear();
    }

    fs::path target() { return sheet.home.path() / "Bericht.pdf"; }

    InvoiceSheet sheet{{entryOf("a", 60), entryOf("b", 60), entryOf("c", 60)}, 80.0};
    std::vector<std::string> generated;
};

TEST_F(ReportExportTest, asksForAFileNamedAfterTheProject) {
    begin();
    ASSERT_EQ(sheet.savePanel.requests.size(), 1U);
    EXPECT_EQ(sheet.savePanel.requests[0].title, "Website als PDF exportieren");
    EXPECT_EQ(sheet.savePanel.requests[0].suggestedName, "Website.pdf");
    EXPECT_TRUE(generated.empty());
}

TEST_F(ReportExportTest, writesTheReportToTheChosenFile) {
    begin();
    sheet.savePanel.answer(target());
    EXPECT_EQ(generated, std::vector<std::string>{"Website 3"});
    EXPECT_EQ(readFile(target()), "%PDF Website");
    EXPECT_TRUE(sheet.log.lines.empty());
}

TEST_F(ReportExportTest, cancellingDoesNothing) {
    begin();
    sheet.savePanel.answer(std::nullopt);
    EXPECT_TRUE(generated.empty());
    EXPECT_TRUE(sheet.files.written.empty());
    EXPECT_TRUE(sheet.log.lines.empty());
}

TEST_F(ReportExportTest, aFailedWriteIsOnePrintedLine) {
    begin();
    const fs::path file = sheet.home.path() / "fort" / "Bericht.pdf";
    sheet.savePanel.answer(file);
    EXPECT_EQ(sheet.log.lines, std::vector<std::string>{"Fehler beim Speichern der PDF: " + file.string() +
                                                        ": No such file or directory"});
    EXPECT_FALSE(fs::exists(sheet.home.path() / "fort"));
}

TEST_F(ReportExportTest, reportsTheProjectAsItIsWhenThePanelEnds) {
    begin();
    sheet.store.updateProject(0, "Webshop", 90.0);
    sheet.store.resetProject(0);
    sheet.savePanel.answer(target());
    EXPECT_EQ(generated, std::vector<std::string>{"Webshop 0"});
}

TEST_F(ReportExportTest, aProjectDeletedMeanwhileIsReportedAsItWas) {
    begin();
    sheet.store.deleteProject(0);
    sheet.savePanel.answer(target());
    EXPECT_EQ(generated, std::vector<std::string>{"Website 3"});
}

TEST_F(ReportExportTest, changesNothingInTheStore) {
    const auto before = sheet.projectEntries();
    begin();
    sheet.savePanel.answer(target());
    EXPECT_EQ(sheet.projectEntries(), before);
    EXPECT_EQ(sheet.files.written, std::vector<std::string>{"Bericht.pdf"});
    EXPECT_TRUE(sheet.store.archivedInvoices->empty());
}

} // namespace
} // namespace brisklog::test
