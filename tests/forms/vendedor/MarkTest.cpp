// Marking rows with the mouse and with the keyboard.
#include "tests/forms/vendedor/VendedorTest.h"
#include <QAccessible>
#include <QHeaderView>

namespace dalvora::test {

class SalespeopleMarks : public VendedorTest {
protected:
    void SetUp() override { openSilently(); }
    void selectFirstRows(int rows) {
        grid().setFocus();
        grid().setRow(1);
        for (int i = 1; i < rows; ++i)
            press(Qt::Key_Down, Qt::ShiftModifier);
    }
};

TEST_P(SalespeopleMarks, AClickMarksAndAnotherUnmarks) {
    clickCell(2, SalespeopleList::Codigo);
    EXPECT_EQ(marks(), u"-*---"_s);
    EXPECT_EQ(form->list().markedCount(), 1);
    EXPECT_EQ(grid().row(), 2);
    clickCell(2, SalespeopleList::Comision);
    EXPECT_EQ(marks(), u"-----"_s);
    EXPECT_EQ(form->list().markedCount(), 0);
    clickButton(controls().CmdAsignar);
    expectTold({{u"Debe seleccionar vendedores para asignarles la comisión"_s, 64}});
    EXPECT_EQ(statements, QStringList());
}

TEST_P(SalespeopleMarks, AClickOnTheMarkColumnItselfMarksToo) {
    clickCell(3, SalespeopleList::Mark);
    EXPECT_EQ(marks(), u"--*--"_s);
    EXPECT_EQ(grid().row(), 3);
    EXPECT_EQ(grid().col(), SalespeopleList::Codigo) << "the cursor never stands in a fixed column";
}

TEST_P(SalespeopleMarks, TheCurrentColumnStays) {
    clickCell(3, SalespeopleList::Comision);
    EXPECT_EQ(grid().col(), SalespeopleList::Comision);
}

TEST_P(SalespeopleMarks, ADoubleClickIsOneClick) {
    QWidget* viewport = grid().findChild<QTableView*>()->viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, cell(2, 1).center());
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, cell(2, 1).center());
    EXPECT_EQ(marks(), u"-*---"_s);
}

TEST_P(SalespeopleMarks, AClickOnTheCaptionRowDoesNothing) {
    auto* header = grid().findChild<QTableView*>()->horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(60, 5));
    EXPECT_EQ(marks(), u"-----"_s);
    EXPECT_EQ(form->list().markedCount(), 0);
}

TEST_P(SalespeopleMarks, AClickBelowTheRowsDoesNothing) {
    QWidget* viewport = grid().findChild<QTableView*>()->viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, cell(5, 1).center() + QPoint(0, 60));
    EXPECT_EQ(marks(), u"-----"_s);
}

TEST_P(SalespeopleMarks, OtherButtonsAndShiftDoNotMark) {
    QWidget* viewport = grid().findChild<QTableView*>()->viewport();
    QTest::mouseClick(viewport, Qt::RightButton, {}, cell(2, 1).center());
    clickCell(4, 1, Qt::ShiftModifier);
    EXPECT_EQ(marks(), u"-----"_s);
    EXPECT_EQ(grid().rowSel(), 2);
}

TEST_P(SalespeopleMarks, SpaceMarksTheCurrentRow) {
    grid().setFocus();
    press(Qt::Key_Down);
    press(Qt::Key_Space);
    EXPECT_EQ(marks(), u"-*---"_s);
    press(Qt::Key_Space);
    EXPECT_EQ(marks(), u"-----"_s);
    EXPECT_EQ(form->list().markedCount(), 0);
}

TEST_P(SalespeopleMarks, RangeInvertsEachRowOfTheSelection) {
    clickCell(2, 1);
    selectFirstRows(3);
    clickButton(controls().cmdSeleccinar);
    EXPECT_EQ(marks(), u"*-*--"_s);
    EXPECT_EQ(form->list().markedCount(), 2);
    EXPECT_EQ(grid().row(), 3);
    EXPECT_EQ(grid().rowSel(), 3) << "the selection is over";
    EXPECT_EQ(panel(panelMensaje), u"Comisión: "_s);
}

TEST_P(SalespeopleMarks, RangeWorksFromTheMenuAndItsKeys) {
    selectFirstRows(2);
    controls().menuItem(u"It_Sel").trigger();
    EXPECT_EQ(marks(), u"**---"_s);
    selectFirstRows(4);
    press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(marks(), u"--**-"_s);
}

TEST_P(SalespeopleMarks, RangeWithoutASelectionTogglesTheCurrentRow) {
    grid().setRow(4);
    clickButton(controls().cmdSeleccinar);
    EXPECT_EQ(marks(), u"---*-"_s);
}

TEST_P(SalespeopleMarks, ASelectionMadeUpwardsIsARangeToo) {
    grid().setFocus();
    grid().setRow(5);
    press(Qt::Key_Up, Qt::ShiftModifier);
    press(Qt::Key_Up, Qt::ShiftModifier);
    clickButton(controls().cmdSeleccinar);
    EXPECT_EQ(marks(), u"--***"_s);
}

TEST_P(SalespeopleMarks, DraggingSelectsARangeWithoutMarking) {
    dragCells(2, 4);
    EXPECT_EQ(marks(), u"-----"_s);
    clickButton(controls().cmdSeleccinar);
    EXPECT_EQ(marks(), u"-***-"_s);
}

TEST_P(SalespeopleMarks, SelectingEverythingIsARangeOverAllRows) {
    grid().setFocus();
    grid().setRow(3);
    press(Qt::Key_A, Qt::ControlModifier);
    clickButton(controls().cmdSeleccinar);
    EXPECT_EQ(marks(), u"*****"_s);
}

TEST_P(SalespeopleMarks, RangeOverAnEmptyListDoesNothing) {
    filter(u"zz"_s);
    ASSERT_EQ(grid().rows(), 1);
    clickButton(controls().cmdSeleccinar);
    EXPECT_EQ(form->list().markedCount(), 0);
    expectSilence();
}

TEST_P(SalespeopleMarks, ARowThatSaysErrorIsRefused) {
    execute(u"update gen_tabcod set descripcion = 'Error de carga' where empresa = '01' and codigo = '12'"_s);
    form->Refresh();
    clickCell(2, 1);
    expectTold({{u"Cliente no válido"_s, 16}});
    EXPECT_EQ(marks(), u"-----"_s);
    EXPECT_EQ(form->list().markedCount(), 0);
}

TEST_P(SalespeopleMarks, ReadingAgainTakesTheMarksAway) {
    clickCell(2, 1);
    controls().menuItem(u"mnuRefrescar").trigger();
    EXPECT_EQ(marks(), u"-----"_s);
    EXPECT_EQ(form->list().markedCount(), 0);
}

TEST_P(SalespeopleMarks, TheMarkIsSeenInItsCell) {
    clickCell(2, 1);
    grid().setRow(5);
    const QImage picture = grid().findChild<QTableView*>()->viewport()->grab().toImage();
    const auto greenPixels = [&](const QRect& area) {
        int count = 0;
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x) {
                const QColor pixel = picture.pixelColor(x, y);
                count += pixel.green() > pixel.red() + 40 && pixel.green() > pixel.blue() + 40;
            }
        return count;
    };
    EXPECT_GT(greenPixels(cell(2, 0)), 20);
    EXPECT_EQ(greenPixels(cell(1, 0)), 0);
}

TEST_P(SalespeopleMarks, TheMarkIsHeard) {
    clickCell(2, 1);
    auto* table = QAccessible::queryAccessibleInterface(grid().findChild<QTableView*>());
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->child(4)->text(QAccessible::Name), u"Marcado"_s);
    EXPECT_EQ(table->child(0)->text(QAccessible::Name), QString());
}

TEST_P(SalespeopleMarks, NothingCanBeTypedIntoTheGrid) {
    grid().setFocus();
    press(Qt::Key_X);
    press(Qt::Key_F2);
    EXPECT_FALSE(grid().isEditing());
}

INSTANTIATE_TEST_SUITE_P(Engines, SalespeopleMarks, testing::ValuesIn(windowEngines), engineName);

} // namespace dalvora::test
