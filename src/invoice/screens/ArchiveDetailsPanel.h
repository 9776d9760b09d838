#pragma once

#include <QWidget>
#include <functional>

namespace brisklog {

class FigureLabel;
class SymbolButton;
struct ArchiveDetails;

/// The details of an open invoice, with the button that deletes it.
class ArchiveDetailsPanel final : public QWidget {
public:
    static constexpr int panelHeight = 64;

    explicit ArchiveDetailsPanel(std::function<void()> deleteInvoice);

    void setDetails(const ArchiveDetails& details);

    [[nodiscard]] SymbolButton& deleteButton() const { return *m_delete; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* m_content;
    FigureLabel* m_date;
    FigureLabel* m_time;
    FigureLabel* m_amount;
    SymbolButton* m_delete;
};

} // namespace brisklog
