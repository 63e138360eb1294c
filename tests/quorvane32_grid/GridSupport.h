#pragma once

#include "platform/quorvane32/grid/XGrid.h"
#include <QLineEdit>
#include <QTableView>
#include <QWidget>
#include <functional>
#include <gtest/gtest.h>

/// A client with real lines, as a form has them, that also writes down what the grid told it.
class LinesClient : public quorvane::XGridClient {
public:
    explicit LinesClient(quorvane::XGrid& grid) : m_grid(grid) {}

    void cellText(int row, int column, QString& text) override;
    bool cellTextChanged(int& row, int& column, QString& text) override;
    void newRowRequest() override;
    void keyDown(int& keyCode, Qt::KeyboardModifiers modifiers) override;
    bool cellButton() override;
    void beforeEdit(bool& cancel) override;

    void addLine(const QStringList& cells) { lines += cells; }
    bool lastLineIsEmpty() const { return lines.isEmpty() || lines.last().join(QString()).isEmpty(); }

    QList<QStringList> lines;
    QStringList told; ///< "edit 1,2", "set 1,2=text", "new", "key 46", "button 1,2", in order
    int textRequests = 0;
    QString refusedText;     ///< a text that is refused when entered
    QPair<int, int> locked;  ///< a cell whose edit is cancelled
    QPair<int, int> lastKey; ///< code and modifiers
    bool swallowKeys = false;
    std::function<void()> onButton;
    /// What the button tells the grid: that it stored a value.
    bool buttonStores = false;
    std::function<void()> onRefusal;
    std::function<void()> onBeforeEdit;

private:
    quorvane::XGrid& m_grid;
};

/// A shown window with a grid of the columns 0 hidden, 1 list, 2 text with "?", 3 read-only, 4 number, and a
/// line edit behind it.
class GridTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    void fill(int lines, bool emptyLine = true);
    void at(int row, int col);
    /// Sends to whatever has the focus, as the keyboard does.
    void press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier);
    void type(const QString& text);
    void click(int row, int col);
    void doubleClick(int row, int col);
    void clickButtonOf(int row, int col);
    QRect cell(int row, int col) const;
    QWidget* entry() const;
    QString entryText() const;

    QWidget window;
    quorvane::XGrid* grid = nullptr;
    QTableView* view = nullptr;
    QLineEdit* other = nullptr;
    std::unique_ptr<LinesClient> client;
};
