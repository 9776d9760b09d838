#include "invoice/InvoiceGenerator.h"

#include "invoice/InvoiceSheet.h"
#include "support/PdfReader.h"

#include <gmock/gmock.h>

namespace brisklog::test {
namespace {

namespace fs = std::filesystem;

/// The export over a real store with one project of three entries.
class ReportExportTest : public testing::Test {
protected:
    void begin() {
        exportReport(sheet.store, sheet.store.projects->front(), sheet.facilities());
        sheet.log.lines.clear();
    }

    /// Expects a written report with that title and these rows.
    void expectReport(const std::string& title, const std::vector<std::string>& taskNames) {
        const PdfReader pdf(readFile(target()));
        EXPECT_TRUE(pdf.find(title));
        for (const std::string taskName : {"Anfang", "Mitte", "Ende"})
            EXPECT_EQ(pdf.find(taskName).has_value(), std::ranges::count(taskNames, taskName) == 1)
                << taskName;
    }

    fs::path target() { return sheet.home.path() / "Bericht.pdf"; }

    InvoiceSheet sheet{{entryOf("Anfang", 60), entryOf("Mitte", 60), entryOf("Ende", 60)}, 80.0};
};

TEST_F(ReportExportTest, asksForAFileNamedAfterTheProject) {
    begin();
    ASSERT_EQ(sheet.savePanel.requests.size(), 1U);
    EXPECT_EQ(sheet.savePanel.requests[0].title, "Website als PDF exportieren");
    EXPECT_EQ(sheet.savePanel.requests[0].suggestedName, "Website.pdf");
    EXPECT_TRUE(sheet.files.written.empty());
}

TEST_F(ReportExportTest, writesTheReportToTheChosenFile) {
    begin();
    sheet.savePanel.answer(target());
    expectReport("Zeiterfassung: Website", {"Anfang", "Mitte", "Ende"});
    EXPECT_TRUE(sheet.log.lines.empty());
}

TEST_F(ReportExportTest, cancellingDoesNothing) {
    begin();
    sheet.savePanel.answer(std::nullopt);
    EXPECT_TRUE(sheet.files.written.empty());
    EXPECT_FALSE(fs::exists(target()));
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
    expectReport("Zeiterfassung: Webshop", {});
}

TEST_F(ReportExportTest, aProjectDeletedMeanwhileIsReportedAsItWas) {
    begin();
    sheet.store.deleteProject(0);
    sheet.savePanel.answer(target());
    expectReport("Zeiterfassung: Website", {"Anfang", "Mitte", "Ende"});
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
