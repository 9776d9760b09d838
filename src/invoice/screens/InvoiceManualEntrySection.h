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
    InvoiceManualEntrySection(TimeTrackingStore& timeStore, InvoiceView& view, const Clock& clock);

protected:
    void refresh() override;

private:
    void connectFields();

    InvoiceView& m_view;
    const Clock& m_clock;
    DateTimeField* m_date;
    TextField* m_description;
    Stepper* m_hours;
    Stepper* m_minutes;
    TextField* m_rate;
    Button* m_add;
};

} // namespace brisklog
