#pragma once

namespace brisklog {

/// Lets screen readers find the details of opened invoices beside the list: the toolkit knows nothing of what
/// lies inside a list's rows. Installing it again changes nothing.
void installArchiveListAccessible();

} // namespace brisklog
