#pragma once

class QIODevice;

namespace brisklog {

/// Whether a part of the PNG file says to be longer than the file is, or there are more parts than any
/// program writes. The decoder takes as much memory as a part says it needs before it looks whether the part
/// is there. Leaves the device wherever it had to look.
[[nodiscard]] bool claimsMoreThanThereIs(QIODevice& png);

} // namespace brisklog
