#include "app/projects/ProjectSheetViews.h"

#include "foundation/NumericInput.h"
#include "foundation/Text.h"

#include <array>
#include <charconv>
#include <utility>

namespace brisklog {
namespace {

/// Two decimals and a decimal point, whatever the desktop's language; the field accepts both "." and ",".
std::string rateText(double rate) {
    // The largest double has 309 digits before the point.
    std::array<char, 320> buffer{};
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), rate, std::chars_format::fixed, 2);
    return {buffer.data(), end};
}

} // namespace

NewProjectView::NewProjectView(TimeTrackingStore& store) : m_store(store) {}

void NewProjectView::create() {
    const std::string name(text::trimmed(*projectName));
    if (name.empty() || isProcessing)
        return;
    isProcessing = true;
    m_store.addProject(name, parseDecimal(*hourlyRateString));
    isPresented = false;
}

void NewProjectView::cancel() { isPresented = false; }

ProjectSettingsView::ProjectSettingsView(TimeTrackingStore& store, int projectIndex)
    : m_store(store), m_projectIndex(projectIndex) {
    if (projectIndex < 0 || std::cmp_greater_equal(projectIndex, store.projects->size()))
        return;
    const Project& project = store.projects.get()[static_cast<std::size_t>(projectIndex)];
    projectName = project.name;
    hourlyRateString = project.hourlyRate ? rateText(*project.hourlyRate) : "";
}

void ProjectSettingsView::save() {
    m_store.updateProject(m_projectIndex, std::string(text::trimmed(*projectName)),
                          parseDecimal(*hourlyRateString));
    isPresented = false;
}

void ProjectSettingsView::deleteProject() {
    m_store.deleteProject(m_projectIndex);
    isPresented = false;
}

void ProjectSettingsView::cancel() { isPresented = false; }

} // namespace brisklog
