#pragma once

#include "invoice/InvoiceView.h"
#include "ui/sheets/Screen.h"

namespace brisklog {

class Button;
class DateTimeField;
class Stepper;
class TextField;

/// Adds an entry that was not recorded by a timer.
class InvoiceManualEntrySection final : public Screen {
public:
    explicit InvoiceManualEntrySection(InvoiceView& view);

protected:
    void refresh() override;

private:
    void connectFields();

    InvoiceView& m_view;
    DateTimeField* m_date;
    TextField* m_description;
    Stepper* m_hours;
    Stepper* m_minutes;
    TextField* m_rate;
    Button* m_add;
};

} // namespace brisklog
