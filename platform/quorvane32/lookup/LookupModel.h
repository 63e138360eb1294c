#pragma once

#include "platform/quorvane32/lookup/LookupRows.h"
#include <QAbstractTableModel>

namespace quorvane {

/// Gives the visible rows of a lookup to the table that shows them.
class LookupModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit LookupModel(LookupRows& rows, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Tells the table that rows have come in: those at the end of the visible ones, past what it knew.
    void rowsAppended();
    void setFilter(int column, const QString& filter);
    /// Orders by a column, see LookupRows.
    void sort(int column, Qt::SortOrder order) override;

private:
    LookupRows& m_rows;
    /// Visible rows that the table has been told of.
    int m_known = 0;
};

} // namespace quorvane
