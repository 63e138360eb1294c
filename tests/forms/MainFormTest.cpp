#include "tests/forms/MainFormTest.h"
#include <QApplication>
#include <QToolButton>

namespace dalvora::test {

namespace {

constexpr const char* seed = R"(
INSERT INTO gen_tabcod (Empresa, Tipo, Codigo, Texto, Valor1, Valor2) VALUES
 ('01', 'GEN_MONEDA', 'PESO', '', 0, 2), ('01', 'CONFIG.EMPRESA', 'MONEDA', 'PESO', 0, 0),
 ('01', 'config.dalvora', 'DECIMALES.CANTIDAD', '', 2, 0);
INSERT INTO producto (Empresa, Producto, Glosa, Familia, SubFamilia, TipoProducto, Unidad) VALUES
 ('01', 'P1', 'Café', 'BEBIDAS', 'CALIENTES', 'PT', 'kg'), ('01', 'P2', 'Té', 'BEBIDAS', 'CALIENTES', 'PT', 'kg');
INSERT INTO tipodocumento (Empresa, TipoDocto, Sistema, Valorizado, Vendedor) VALUES ('01', 'FACTURA', 'ventas', 'S', 'S');
INSERT INTO ListaPrecio (Empresa, LisPrecio, Descripcion) VALUES ('01', 'L1', 'Mayorista');
INSERT INTO Comisiones (Empresa, Codigo, Descripcion, FechaInicio, FechaFinal, Porcentaje, Acumulable)
 VALUES ('01', 'C1', 'Esquema uno', '2006-01-01', '2006-12-31', 0, 'S');
INSERT INTO ComisionesD (Empresa, Codigo, Tipo, Concepto, Descripcion, CantidadInicio, CantidadFinal, Porcentaje,
 FechaInicio, FechaFinal, SubTipo, Calculo) VALUES
 ('01', 'C1', 'Producto', 'P1', 'Café', 0, 10, 5, '2006-01-01', '2006-12-31', 'Producto', 'Neto'),
 ('01', 'C1', 'Monto', 'FACTURA', ' ', 0, 1000, 2, '2006-01-01', '2006-12-31', '', 'Total'),
 ('01', 'C1', 'Precio', 'L1', 'Mayorista', 0, 0, 1, '2006-01-01', '2006-12-31', '', 'Neto');
)";

} // namespace

MainFormTest::MainFormTest() {
    database.run(QString::fromUtf8(seed));
    context.Connection = std::make_unique<quorvane::Connection>();
    context.Connection->open(database.connectString(200));
    auto fake = std::make_unique<FakeSession>();
    session = fake.get();
    context.Session = std::move(fake);
    context.Table = std::make_unique<DBTable>(*context.Connection, *context.Session, context.Regional);
    EXPECT_TRUE(table().DBInitialize());
    form = std::make_unique<frmMain>(context, *this);
    SetupGrids(controls(), table());
    form->show();
    form->record().newRecord();
    form->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    form->rememberSize();
    session->audits.clear();
}

MainFormTest::~MainFormTest() {
    form.reset();
}

void MainFormTest::settle() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return !controls().timFocus->isActive(); }));
    QCoreApplication::processEvents();
}

void MainFormTest::click(const QString& key) {
    QTest::mouseClick(controls().Toolbar->widgetForAction(&controls().button(key)), Qt::LeftButton);
    settle();
}

void MainFormTest::choose(const QString& menuItem) {
    controls().menuItem(menuItem).trigger();
    settle();
}

void MainFormTest::type(const QString& text) {
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(c),
                            Qt::NoModifier);
}

void MainFormTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void MainFormTest::enter(QWidget& control, const QString& text) {
    control.setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        press(Qt::Key_Delete);
    type(text);
    press(Qt::Key_Tab);
}

void MainFormTest::readC1() {
    enter(*controls().TxtCodigo, u"C1"_s);
    enter(*controls().FecIni, u"01/01/2006"_s);
    enter(*controls().FecFin, u"31/12/2006"_s);
    ASSERT_TRUE(table().SysRecordFound);
    session->audits.clear();
    expectSilence();
}

void MainFormTest::enterCell(quorvane::XGrid& grid, int row, int column, const QString& text) {
    grid.setFocus();
    grid.setRow(row);
    grid.setCol(column);
    type(text);
    press(Qt::Key_Return);
}

QStringList MainFormTest::rows(const QString& select) {
    QStringList result;
    for (auto found = context.Connection->openRecordset(select); !found.eof(); found.moveNext()) {
        QStringList values;
        for (int i = 0; i < found.fieldCount(); ++i)
            values << found.value(i).toText(context.Regional);
        result << values.join(u'|');
    }
    return result;
}

bool MainFormTest::QueryLookup(const QString& queryName, const QString& queryFile, const QString& parameters,
                               QStringList& values) {
    calls << queryName + u'@' + queryFile + u'#' + parameters;
    values = chosen;
    return !chosen.isEmpty();
}

void MainFormTest::ShowAbout(const QString& title, const QString& description) {
    calls << u"About "_s + title + u' ' + description;
}

} // namespace dalvora::test
