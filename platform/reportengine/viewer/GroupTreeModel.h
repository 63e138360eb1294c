#pragma once

#include "platform/reportengine/layout/Layout.h"
#include <QAbstractItemModel>
#include <vector>

namespace quorvane::report {

/// The groups of a report as a tree. They become known while the report is laid out, in report order, so only
/// the last group of each level can still grow; the inner groups of one that nobody has opened are not told
/// to the view at all. An update costs as much as what is new, whatever the number of groups.
class GroupTreeModel : public QAbstractItemModel {
    Q_OBJECT
public:
    enum Column { Caption, PageNumber, ColumnCount };

    using QAbstractItemModel::QAbstractItemModel;

    /// Shows the groups of a layout, which outlives this model; null shows nothing.
    void setLayout(const Layout* layout);
    /// There may be more groups.
    void update();
    /// The group of a valid index.
    const GroupEntry& entryOf(const QModelIndex& index) const;
    /// The first outermost group that begins on a page, else the one that goes on there; invalid before all.
    QModelIndex indexOfPage(int page) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    static constexpr int root = -1;
    struct Node {
        int parent = root; ///< position in the groups
        int row = 0;
        std::vector<int> children;
        int shown = 0; ///< children that the view knows of
    };

    const GroupEntry& group(int node) const { return m_layout->groups()[node]; }
    Node& node(int position) { return position == root ? m_root : m_nodes[position]; }
    const Node& node(int position) const { return position == root ? m_root : m_nodes[position]; }
    static int positionOf(const QModelIndex& index);
    QModelIndex indexOf(int position) const;
    void add(int position);
    void show(int position);

    const Layout* m_layout = nullptr;
    Node m_root;
    std::vector<Node> m_nodes;  ///< one a group
    std::vector<int> m_current; ///< the last group of each level
    bool m_inserting = false;   ///< the view is being told; it must not ask for the same rows meanwhile
};

} // namespace quorvane::report
