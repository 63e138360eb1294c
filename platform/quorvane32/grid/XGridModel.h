#pragma once

#include <QAbstractTableModel>

namespace quorvane {

struct XGridState;

/// Shows the client's cells to the view without keeping any: a count of rows and a question for each cell
/// that is painted. Model row r is grid row r + 1, since the caption row is the view's header.
/// Cost of changing the row count: the view keeps eight bytes a row, nothing is asked for rows out of sight.
class XGridModel : public QAbstractTableModel {
    Q_OBJECT
public:
    XGridModel(XGridState& state, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// Rows including the caption row; rows come and go at the end. True when the change was so large that
    /// the view was reset, which takes its cursor away.
    bool setRows(int rows);
    /// Announces a wholly new set of columns; make changes them.
    template<class Make> void resetColumns(Make make) {
        beginResetModel();
        make();
        endResetModel();
    }

private:
    XGridState& m_state;
};

} // namespace quorvane
