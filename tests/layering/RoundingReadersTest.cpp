#include "SourceTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

TEST(Layering, theRoundingChoicesAreReadByTheSettingsAlone) {
    std::vector<std::string> readers;
    for (const std::string& file : sourcesIn("src"))
        for (const SourceLine& line : linesOf(file)) {
            const bool reads = line.text.find("timeRounding") != std::string::npos ||
                               line.text.find("invoiceRounding") != std::string::npos;
            if (reads && !file.starts_with("src/settings/"))
                readers.push_back(line.place());
        }
    EXPECT_THAT(readers, testing::IsEmpty());
}

} // namespace
} // namespace brisklog::test
