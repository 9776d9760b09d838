#pragma once

#include "ui/look/Layout.h"

#include <QWidget>
#include <vector>

namespace brisklog {

/// Rows of one kind under each other, as many as there are values to show. Rows that stay are kept.
template <class RowView>
class RowColumn final : public QWidget {
public:
    explicit RowColumn(int spacing, QWidget* parent = nullptr) : QWidget(parent), m_spacing(spacing) {}

    /// Shows one row for each value; `set` hands a value to its row.
    template <class Value, class Setter>
    void show(const std::vector<Value>& values, Setter set) {
        if (values.size() != m_rows.size())
            resizeTo(values.size());
        for (std::size_t i = 0; i < values.size(); ++i)
            (m_rows[i]->*set)(values[i]);
    }

private:
    void resizeTo(std::size_t count) {
        while (m_rows.size() > count) {
            delete m_rows.back();
            m_rows.pop_back();
        }
        while (m_rows.size() < count)
            m_rows.push_back(new RowView(this));
        Column column{};
        for (RowView* row : m_rows)
            column.add(row);
        column.spacing(m_spacing).applyTo(*this);
        setVisible(count > 0);
    }

    int m_spacing;
    std::vector<RowView*> m_rows;
};

} // namespace brisklog
