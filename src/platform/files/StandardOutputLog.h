#pragma once

#include "platform/Log.h"

namespace brisklog {

/// Prints to standard output, each line at once. A closed or full output is ignored.
class StandardOutputLog final : public Log {
public:
    void print(std::string_view line) override;
};

} // namespace brisklog
