#include "platform/quorvane32/grid/XGrid.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/grid/XGridAccessible.h"
#include "platform/quorvane32/grid/XGridEditing.h"
#include "platform/quorvane32/grid/XGridModel.h"
#include "platform/quorvane32/grid/XGridState.h"
#include "platform/quorvane32/grid/XGridView.h"
#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

namespace quorvane {

namespace {

quint32 colorNumber(const QColor& color) {
    return static_cast<quint32>(color.blue() << 16 | color.green() << 8 | color.red());
}

void checkSubscript(bool valid) {
    if (!valid)
        raise(ErrorSubscript);
}

} // namespace

XGrid::XGrid(QWidget* parent) : QFrame(parent), m_state(std::make_unique<XGridState>()) {
    installXGridAccessibility();
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setFocusPolicy(Qt::StrongFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

XGrid::~XGrid() {
    if (m_view)
        m_view->editing().cancel();
    m_state->client = nullptr; // the client may be gone already; nothing is asked on the way down
    delete m_view;
}

XGridView& XGrid::view() {
    if (m_view)
        return *m_view;
    m_view = new XGridView(*m_state, this);
    layout()->addWidget(m_view);
    setTabOrder(this, m_view); // before the proxy, which would stand for both
    setFocusProxy(m_view);
    connect(m_view, &XGridView::cursorMoved, this, &XGrid::cursorMoved);
    connect(m_view, &XGridView::cellClicked, this, &XGrid::cellClicked);
    connect(m_view, &XGridView::columnDragged, this, &XGrid::columnDragged);
    return *m_view;
}

void XGrid::setClient(XGridClient* client) {
    if (m_view)
        m_view->editing().cancel();
    m_state->client = client;
    refresh();
}

int XGrid::cols() const {
    return m_state->cols();
}

void XGrid::setCols(int cols) {
    checkSubscript(cols >= 0);
    const auto resize = [this, cols] {
        auto& columns = m_state->columns;
        const auto changed = [this] {
            if (m_view && !m_draggingColumn)
                m_view->layOutSoon();
        };
        columns.resize(qMin(columns.size(), static_cast<size_t>(cols)));
        while (m_state->cols() < cols)
            columns.push_back(std::make_unique<XGridColumn>(changed));
    };
    if (m_view) {
        m_view->editing().cancel();
        m_view->cells().resetColumns(resize);
    } else {
        resize();
    }
    erase_if(m_state->cellBackColors, [cols](const auto& cell) { return cell.key().second >= cols; });
    m_state->row = 0;
    m_state->col = 0;
    if (m_view)
        m_view->layOut();
}

int XGrid::rows() const {
    return m_state->rows;
}

void XGrid::setRows(int rows) {
    checkSubscript(rows >= 0);
    if (rows == m_state->rows)
        return;
    if (!m_view) {
        m_state->rows = rows;
        return;
    }
    if (m_view->editing().isActive() && m_view->editing().row() >= rows)
        m_view->editing().cancel();
    const int cursor = m_state->row;
    if (m_view->cells().setRows(rows))
        m_view->setCurrentCell(qBound(0, cursor, rows - 1), m_state->col);
    erase_if(m_state->cellBackColors, [rows](const auto& cell) { return cell.key().first >= qMax(1, rows); });
}

int XGrid::row() const {
    return m_state->row;
}

void XGrid::setRow(int row) {
    checkSubscript(row >= 0 && row < m_state->rows);
    setCurrentCell(row, m_state->col);
}

int XGrid::col() const {
    return m_state->col;
}

void XGrid::setCol(int col) {
    checkSubscript(col >= 0 && col < m_state->cols());
    setCurrentCell(m_state->row, col);
}

void XGrid::setCurrentCell(int row, int col) {
    if (m_view || row >= 1) {
        view().setCurrentCell(row, col);
        return;
    }
    m_state->row = row;
    m_state->col = col;
}

int XGrid::rowSel() const {
    return m_view ? m_view->rowSel() : m_state->row;
}

int XGrid::topRow() const {
    return m_view ? m_view->rowAt(0) + 1 : 0;
}

void XGrid::setTopRow(int row) {
    checkSubscript(row >= 0 && row < qMax(1, m_state->rows));
    if (row < 1)
        row = 1;
    if (row < m_state->rows)
        view().showAtTop(row);
}

QString XGrid::text(int row, int col) const {
    if (row == 0 && col >= 0 && col < m_state->cols())
        return m_state->column(col).caption();
    return m_state->text(row, col);
}

XGridColumn& XGrid::column(int index) {
    checkSubscript(index >= 0 && index < m_state->cols());
    return *m_state->columns[static_cast<size_t>(index)];
}

void XGrid::setInner(const QString& name, quint32 value) {
    if (name == QLatin1String("FocusRect"))
        m_state->focusRect = static_cast<int>(value);
    else if (name == QLatin1String("HighLight"))
        m_state->highLight = static_cast<int>(value);
    else if (name == QLatin1String("FixedCols"))
        m_state->fixedCols = static_cast<int>(value);
    else if (name == QLatin1String("CellBackColor"))
        m_state->cellBackColors.insert({m_state->row, m_state->col}, colorFromNumber(value));
    else
        quorvane::raise(ErrorInvalidCall);
    refresh();
}

quint32 XGrid::firstColor() const {
    return colorNumber(m_state->lineColor);
}

void XGrid::setFirstColor(quint32 color) {
    m_state->lineColor = colorFromNumber(color);
    refresh();
}

quint32 XGrid::fourthColor() const {
    return colorNumber(m_state->selectionColor);
}

void XGrid::setFourthColor(quint32 color) {
    m_state->selectionColor = colorFromNumber(color);
    refresh();
}

void XGrid::refreshRow(int row) {
    if (m_view)
        m_view->repaintRow(row);
}

void XGrid::refresh() {
    if (!m_view)
        return;
    m_view->viewport()->update();
    m_view->horizontalHeader()->viewport()->update();
}

bool XGrid::isEditing() const {
    return m_view && m_view->editing().isActive();
}

bool XGrid::commitEdit() {
    return !m_view || m_view->editing().commit();
}

void XGrid::columnDragged(int column, int width) {
    {
        const QScopedValueRollback dragging(m_draggingColumn, true);
        m_state->columns[static_cast<size_t>(column)]->setWidth(m_view->twips(width));
    }
    m_view->captionsChanged();
}

void XGrid::changeEvent(QEvent* event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        refresh();
}

void XGrid::showEvent(QShowEvent* event) {
    QFrame::showEvent(event);
    view().show(); // one made just now is not among the children that show with the grid
    if (QWindow* inWindow = window()->windowHandle())
        connect(inWindow, &QWindow::screenChanged, m_view, &XGridView::layOut, Qt::UniqueConnection);
}

} // namespace quorvane
