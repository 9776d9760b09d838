#pragma once

#include "core/Customer.h"

#include <string>
#include <vector>

namespace brisklog {

/// What the customer list shows of one customer, from top to bottom; empty texts take no line. A value,
/// despite its name.
struct CustomerRowView {
    /// A line with a symbol in front.
    struct Detail {
        std::string symbol;
        std::string text;

        bool operator==(const Detail&) const = default;
    };

    /// "Frau Erika Muster".
    std::string headline;
    std::string company;
    /// Place, e-mail, telephone.
    std::vector<Detail> details;

    explicit CustomerRowView(const Customer& customer);

    /// All lines as one text, for screen readers.
    [[nodiscard]] std::string spokenText() const;
};

} // namespace brisklog
