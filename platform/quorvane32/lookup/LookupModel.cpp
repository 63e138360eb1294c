#include "platform/quorvane32/lookup/LookupModel.h"

namespace quorvane {

namespace {

Qt::Alignment alignmentOf(ColumnAlignment alignment) {
    switch (alignment) {
    case ColumnAlignment::Centre:
        return Qt::AlignCenter;
    case ColumnAlignment::Right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case ColumnAlignment::Left:
        break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

} // namespace

LookupModel::LookupModel(LookupRows& rows, QObject* parent)
    : QAbstractTableModel(parent), m_rows(rows), m_known(rows.visibleCount()) {}

int LookupModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_known;
}

int LookupModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_rows.columnCount();
}

QVariant LookupModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return m_rows.text(m_rows.rowAt(index.row()), index.column());
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(alignmentOf(m_rows.column(index.column()).alignment));
    return {};
}

QVariant LookupModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= m_rows.columnCount())
        return {};
    if (role == Qt::DisplayRole)
        return m_rows.column(section).caption;
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(alignmentOf(m_rows.column(section).alignment));
    return {};
}

void LookupModel::rowsAppended() {
    const int now = m_rows.visibleCount();
    if (now <= m_known)
        return;
    beginInsertRows({}, m_known, now - 1);
    m_known = now;
    endInsertRows();
}

void LookupModel::setFilter(int column, const QString& filter) {
    beginResetModel();
    m_rows.setFilter(column, filter);
    m_known = m_rows.visibleCount();
    endResetModel();
}

void LookupModel::sort(int column, Qt::SortOrder order) {
    beginResetModel();
    m_rows.sort(column, order);
    m_known = m_rows.visibleCount();
    endResetModel();
}

} // namespace quorvane
