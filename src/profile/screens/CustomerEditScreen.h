#pragma once

#include "profile/CustomerEditView.h"
#include "ui/sheets/SheetWindow.h"

namespace brisklog {

class LayoutItem;

/// The sheet that creates, edits or deletes a customer.
class CustomerEditScreen final : public SheetWindow {
public:
    /// For a new customer.
    explicit CustomerEditScreen(TimeTrackingStore& timeStore);
    CustomerEditScreen(TimeTrackingStore& timeStore, const Customer& customer);

private:
    void build();
    [[nodiscard]] QWidget* makeBody();
    [[nodiscard]] LayoutItem basicInformation();
    [[nodiscard]] LayoutItem address();
    [[nodiscard]] LayoutItem contact();
    /// A field below its label, bound to that text of the view.
    [[nodiscard]] QWidget* field(const QString& label, Published<std::string>& text);
    [[nodiscard]] QWidget* genderPicker();
    void addHeader();
    void addFooter();
    void refreshConfirm();
    void save();
    void cancel();
    void confirmDeleting();
    void closeWhenDone();

    CustomerEditView m_view;
    Button* m_confirm = nullptr;
};

} // namespace brisklog
