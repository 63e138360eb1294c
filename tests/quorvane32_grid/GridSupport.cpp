#include "tests/quorvane32_grid/GridSupport.h"
#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

using quorvane::XGrid;
using quorvane::XGridColumn;

namespace {

constexpr int columnCount = 5;

QString place(int row, int col) {
    return QStringLiteral("%1,%2").arg(row).arg(col);
}

} // namespace

void LinesClient::cellText(int row, int column, QString& text) {
    ++textRequests;
    text = lines.value(row - 1).value(column);
}

bool LinesClient::cellTextChanged(int& row, int& column, QString& text) {
    told += QStringLiteral("set %1=%2").arg(place(row, column), text);
    if (!refusedText.isNull() && text == refusedText) {
        text = lines[row - 1][column];
        if (onRefusal)
            onRefusal();
        return false;
    }
    lines[row - 1][column] = text;
    return true;
}

void LinesClient::newRowRequest() {
    told += QStringLiteral("new");
    if (lastLineIsEmpty())
        return;
    lines += QStringList(columnCount);
    m_grid.setRows(static_cast<int>(lines.size()) + 1);
}

void LinesClient::keyDown(int& keyCode, Qt::KeyboardModifiers modifiers) {
    told += QStringLiteral("key %1").arg(keyCode);
    lastKey = {keyCode, static_cast<int>(modifiers)};
    if (swallowKeys)
        keyCode = 0;
}

bool LinesClient::cellButton() {
    told += QStringLiteral("button ") + place(m_grid.row(), m_grid.col());
    if (onButton)
        onButton();
    return buttonStores;
}

void LinesClient::beforeEdit(bool& cancel) {
    told += QStringLiteral("edit ") + place(m_grid.row(), m_grid.col());
    if (onBeforeEdit)
        onBeforeEdit();
    cancel = locked == qMakePair(m_grid.row(), m_grid.col());
}

void GridTest::SetUp() {
    auto* layout = new QVBoxLayout(&window);
    grid = new XGrid(&window);
    other = new QLineEdit(&window);
    layout->addWidget(grid);
    layout->addWidget(other);
    client = std::make_unique<LinesClient>(*grid);
    grid->setClient(client.get());
    grid->setCols(columnCount);
    grid->column(0).setWidth(0);
    grid->column(1).setKind(XGridColumn::List);
    grid->column(1).setListSize(3);
    grid->column(1).setListItem(0, QStringLiteral("Todos"));
    grid->column(1).setListItem(1, QStringLiteral("Familia"));
    grid->column(1).setListItem(2, QStringLiteral("Producto"));
    grid->column(2).setButtonText(QStringLiteral("?"));
    grid->column(3).setReadOnly(true);
    grid->column(4).setAlignment(XGridColumn::RightCentre);
    grid->setInner(QStringLiteral("HighLight"), 2);
    window.resize(600, 400);
    window.show();
    QApplication::setActiveWindow(&window);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    view = grid->findChild<QTableView*>();
    grid->setFocus();
}

void GridTest::TearDown() {
    grid->setClient(nullptr);
}

void GridTest::fill(int lines, bool emptyLine) {
    client->lines.clear();
    for (int r = 1; r <= lines; ++r)
        client->addLine({QString(), QStringLiteral("Familia"), QStringLiteral("F%1").arg(r),
                         QStringLiteral("Familia número %1").arg(r), QString::number(r)});
    if (emptyLine)
        client->addLine(QStringList(columnCount));
    grid->setRows(static_cast<int>(client->lines.size()) + 1);
    grid->refresh();
}

void GridTest::at(int row, int col) {
    grid->setRow(row);
    grid->setCol(col);
}

void GridTest::press(Qt::Key key, Qt::KeyboardModifiers held) {
    QTest::keyClick(QApplication::focusWidget(), key, held);
}

void GridTest::type(const QString& text) {
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(c),
                            Qt::NoModifier);
}

QRect GridTest::cell(int row, int col) const {
    return view->visualRect(view->model()->index(row - 1, col));
}

void GridTest::click(int row, int col) {
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, cell(row, col).center() - QPoint(10, 0));
}

void GridTest::doubleClick(int row, int col) {
    click(row, col);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, cell(row, col).center() - QPoint(10, 0));
}

void GridTest::clickButtonOf(int row, int col) {
    const QRect box = cell(row, col);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      QPoint(box.right() - box.height() / 2, box.center().y()));
}

QWidget* GridTest::entry() const {
    QWidget* focused = QApplication::focusWidget();
    return focused && view->viewport()->isAncestorOf(focused) ? focused : nullptr;
}

QString GridTest::entryText() const {
    if (const auto* line = qobject_cast<QLineEdit*>(entry()))
        return line->text();
    if (const auto* list = qobject_cast<QComboBox*>(entry()))
        return list->currentText();
    return QStringLiteral("(no entry)");
}
