#include "platform/quorvane32/grid/XGridAccessible.h"
#include "platform/quorvane32/grid/XGridState.h"
#include "platform/quorvane32/grid/XGridView.h"
#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

namespace quorvane {

namespace {

/// One cell for assistive technology: its text, its column's caption as description, where it stands.
class CellAccessible : public QAccessibleInterface, public QAccessibleTableCellInterface {
public:
    CellAccessible(XGridView* view, int row, int col) : m_view(view), m_row(row), m_col(col) {}

    int row() const { return m_row; }
    int col() const { return m_col; }

    bool isValid() const override { return m_view && m_view->shared().isCell(m_row, m_col); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override { return table(); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                       : nullptr;
    }

    bool isSelected() const override { return isValid() && state().selected; }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return m_col; }
    int rowIndex() const override { return m_row - 1; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return QAccessible::queryAccessibleInterface(m_view); }

private:
    QString spoken() const;

    QPointer<XGridView> m_view;
    int m_row;
    int m_col;
};

QString CellAccessible::text(QAccessible::Text kind) const {
    if (!isValid())
        return {};
    if (kind == QAccessible::Name || kind == QAccessible::Value)
        return spoken();
    return kind == QAccessible::Description ? m_view->shared().column(m_col).caption() : QString();
}

/// A picture is told by its words.
QString CellAccessible::spoken() const {
    const QString words = m_view->shared().picture(m_row, m_col).words;
    const QString shown = m_view->shared().text(m_row, m_col);
    return words.isEmpty() || shown.isEmpty() ? words + shown : words + u' ' + shown;
}

QRect CellAccessible::rect() const {
    if (!isValid())
        return {};
    const QRect cell = m_view->cellRect(m_row, m_col);
    return {m_view->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
}

QAccessible::State CellAccessible::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const XGridState& grid = m_view->shared();
    state.focusable = state.selectable = true;
    state.editable = grid.isEditable(m_row, m_col);
    state.readOnly = !state.editable;
    state.focused = m_view->hasFocus() && m_row == grid.row && m_col == grid.col;
    state.selected = m_view->selectionModel()->isSelected(m_view->model()->index(m_row - 1, m_col));
    state.offscreen = !m_view->viewport()->rect().intersects(m_view->cellRect(m_row, m_col));
    return state;
}

/// The cells of a grid that are in sight, row by row; the grid's whole size is told as a number only.
class GridAccessible : public QAccessibleWidget {
public:
    explicit GridAccessible(XGridView* view) : QAccessibleWidget(view, QAccessible::Table), m_view(view) {}
    ~GridAccessible() override { forgetCells(); }

    int childCount() const override { return rowsInSight() * static_cast<int>(columnsInSight().size()); }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    QString text(QAccessible::Text kind) const override;
    QAccessibleInterface* cell(int row, int col) const;

private:
    int firstRow() const { return m_view->rowAt(0) + 1; }
    int rowsInSight() const;
    QList<int> columnsInSight() const;
    void forgetCells() const;

    /// Cells that were asked for, by row and column; more than this many are forgotten and made anew.
    static constexpr qsizetype mostCells = 2000;
    XGridView* m_view;
    mutable QHash<QPair<int, int>, QAccessible::Id> m_cells;
};

int GridAccessible::rowsInSight() const {
    const int first = firstRow();
    if (first < 1)
        return 0;
    const int last = m_view->rowAt(m_view->viewport()->height() - 1) + 1;
    return (last < 1 ? m_view->shared().rows - 1 : last) - first + 1;
}

QList<int> GridAccessible::columnsInSight() const {
    QList<int> columns;
    for (int c = 0; c < m_view->shared().cols(); ++c) {
        if (m_view->shared().column(c).isVisible())
            columns += c;
    }
    return columns;
}

void GridAccessible::forgetCells() const {
    for (const QAccessible::Id id : std::as_const(m_cells))
        QAccessible::deleteAccessibleInterface(id);
    m_cells.clear();
}

QAccessibleInterface* GridAccessible::cell(int row, int col) const {
    if (!m_view->shared().isCell(row, col))
        return nullptr;
    const auto known = m_cells.constFind({row, col});
    if (known != m_cells.constEnd())
        return QAccessible::accessibleInterface(*known);
    if (m_cells.size() >= mostCells)
        forgetCells();
    auto* made = new CellAccessible(m_view, row, col);
    m_cells.insert({row, col}, QAccessible::registerAccessibleInterface(made));
    return made;
}

QAccessibleInterface* GridAccessible::child(int index) const {
    const QList<int> columns = columnsInSight();
    if (index < 0 || columns.isEmpty() || index >= childCount())
        return nullptr;
    const int wide = static_cast<int>(columns.size());
    return cell(firstRow() + index / wide, columns[index % wide]);
}

int GridAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* cell = dynamic_cast<const CellAccessible*>(child);
    if (!cell)
        return -1;
    const QList<int> columns = columnsInSight();
    const int row = cell->row() - firstRow();
    const auto column = static_cast<int>(columns.indexOf(cell->col()));
    if (row < 0 || row >= rowsInSight() || column < 0)
        return -1;
    return row * static_cast<int>(columns.size()) + column;
}

QAccessibleInterface* GridAccessible::childAt(int x, int y) const {
    const QModelIndex at = m_view->indexAt(m_view->viewport()->mapFromGlobal(QPoint(x, y)));
    return at.isValid() ? cell(at.row() + 1, at.column()) : nullptr;
}

QAccessibleInterface* GridAccessible::focusChild() const {
    if (m_view->hasFocus())
        return cell(m_view->shared().row, m_view->shared().col);
    return QAccessibleWidget::focusChild();
}

QString GridAccessible::text(QAccessible::Text kind) const {
    QString own = QAccessibleWidget::text(kind);
    const QWidget* grid = m_view->parentWidget();
    if (!own.isEmpty() || !grid)
        return own;
    // The view is an inner part: what the form calls the grid is its name.
    if (kind == QAccessible::Name)
        return grid->accessibleName();
    return kind == QAccessible::Description ? grid->accessibleDescription() : own;
}

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* view = qobject_cast<XGridView*>(object);
    return view ? new GridAccessible(view) : nullptr;
}

} // namespace

void installXGridAccessibility() {
    QAccessible::installFactory(makeAccessible);
}

void announceCursor(XGridView& view) {
    if (!QAccessible::isActive() || !view.hasFocus())
        return;
    auto* grid = dynamic_cast<GridAccessible*>(QAccessible::queryAccessibleInterface(&view));
    QAccessibleInterface* cell = grid ? grid->cell(view.shared().row, view.shared().col) : nullptr;
    if (!cell)
        return;
    QAccessibleEvent event(cell, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

} // namespace quorvane
