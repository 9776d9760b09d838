#pragma once

#include "profile/LogoPickerPresenter.h"

#include <string>
#include <vector>

namespace brisklog::test {

/// A logo picker that shows nothing; a test chooses through `pending`.
class RecordingLogoPicker final : public LogoPickerPresenter {
public:
    void present(const std::string& title, Completion completed) override {
        titles.push_back(title);
        pending = std::move(completed);
    }

    void close() override { ++closings; }

    std::vector<std::string> titles;
    Completion pending;
    int closings = 0;
};

} // namespace brisklog::test
