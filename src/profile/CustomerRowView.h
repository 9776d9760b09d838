#pragma once

#include "core/Customer.h"

#include <string>
#include <vector>

namespace brisklog {

/// What the customer list shows of one customer, from top to bottom. Empty texts give no line. A value in
/// spite of its name.
struct CustomerRowView {
    /// A line led by a symbol.
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

    /// All lines as one text, for whoever cannot see them.
    [[nodiscard]] std::string spokenText() const;
};

} // namespace brisklog
