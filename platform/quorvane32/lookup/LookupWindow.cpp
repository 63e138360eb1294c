#include "platform/quorvane32/lookup/LookupWindow.h"
#include "platform/quorvane32/lookup/FilterHeader.h"
#include "platform/quorvane32/lookup/LookupModel.h"
#include <QApplication>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

namespace quorvane {

namespace {

/// What is read before the window shows: a screenful, whatever the machine.
constexpr int firstRows = 200;
constexpr int firstMilliseconds = 40;
/// A slice between two events: short enough that typing never waits noticeably.
constexpr int sliceRows = 5000;
constexpr int sliceMilliseconds = 8;

constexpr int fewestVisibleRows = 15;

/// A table whose current row looks chosen while a filter has the focus: the arrows move it then, too.
class LookupTable : public QTableView {
public:
    using QTableView::QTableView;

protected:
    void initViewItemOption(QStyleOptionViewItem* option) const override {
        QTableView::initViewItemOption(option);
        option->state.setFlag(QStyle::State_Active, isActiveWindow());
    }
};

bool movesInList(const QKeyEvent& key) {
    switch (key.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
        return key.modifiers() & Qt::ControlModifier;
    default:
        return false;
    }
}

bool isTyped(const QKeyEvent& key) {
    const QString text = key.text();
    const bool command = key.modifiers() & (Qt::ControlModifier | Qt::MetaModifier);
    return key.key() == Qt::Key_Backspace || (!command && !text.isEmpty() && text.at(0).isPrint());
}

} // namespace

LookupWindow::LookupWindow(const QueryDefinition& query, Recordset recordset,
                           const RegionalSettings& regional, QWidget* parent)
    : QDialog(parent)
    , m_emptyText(query.emptyText)
    , m_recordset(std::move(recordset))
    , m_regional(regional)
    , m_rows(query, regional) {
    setObjectName(QStringLiteral("LookupWindow"));
    m_rows.bind(m_recordset);
    buildTable();
    buildWindow(query.title);
    fetchSlice(firstMilliseconds, firstRows);
    setColumnWidths();
    rowsArrived();
    m_reader.setInterval(0);
    connect(&m_reader, &QTimer::timeout, this, &LookupWindow::readOn);
    m_reader.start();
    moveFilter(0);
}

LookupWindow::~LookupWindow() {
    // Table and edits still send events while they end, when there is no header any more to ask.
    m_table->removeEventFilter(this);
    for (int column = 0; column < m_header->filterCount(); ++column)
        m_header->filter(column)->removeEventFilter(this);
    // The table and its model look at the rows, which end before the children do.
    delete m_table;
    delete m_model;
}

void LookupWindow::buildTable() {
    m_model = new LookupModel(m_rows, this);
    m_table = new LookupTable(this);
    m_table->setObjectName(QStringLiteral("lstFilas"));
    m_table->setAccessibleName(QStringLiteral("Filas encontradas"));
    m_header = new FilterHeader(m_table);
    m_table->setHorizontalHeader(m_header);
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setAlternatingRowColors(true);
    m_table->setShowGrid(false);
    m_table->setWordWrap(false);
    m_table->setTabKeyNavigation(false);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    m_table->installEventFilter(this);

    QStringList captions;
    for (int column = 0; column < m_rows.columnCount(); ++column)
        captions += m_rows.column(column).caption;
    m_header->createFilters(captions);
    for (int column = 0; column < m_header->filterCount(); ++column)
        m_header->filter(column)->installEventFilter(this);
    connect(m_header, &FilterHeader::filterEdited, this, &LookupWindow::filterBy);
    connect(m_header, &QHeaderView::sortIndicatorChanged, this, &LookupWindow::sortBy);
    connect(m_table, &QTableView::doubleClicked, this, &LookupWindow::accept);
}

int LookupWindow::columnWidth(int column) const {
    constexpr int margins = 12;
    const QFontMetrics metrics = m_table->fontMetrics();
    const int declared = m_rows.column(column).width * metrics.horizontalAdvance(u'0');
    // Never narrower than the caption with its sort arrow; wider than declared where the first rows need it.
    int needed = std::max(declared, m_header->sectionSizeHint(column));
    for (LookupRows::Row row = 0; row < std::min(m_rows.rowCount(), firstRows); ++row)
        needed =
            std::max(needed, std::min(metrics.horizontalAdvance(m_rows.text(row, column)), 2 * declared));
    return needed + margins;
}

void LookupWindow::setColumnWidths() {
    int total = m_table->verticalScrollBar()->sizeHint().width() + 2 * m_table->frameWidth();
    for (int column = 0; column < m_rows.columnCount(); ++column) {
        const int width = columnWidth(column);
        m_table->setColumnWidth(column, width);
        total += width;
    }
    m_header->setStretchLastSection(true);
    const int rows = fewestVisibleRows * m_table->verticalHeader()->defaultSectionSize();
    m_table->setMinimumSize(240, m_header->sizeHint().height() + rows / 3);
    const QSize wanted(total + 24, m_header->sizeHint().height() + rows + 110);
    resize(wanted.expandedTo({480, 0}).boundedTo(screen()->availableGeometry().size() * 0.9));
}

void LookupWindow::buildLabels() {
    m_empty = new QLabel(m_table->viewport());
    m_empty->setObjectName(QStringLiteral("lblVacio"));
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_empty->setForegroundRole(QPalette::PlaceholderText);
    m_empty->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* centre = new QVBoxLayout(m_table->viewport());
    centre->addWidget(m_empty);

    m_count = new QLabel(this);
    m_count->setObjectName(QStringLiteral("lblCuenta"));
    m_notice = new QLabel(this);
    m_notice->setObjectName(QStringLiteral("lblAviso"));
    m_notice->setWordWrap(true);
    QFont strong = m_notice->font();
    strong.setBold(true);
    m_notice->setFont(strong);
    m_notice->hide();
}

QDialogButtonBox* LookupWindow::buildButtons() {
    auto* buttons = new QDialogButtonBox(this);
    m_choose = buttons->addButton(QStringLiteral("Aceptar"), QDialogButtonBox::AcceptRole);
    m_choose->setObjectName(QStringLiteral("coAceptar"));
    m_choose->setDefault(true);
    auto* cancel = buttons->addButton(QStringLiteral("Cancelar"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("coCancelar"));
    cancel->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &LookupWindow::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &LookupWindow::reject);

    for (int column = 1; column < m_header->filterCount(); ++column)
        setTabOrder(m_header->filter(column - 1), m_header->filter(column));
    setTabOrder(m_header->filter(m_header->filterCount() - 1), m_table);
    setTabOrder(m_table, m_choose);
    setTabOrder(m_choose, cancel);
    return buttons;
}

void LookupWindow::buildWindow(const QString& title) {
    setWindowTitle(title);
    setSizeGripEnabled(true);
    buildLabels();
    auto* hint = new QLabel(
        QStringLiteral("Escriba para filtrar. Tab: otra columna. F6: ordenar. Intro: elegir. Esc: cancelar."),
        this);
    hint->setWordWrap(true);
    hint->setForegroundRole(QPalette::PlaceholderText);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(m_count, 1);
    bottom->addWidget(buildButtons());
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_notice);
    layout->addLayout(bottom);
}

void LookupWindow::fetchSlice(int milliseconds, int mostRows) {
    QElapsedTimer clock;
    clock.start();
    for (int read = 0; read < mostRows && !m_recordset.eof(); ++read) {
        m_rows.append(m_recordset);
        m_recordset.moveNext();
        // Asking the clock for every row would cost more than reading it.
        if (read % 32 == 31 && clock.hasExpired(milliseconds))
            break;
    }
}

void LookupWindow::readOn() {
    try {
        fetchSlice(sliceMilliseconds, sliceRows);
    } catch (...) {
        // No exception may pass through the event loop: the caller finds it when the window has closed.
        m_error = std::current_exception();
        m_reader.stop();
        reject();
        return;
    }
    if (m_recordset.eof()) {
        m_reader.stop();
        m_recordset.close();
        // Rows that came after a click on a caption stand at the end: now all can be ordered.
        if (m_header->sortIndicatorSection() >= 0)
            sortBy(m_header->sortIndicatorSection(), m_header->sortIndicatorOrder());
    }
    rowsArrived();
}

void LookupWindow::rowsArrived() {
    m_model->rowsAppended();
    if (!m_table->currentIndex().isValid())
        makeCurrent(0);
    updateTexts();
}

template<class Change> void LookupWindow::keepingCurrentRow(Change&& change) {
    const QModelIndex before = m_table->currentIndex();
    const LookupRows::Row row = before.isValid() ? m_rows.rowAt(before.row()) : -1;
    change();
    makeCurrent(std::max(row < 0 ? 0 : m_rows.visiblePosition(row), 0));
    updateTexts();
}

void LookupWindow::filterBy(int column, const QString& text) {
    showNotice({});
    keepingCurrentRow([&] { m_model->setFilter(column, text); });
}

void LookupWindow::sortBy(int column, Qt::SortOrder order) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    keepingCurrentRow([&] { m_model->sort(column, order); });
    QApplication::restoreOverrideCursor();
}

void LookupWindow::sortByFilter(const QObject* edit) {
    const int column = std::max(m_header->columnOf(edit), 0);
    const bool again =
        m_header->sortIndicatorSection() == column && m_header->sortIndicatorOrder() == Qt::AscendingOrder;
    m_header->setSortIndicator(column, again ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void LookupWindow::makeCurrent(int visible) {
    const int column = std::max(m_table->currentIndex().column(), 0);
    const QModelIndex index = m_model->index(visible, column);
    if (!index.isValid())
        return;
    m_table->setCurrentIndex(index);
    m_table->scrollTo(index);
}

void LookupWindow::updateTexts() {
    const bool reading = !m_recordset.eof();
    const auto number = [this](int count) { return m_regional.groupedText(count, 0); };
    const auto rows = [&](int count) {
        return number(count) + (count == 1 ? QStringLiteral(" fila") : QStringLiteral(" filas"));
    };
    QString text = rows(m_rows.rowCount());
    if (m_rows.isFiltered())
        text = QStringLiteral("%1 de %2").arg(number(m_rows.visibleCount()), text);
    m_count->setText(reading ? text + QStringLiteral(" (leyendo…)") : text);

    if (m_rows.rowCount() > 0)
        m_empty->setText(QStringLiteral("Ninguna fila contiene lo que se busca."));
    else
        m_empty->setText(m_emptyText.isEmpty() ? QStringLiteral("No hay datos para mostrar.") : m_emptyText);
    m_empty->setVisible(m_rows.visibleCount() == 0 && !reading);
    m_choose->setEnabled(m_rows.visibleCount() > 0);
}

void LookupWindow::showNotice(const QString& text) {
    m_notice->setText(text);
    m_notice->setVisible(!text.isEmpty());
}

void LookupWindow::accept() {
    const QModelIndex index = m_table->currentIndex();
    if (!index.isValid())
        return;
    QStringList values = m_rows.returnedValues(m_rows.rowAt(index.row()));
    // "#" separates the values that go back. In a code it would choose another code without a word, so such a
    // row is refused; in the values behind the code, which the caller reads again, it becomes a blank.
    if (values.first().contains(u'#')) {
        showNotice(QStringLiteral("El código «%1» contiene el signo «#» y no se puede elegir aquí: "
                                  "escríbalo en el campo.")
                       .arg(values.first()));
        return;
    }
    m_chosen = values.replaceInStrings(QStringLiteral("#"), QStringLiteral(" ")).join(u'#');
    QDialog::accept();
}

bool LookupWindow::eventFilter(QObject* watched, QEvent* event) {
    const int column = m_header->columnOf(watched);
    if (event->type() == QEvent::FocusIn && column >= 0) {
        m_lastFilter = column;
    } else if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (column >= 0 ? filterKey(watched, key) : watched == m_table && listKey(key))
            return true;
    }
    return QDialog::eventFilter(watched, event);
}

bool LookupWindow::filterKey(QObject* edit, QKeyEvent* key) {
    if (movesInList(*key)) {
        QApplication::sendEvent(m_table, key);
        return true;
    }
    if (key->key() == Qt::Key_F6) {
        sortByFilter(edit);
        return true;
    }
    const int column = m_header->columnOf(edit);
    if (key->key() == Qt::Key_Tab && column + 1 < m_header->filterCount()) {
        moveFilter(column + 1);
        return true;
    }
    if (key->key() == Qt::Key_Backtab && column > 0) {
        moveFilter(column - 1);
        return true;
    }
    return false;
}

bool LookupWindow::listKey(QKeyEvent* key) {
    QLineEdit* edit = m_header->filter(m_lastFilter);
    if (key->key() == Qt::Key_F6) {
        sortByFilter(edit);
        return true;
    }
    if (!isTyped(*key))
        return false;
    edit->setFocus(Qt::OtherFocusReason);
    edit->end(false);
    QApplication::sendEvent(edit, key);
    return true;
}

void LookupWindow::moveFilter(int column) {
    QLineEdit* edit = m_header->filter(column);
    edit->setFocus(Qt::TabFocusReason);
    edit->selectAll();
    // A filter that is scrolled out of sight comes into view with its column.
    const QModelIndex current = m_table->currentIndex();
    if (current.isValid())
        m_table->setCurrentIndex(current.siblingAtColumn(column));
}

} // namespace quorvane
