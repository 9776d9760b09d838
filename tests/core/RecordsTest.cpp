#include "core/Customer.h"
#include "core/Project.h"
#include "core/TimeTrackingStore.h"
#include "foundation/Calendar.h"

#include <gtest/gtest.h>
#include <limits>
#include <unordered_set>

namespace brisklog::test {
namespace {

constexpr Date tenOClock{816429600};
constexpr double hour = 3600;

TimeEntry anHour() {
    TimeEntry entry;
    entry.id = *Uuid::parse("0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9");
    entry.taskName = "Entwurf";
    entry.startTime = tenOClock;
    entry.endTime = tenOClock.addingSeconds(hour);
    return entry;
}

Customer erika() {
    Customer customer;
    customer.firstName = "Erika";
    customer.name = "Muster";
    customer.gender = Gender::female;
    customer.company = "Blau GmbH";
    customer.address = "Gasse 1";
    customer.postalCode = "12345";
    customer.city = "Berlin";
    return customer;
}

// What an entry earns

TEST(TimeEntry, ownRateCountsBeforeTheProjects) {
    TimeEntry entry = anHour();
    entry.hourlyRate = 80;
    EXPECT_EQ(entry.earnings(60, tenOClock), 80);
    EXPECT_EQ(entry.formattedEarnings(60, tenOClock), "80,00\u00A0€");
}

TEST(TimeEntry, projectsRateCountsWhereThereIsNoOwn) {
    EXPECT_EQ(anHour().earnings(60, tenOClock), 60);
    EXPECT_EQ(anHour().formattedEarnings(1234.5, tenOClock), "1.234,50\u00A0€");
}

TEST(TimeEntry, withoutAnyRateNothingIsEarnedAndTwoHyphensAreShown) {
    EXPECT_EQ(anHour().earnings(std::nullopt, tenOClock), 0);
    EXPECT_EQ(anHour().formattedEarnings(std::nullopt, tenOClock), "--");
}

TEST(TimeEntry, rateOfZeroIsARate) {
    TimeEntry entry = anHour();
    entry.hourlyRate = 0;
    EXPECT_EQ(entry.earnings(60, tenOClock), 0);
    EXPECT_EQ(entry.formattedEarnings(std::nullopt, tenOClock), "0,00\u00A0€");
}

TEST(TimeEntry, unfinishedOneCountsUpToNow) {
    TimeEntry entry = anHour();
    entry.endTime.reset();
    EXPECT_EQ(entry.duration(tenOClock.addingSeconds(2 * hour)), 2 * hour);
    EXPECT_EQ(entry.earnings(60, tenOClock.addingSeconds(1.5 * hour)), 90);
}

TEST(TimeEntry, amountThatIsNoNumberShowsZero) {
    TimeEntry entry = anHour();
    entry.hourlyRate = std::numeric_limits<double>::infinity();
    EXPECT_EQ(entry.formattedEarnings(std::nullopt, tenOClock), "0,00 €");
}

TEST(TimeEntry, startAndEndAreShownWithDateAndTime) {
    const Calendar calendar(QTimeZone("Europe/Berlin"));
    TimeEntry entry = anHour();
    entry.startTime = Date{816456008};
    entry.endTime = Date{816456009};
    EXPECT_EQ(entry.formattedStart(calendar), "15.11.26, 18:20:08");
    EXPECT_EQ(entry.formattedEnd(calendar), "15.11.26, 18:20:09");
    entry.endTime.reset();
    EXPECT_EQ(entry.formattedEnd(calendar), "--");
}

// Projects

TEST(Project, totalDurationCountsInvoicedAndUnfinishedEntries) {
    Project project;
    EXPECT_EQ(project.totalDuration(tenOClock), 0);
    project.entries = {anHour(), anHour(), anHour()};
    project.entries[1].isInvoiced = true;
    project.entries[2].endTime.reset();
    EXPECT_EQ(project.totalDuration(tenOClock.addingSeconds(60)), 2 * hour + 60);
}

TEST(Project, equalityAndHashGoByIdentityAlone) {
    const Project first{.id = Uuid::generate(), .name = "A", .hourlyRate = 1, .entries = {anHour()}};
    const Project second{.id = first.id, .name = "B", .hourlyRate = {}, .entries = {}};
    const Project other{.id = Uuid::generate(), .name = "A", .hourlyRate = 1, .entries = {anHour()}};
    EXPECT_EQ(first, second);
    EXPECT_NE(first, other);
    EXPECT_EQ((std::unordered_set<Project>{first, second, other}.size()), 2U);
}

// Running timers

TEST(ActiveEntryState, standsStillWhilePausedAndJumpsBackUpAfterwards) {
    ActiveEntryState state;
    state.entry = anHour();
    state.entry.endTime.reset();
    EXPECT_EQ(state.currentDuration(tenOClock.addingSeconds(600)), 600);
    state.isPaused = true;
    state.pauseStartTime = tenOClock.addingSeconds(600);
    EXPECT_EQ(state.currentDuration(tenOClock.addingSeconds(600)), 600);
    EXPECT_EQ(state.currentDuration(tenOClock.addingSeconds(1200)), 600);
    state.isPaused = false;
    state.pauseStartTime.reset();
    state.totalPauseDuration = 600;
    EXPECT_EQ(state.currentDuration(tenOClock.addingSeconds(1200)), 1200);
}

TEST(ActiveEntryState, pauseCountsOnlyWithBothItsMarks) {
    ActiveEntryState state;
    state.entry = anHour();
    state.entry.endTime.reset();
    state.pauseStartTime = tenOClock;
    EXPECT_EQ(state.currentDuration(tenOClock.addingSeconds(60)), 60);
    state.isPaused = true;
    state.pauseStartTime.reset();
    EXPECT_EQ(state.currentDuration(tenOClock.addingSeconds(60)), 60);
}

// Customers

TEST(Customer, salutationHasTheNamesThatThereAre) {
    Customer customer = erika();
    EXPECT_EQ(customer.formattedSalutation(), "Frau Erika Muster");
    customer.firstName = "";
    customer.gender = Gender::male;
    EXPECT_EQ(customer.formattedSalutation(), "Herr Muster");
    customer.name = "";
    EXPECT_EQ(customer.formattedSalutation(), "");
    customer.firstName = "Kim";
    customer.gender = Gender::diverse;
    EXPECT_EQ(customer.formattedSalutation(), "Divers Kim");
}

TEST(Customer, addressHasALineForEverythingThatIsGiven) {
    EXPECT_EQ(erika().formattedAddress(), "Frau Erika Muster\nBlau GmbH\nGasse 1\n12345 Berlin");
    EXPECT_EQ(Customer().formattedAddress(), "");
}

TEST(Customer, withoutNamesTheAddressStartsWithTheCompany) {
    Customer customer = erika();
    customer.firstName = customer.name = "";
    EXPECT_EQ(customer.formattedAddress(), "Blau GmbH\nGasse 1\n12345 Berlin");
}

TEST(Customer, cityLineHasNoBlanksAtItsEnds) {
    Customer customer;
    customer.postalCode = "12345";
    EXPECT_EQ(customer.formattedAddress(), "12345");
    customer.postalCode = "";
    customer.city = "Berlin";
    EXPECT_EQ(customer.formattedAddress(), "Berlin");
    customer.city = " Berlin ";
    EXPECT_EQ(customer.formattedAddress(), "Berlin");
}

TEST(Customer, gendersAreListedInOrderAndComeBackFromTheirLetters) {
    EXPECT_EQ(allGenders, (std::array{Gender::male, Gender::female, Gender::diverse}));
    std::string letters;
    std::string words;
    for (const Gender gender : allGenders) {
        letters += jsonText(gender);
        words += std::string(salutationWord(gender)) + " ";
        Gender read = Gender::male;
        EXPECT_TRUE(fromJsonText(jsonText(gender), read));
        EXPECT_EQ(read, gender);
    }
    EXPECT_EQ(letters, "mwd");
    EXPECT_EQ(words, "Herr Frau Divers ");
    Gender untouched = Gender::female;
    for (const char* const wrong : {"x", "M", "", "mw", "male"})
        EXPECT_FALSE(fromJsonText(wrong, untouched));
    EXPECT_EQ(untouched, Gender::female);
}

// Their JSON forms

template <class T>
std::string encoded(const T& value) {
    return std::string(json::encode(value, json::Layout::compact).value().bytes());
}

TEST(RecordsInJson, finishedEntryWithEverything) {
    TimeEntry entry = anHour();
    entry.startTime = Date{816429600.25};
    entry.projectId = entry.id;
    entry.note = "mit Ü";
    entry.hourlyRate = 85.5;
    entry.isInvoiced = true;
    EXPECT_EQ(encoded(entry), R"({"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","taskName":"Entwurf",)"
                              R"("startTime":816429600.25,"endTime":816433200.0,)"
                              R"("projectId":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","note":"mit Ü",)"
                              R"("hourlyRate":85.5,"isInvoiced":true})");
    EXPECT_EQ(json::decode<TimeEntry>(encoded(entry)).value(), entry);
}

TEST(RecordsInJson, absentValuesAreLeftOut) {
    TimeEntry entry = anHour();
    entry.endTime.reset();
    EXPECT_EQ(encoded(entry), R"({"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","taskName":"Entwurf",)"
                              R"("startTime":816429600.0,"isInvoiced":false})");
    EXPECT_EQ(json::decode<TimeEntry>(encoded(entry)).value(), entry);
}

TEST(RecordsInJson, project) {
    const Project project{.id = anHour().id, .name = "P", .hourlyRate = {}, .entries = {}};
    EXPECT_EQ(encoded(project), R"({"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","name":"P","entries":[]})");
}

TEST(RecordsInJson, customerHasElevenKeysAllRequired) {
    Customer customer = erika();
    customer.id = anHour().id;
    const std::string text = encoded(customer);
    EXPECT_EQ(text, R"({"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","firstName":"Erika","name":"Muster",)"
                    R"("gender":"w","company":"Blau GmbH","address":"Gasse 1","postalCode":"12345",)"
                    R"("city":"Berlin","email":"","phone":"","taxId":""})");
    EXPECT_EQ(json::decode<Customer>(text).value(), customer);
    for (const char* const key : {"id", "firstName", "name", "gender", "company", "address", "postalCode",
                                  "city", "email", "phone", "taxId"}) {
        std::string without = text;
        without.replace(without.find("\"" + std::string(key) + "\":"), 1, "\"no");
        const auto decoded = json::decode<Customer>(without);
        ASSERT_TRUE(decoded.failed()) << key;
        EXPECT_TRUE(decoded.error().description.starts_with(key + std::string(": missing")));
    }
}

TEST(RecordsInJson, unknownGenderMakesACustomerUndecodable) {
    std::string text = encoded(erika());
    text.replace(text.find("\"w\""), 3, "\"x\"");
    EXPECT_TRUE(json::decode<Customer>(text).failed());
}

TEST(RecordsInJson, savedNote) {
    const SavedNote note{.id = anHour().id, .name = "Dank", .content = "Danke\nsehr"};
    EXPECT_EQ(encoded(note),
              R"({"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","name":"Dank","content":"Danke\nsehr"})");
    EXPECT_EQ(json::decode<SavedNote>(encoded(note)).value(), note);
}

TEST(RecordsInJson, archivedInvoice) {
    ArchivedInvoice invoice{.id = anHour().id,
                            .invoiceNumber = "",
                            .date = tenOClock,
                            .customerName = {},
                            .entryIDs = {anHour().id}};
    EXPECT_EQ(encoded(invoice), R"({"id":"0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9","invoiceNumber":"",)"
                                R"("date":816429600.0,"entryIDs":["0A1B2C3D-4E5F-6071-8293-A4B5C6D7E8F9"]})");
    invoice.customerName = "Blau";
    EXPECT_EQ(json::decode<ArchivedInvoice>(encoded(invoice)).value(), invoice);
}

TEST(RecordsInJson, entryWithoutARateLoadsAndOneWithoutItsInvoicedMarkDoesNot) {
    const std::string text = encoded(anHour());
    EXPECT_EQ(json::decode<TimeEntry>(text).value().hourlyRate, std::nullopt);
    std::string without = text;
    without.erase(without.find(",\"isInvoiced\""), std::string(",\"isInvoiced\":false").size());
    EXPECT_TRUE(json::decode<TimeEntry>(without).failed());
}

} // namespace
} // namespace brisklog::test
