// customers.json, and the address that an invoice shows.

#include "RoundTrip.h"

#include "core/Customer.h"

namespace brisklog::fuzz {

void tryInput(std::string_view bytes) {
    const auto customers = roundTripped<std::vector<Customer>>(bytes, json::Layout::pretty);
    if (!customers)
        return;
    for (const Customer& customer : *customers)
        requireShowable(customer.formattedAddress());
}

} // namespace brisklog::fuzz
