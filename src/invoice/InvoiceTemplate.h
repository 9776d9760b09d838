#pragma once

namespace brisklog {

/// Holds a name; nothing is drawn through it.
class InvoiceTemplate {};

/// Holds a name; nothing is drawn through it.
class NewInvoiceTemplate {};

} // namespace brisklog
