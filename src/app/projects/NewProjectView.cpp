#include "app/projects/NewProjectView.h"

#include "foundation/NumericInput.h"
#include "foundation/Text.h"

namespace brisklog {

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

} // namespace brisklog
