// How the form looks and behaves as a window.
#include "tests/forms/vendedor/VendedorTest.h"
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>

namespace dalvora::test {

class SalespeopleForm : public VendedorTest {};

TEST_P(SalespeopleForm, ListsTheCompanysSalespeopleWhenItOpens) {
    open();
    expectSilence();
    EXPECT_EQ(form->windowTitle(), u"Asignación de Comisiones a Vendedores"_s);
    EXPECT_EQ(shown(), (QStringList{u"11|Ana Núñez|VIEJA"_s, u"12|Luis Díaz|"_s, u"123|Eva Ríos|"_s,
                                    u"14|Juan O'Higgins|"_s, u"15|Rosa Paz|VIEJA"_s}));
    EXPECT_EQ(grid().row(), 1);
    EXPECT_FALSE(form->isModal());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(session->audits.size(), 0U) << "the list leaves no trace in the audit trail";
}

TEST_P(SalespeopleForm, StatusPanelsShowTheSchemeAndLeaveTheCompanyBlank) {
    loadScheme(u"C1"_s);
    open();
    EXPECT_EQ(panel(panelMensaje), u"Comisión: C1"_s);
    EXPECT_EQ(panel(panelPeriodo), u"Periodo"_s);
    EXPECT_EQ(panel(panelEmpresa), QString());
}

TEST_P(SalespeopleForm, ShowsTheSchemeThatTheMainFormHasWhenComingBack) {
    loadScheme(u"C1"_s);
    open();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    loadScheme(u"C2"_s);
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    EXPECT_EQ(panel(panelMensaje), u"Comisión: C2"_s);
}

TEST_P(SalespeopleForm, ControlsHaveTheirNames) {
    for (const char* name :
         {"frmFiltro", "Label3", "TxtCodigo", "XGrid", "picYes", "CmdAsignar", "cmdSeleccinar", "SB",
          "txtDDE", "L_Sec", "List1", "List2", "List3", "Ls_CodOri", "Ls_Origen", "Ls_tipcom", "Ls_Codtip"})
        EXPECT_NE(form->findChild<QWidget*>(QLatin1String(name)), nullptr) << name;
    EXPECT_EQ(controls().frmFiltro->title(), u"Filtros"_s);
    EXPECT_EQ(controls().Label3->text(), u"Vendedor"_s);
    EXPECT_EQ(controls().CmdAsignar->text(), u"A&signar"_s);
    EXPECT_EQ(controls().cmdSeleccinar->text(), u"&Seleccionar"_s);
}

TEST_P(SalespeopleForm, UnusedControlsStayHidden) {
    open();
    for (const char* name : {"picYes", "txtDDE", "L_Sec", "List1", "List2", "List3", "Ls_CodOri", "Ls_Origen",
                             "Ls_tipcom", "Ls_Codtip"})
        EXPECT_FALSE(form->findChild<QWidget*>(QLatin1String(name))->isVisible()) << name;
    EXPECT_FALSE(controls().picYes->pixmap().isNull());
}

TEST_P(SalespeopleForm, MenuReadsLikeTheManual) {
    const QList<QAction*> titles = form->menuBar()->actions();
    ASSERT_EQ(titles.size(), 1);
    EXPECT_EQ(titles[0]->text(), u"&Administración"_s);
    QStringList items;
    for (const QAction* item : titles[0]->menu()->actions())
        items << item->objectName() + u' ' + (item->isSeparator() ? u"-"_s : item->text());
    EXPECT_EQ(items, (QStringList{u"mnuRefrescar &Refrescar"_s, u"It_Sel Se&leccionar"_s, u"mnuRaya5 -"_s,
                                  u"It_Integra A&signar"_s, u"sale &Salir"_s}));
}

TEST_P(SalespeopleForm, GridHasItsColumns) {
    open();
    ASSERT_EQ(grid().cols(), 4);
    QStringList captions;
    for (int column = 0; column < 4; ++column)
        captions << grid().text(0, column);
    EXPECT_EQ(captions, (QStringList{u""_s, u"Código"_s, u"Descripcion"_s, u"Comisión"_s}));
    EXPECT_EQ(grid().column(0).width(), 200);
    EXPECT_EQ(grid().column(1).width(), 2500);
    EXPECT_EQ(grid().column(3).width(), 2000);
    EXPECT_EQ(grid().column(1).alignment(), 7);
    EXPECT_EQ(grid().column(2).alignment(), 7);
    EXPECT_EQ(grid().fourthColor(), 0xFFCECEU);
}

TEST_P(SalespeopleForm, CaptionRowIsTinted) {
    open();
    auto* header = grid().findChild<QTableView*>()->horizontalHeader();
    const QImage picture = header->viewport()->grab().toImage();
    for (int column = 0; column < 4; ++column)
        EXPECT_EQ(picture.pixelColor(header->sectionViewportPosition(column) + 1, 1),
                  QColor(0xE0, 0xE0, 0xFF));
}

TEST_P(SalespeopleForm, ControlsFollowTheSizeOfTheForm) {
    open();
    form->resize(1000, 700);
    QCoreApplication::processEvents();
    const int frame = 1000 - controls().cmdSeleccinar->width() - 20;
    EXPECT_EQ(controls().frmFiltro->width(), frame);
    EXPECT_EQ(grid().width(), frame);
    EXPECT_EQ(grid().height(), 700 - 160);
    EXPECT_EQ(controls().CmdAsignar->x(), 1000 - controls().CmdAsignar->width() - 10);
    EXPECT_EQ(controls().cmdSeleccinar->x(), 1000 - controls().cmdSeleccinar->width() - 10);
    EXPECT_EQ(grid().column(2).width(), frame * 15 - (200 + 2500 + 2000) - 500);
}

TEST_P(SalespeopleForm, ControlsDoNotOverlap) {
    open();
    for (const QSize size : {QSize(600, 400), QSize(760, 520), QSize(1400, 900)}) {
        form->resize(size);
        QCoreApplication::processEvents();
        EXPECT_LT(controls().frmFiltro->geometry().bottom(), grid().y());
        EXPECT_LT(grid().geometry().right(), controls().CmdAsignar->x());
        EXPECT_LT(controls().cmdSeleccinar->geometry().bottom(), controls().CmdAsignar->y());
        EXPECT_LE(grid().geometry().bottom(), controls().client->height());
        EXPECT_LE(controls().CmdAsignar->geometry().right(), controls().client->width());
    }
}

TEST_P(SalespeopleForm, IsNeverSmallerThanItsLeastSize) {
    open();
    form->resize(500, 300);
    EXPECT_TRUE(QTest::qWaitFor([this] { return form->size() == QSize(600, 400); }));
    form->resize(800, 300);
    EXPECT_TRUE(QTest::qWaitFor([this] { return form->size() == QSize(800, 400); }));
}

TEST_P(SalespeopleForm, ClosingUnloadsAndOpeningLoadsAgain) {
    open();
    filter(u"12"_s);
    clickCell(1, 1);
    controls().menuItem(u"sale").trigger();
    EXPECT_FALSE(form->isVisible());
    open();
    EXPECT_EQ(controls().TxtCodigo->text(), QString());
    EXPECT_EQ(marks(), u"-----"_s);
    expectSilence();
    clickButton(controls().CmdAsignar);
    expectTold({{u"Debe seleccionar vendedores para asignarles la comisión"_s, 64}});
}

TEST_P(SalespeopleForm, OpeningItAgainWhileOpenKeepsTheMarks) {
    openSilently();
    clickCell(2, 1);
    form->open();
    EXPECT_EQ(marks(), u"-*---"_s);
    EXPECT_EQ(statements, QStringList());
}

TEST_P(SalespeopleForm, RefreshingShowsWhatOthersChanged) {
    openSilently();
    execute(u"update gen_tabcod set descripcion = 'Otra' where empresa = '01' and codigo = '11'"_s);
    controls().menuItem(u"mnuRefrescar").trigger();
    EXPECT_EQ(grid().text(1, 2), u"Otra"_s);
    execute(u"update gen_tabcod set descripcion = 'Tercera' where empresa = '01' and codigo = '11'"_s);
    grid().setFocus();
    press(Qt::Key_F5);
    EXPECT_EQ(grid().text(1, 2), u"Tercera"_s);
    execute(u"update gen_tabcod set descripcion = 'Cuarta' where empresa = '01' and codigo = '11'"_s);
    controls().TxtCodigo->setFocus();
    press(Qt::Key_F5);
    EXPECT_EQ(grid().text(1, 2), u"Cuarta"_s);
    form->Refresh();
    EXPECT_EQ(statements.size(), 4);
}

TEST_P(SalespeopleForm, WithoutReadPermissionTheGridKeepsWhatItShowed) {
    openSilently();
    clickCell(1, 1);
    for (const QString& rights : {u"rWXD"_s, u""_s, u" R"_s, u"WR"_s}) {
        session->rights = rights;
        controls().menuItem(u"mnuRefrescar").trigger();
        expectTold({{u"Usuario No Tiene Permiso de Lectura"_s, 16}});
        EXPECT_EQ(statements, QStringList());
        EXPECT_EQ(marks(), u"*----"_s);
    }
    clickButton(controls().CmdAsignar);
    expectTold({{u"Debe seleccionar vendedores para asignarles la comisión"_s, 64}});
}

TEST_P(SalespeopleForm, WithoutReadPermissionItOpensEmpty) {
    session->rights = u"r"_s;
    open();
    expectTold({{u"Usuario No Tiene Permiso de Lectura"_s, 16}});
    EXPECT_EQ(grid().rows(), 1);
    EXPECT_EQ(panel(panelMensaje), u"Comisión: "_s);
}

TEST_P(SalespeopleForm, AnErrorOfTheSessionIsTold) {
    openSilently();
    session->rightsError = quorvane::RunTimeError(quorvane::ErrorLockTimeout, u"Ocupado"_s);
    controls().menuItem(u"mnuRefrescar").trigger();
    expectTold({{u"Ocupado"_s, 16}});
}

INSTANTIATE_TEST_SUITE_P(Engines, SalespeopleForm, testing::ValuesIn(windowEngines), engineName);

} // namespace dalvora::test
