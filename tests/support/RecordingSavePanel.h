#pragma once

#include "platform/SavePanel.h"

#include <utility>
#include <vector>

namespace brisklog::test {

/// Records the requests; the test answers when it likes.
class RecordingSavePanel final : public SavePanel {
public:
    void present(const SaveRequest& request, Completion completed) override {
        requests.push_back(request);
        m_pending = std::move(completed);
    }

    [[nodiscard]] bool isShown() const { return static_cast<bool>(m_pending); }

    /// Ends the panel shown last, with a file or without.
    void answer(std::optional<std::filesystem::path> file) { std::exchange(m_pending, {})(std::move(file)); }

    std::vector<SaveRequest> requests;

private:
    Completion m_pending;
};

} // namespace brisklog::test
