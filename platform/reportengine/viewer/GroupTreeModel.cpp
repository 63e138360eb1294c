#include "platform/reportengine/viewer/GroupTreeModel.h"
#include <algorithm>

namespace quorvane::report {

void GroupTreeModel::setLayout(const Layout* layout) {
    beginResetModel();
    m_layout = layout;
    m_root = {};
    m_nodes.clear();
    m_current.clear();
    endResetModel();
    update();
}

void GroupTreeModel::add(int position) {
    const auto level = static_cast<std::size_t>(group(position).level);
    m_current.resize(level, root);
    const int parent = m_current.empty() ? root : m_current.back();
    m_current.push_back(position);
    Node made;
    made.parent = parent;
    made.row = static_cast<int>(node(parent).children.size());
    node(parent).children.push_back(position);
    m_nodes.push_back(std::move(made));
}

void GroupTreeModel::update() {
    if (!m_layout)
        return;
    // These can have got more inner groups; new ones are told when they are opened.
    std::vector<int> grown{root};
    grown.insert(grown.end(), m_current.begin(), m_current.end());
    for (auto i = m_nodes.size(); i < m_layout->groups().size(); ++i)
        add(static_cast<int>(i));
    for (const int position : grown)
        if (position == root || m_nodes[position].shown > 0)
            show(position);
}

void GroupTreeModel::show(int position) {
    const int all = static_cast<int>(node(position).children.size());
    if (node(position).shown == all)
        return;
    m_inserting = true;
    beginInsertRows(indexOf(position), node(position).shown, all - 1);
    node(position).shown = all;
    m_inserting = false;
    endInsertRows();
}

int GroupTreeModel::positionOf(const QModelIndex& index) {
    return index.isValid() ? static_cast<int>(index.internalId()) : root;
}

QModelIndex GroupTreeModel::indexOf(int position) const {
    return position == root ? QModelIndex()
                            : createIndex(m_nodes[position].row, Caption, static_cast<quintptr>(position));
}

const GroupEntry& GroupTreeModel::entryOf(const QModelIndex& index) const {
    return group(positionOf(index));
}

QModelIndex GroupTreeModel::indexOfPage(int page) const {
    const std::vector<int>& all = m_root.children;
    const auto begin = all.begin();
    const auto end = begin + m_root.shown;
    const auto first =
        std::partition_point(begin, end, [this, page](int position) { return group(position).page < page; });
    if (first != end && group(*first).page == page)
        return indexOf(*first);
    return first == begin ? QModelIndex() : indexOf(*(first - 1));
}

QModelIndex GroupTreeModel::index(int row, int column, const QModelIndex& parent) const {
    const Node& outer = node(positionOf(parent));
    if (row < 0 || row >= outer.shown || column < 0 || column >= ColumnCount)
        return {};
    return createIndex(row, column, static_cast<quintptr>(outer.children[row]));
}

QModelIndex GroupTreeModel::parent(const QModelIndex& child) const {
    return child.isValid() ? indexOf(m_nodes[positionOf(child)].parent) : QModelIndex();
}

int GroupTreeModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : node(positionOf(parent)).shown;
}

int GroupTreeModel::columnCount(const QModelIndex&) const {
    return ColumnCount;
}

bool GroupTreeModel::hasChildren(const QModelIndex& parent) const {
    return parent.column() <= 0 && !node(positionOf(parent)).children.empty();
}

bool GroupTreeModel::canFetchMore(const QModelIndex& parent) const {
    const Node& outer = node(positionOf(parent));
    return !m_inserting && outer.shown < static_cast<int>(outer.children.size());
}

void GroupTreeModel::fetchMore(const QModelIndex& parent) {
    if (canFetchMore(parent))
        show(positionOf(parent));
}

QVariant GroupTreeModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const GroupEntry& entry = group(positionOf(index));
    switch (role) {
    case Qt::DisplayRole:
        if (index.column() == PageNumber)
            return QString::number(entry.page + 1);
        return entry.caption.isEmpty() ? QStringLiteral("(sin nombre)") : entry.caption;
    case Qt::ToolTipRole:
        return QStringLiteral("%1, página %2").arg(entry.caption).arg(entry.page + 1);
    case Qt::TextAlignmentRole:
        if (index.column() == PageNumber)
            return QVariant(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    default:
        return {};
    }
}

QVariant GroupTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::DisplayRole && orientation == Qt::Horizontal)
        return section == Caption ? QStringLiteral("Grupo") : QStringLiteral("Página");
    return {};
}

} // namespace quorvane::report
