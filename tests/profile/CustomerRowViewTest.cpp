#include "profile/CustomerView.h"

#include <gtest/gtest.h>

namespace brisklog::test {
namespace {

Customer erika() {
    Customer customer;
    customer.firstName = "Erika";
    customer.name = "Muster";
    customer.gender = Gender::female;
    return customer;
}

TEST(CustomerRowView, showsSalutationCompanyAndDetailsWithTheirSymbols) {
    Customer customer = erika();
    customer.company = "Muster GmbH";
    customer.address = "Hauptstraße 1";
    customer.postalCode = "50667";
    customer.city = "Köln";
    customer.email = "erika@muster.example";
    customer.phone = "+49 221 1";
    const CustomerRowView row(customer);
    EXPECT_EQ(row.headline, "Frau Erika Muster");
    EXPECT_EQ(row.company, "Muster GmbH");
    EXPECT_EQ(row.details, (std::vector<CustomerRowView::Detail>{{"location", "Hauptstraße 1, 50667 Köln"},
                                                                 {"envelope", "erika@muster.example"},
                                                                 {"phone", "+49 221 1"}}));
    EXPECT_EQ(row.spokenText(),
              "Frau Erika Muster, Muster GmbH, Hauptstraße 1, 50667 Köln, erika@muster.example, +49 221 1");
}

TEST(CustomerRowView, leavesOutWhatIsEmpty) {
    const CustomerRowView row(erika());
    EXPECT_EQ(row.company, "");
    EXPECT_TRUE(row.details.empty());
    EXPECT_EQ(row.spokenText(), "Frau Erika Muster");
}

TEST(CustomerRowView, writesNoCommaWithoutStreet) {
    Customer customer = erika();
    customer.postalCode = "10969";
    customer.city = "Berlin";
    EXPECT_EQ(CustomerRowView(customer).details.at(0).text, "10969 Berlin");
}

TEST(CustomerRowView, aPostalCodeAloneIsNoPlace) {
    Customer customer = erika();
    customer.postalCode = "10969";
    EXPECT_TRUE(CustomerRowView(customer).details.empty());
}

} // namespace
} // namespace brisklog::test
