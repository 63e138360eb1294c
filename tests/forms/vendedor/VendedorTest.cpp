#include "tests/forms/vendedor/VendedorTest.h"
#include <QApplication>

namespace dalvora::test {

namespace {

constexpr const char* seed = R"(
INSERT INTO gen_tabcod (Empresa, Tipo, Codigo, Descripcion, Texto, Valor1, Valor2) VALUES
 ('01', 'GEN_MONEDA', 'PESO', '', '', 0, 2), ('01', 'CONFIG.EMPRESA', 'MONEDA', '', 'PESO', 0, 0),
 ('01', 'gen_vendedor', '11', 'Ana Núñez', 'VIEJA', 0, 0), ('01', 'GEN_VENDEDOR', '12', 'Luis Díaz', '', 0, 0),
 ('01', 'gen_vendedor', '123', 'Eva Ríos', '', 0, 0), ('01', 'gen_vendedor', '14', 'Juan O''Higgins', '', 0, 0),
 ('01', 'gen_vendedor', '15', 'Rosa Paz', 'VIEJA', 0, 0), ('02', 'gen_vendedor', '11', 'Ajeno', 'OTRA', 0, 0),
 ('01', 'gen_zona', '11', 'Zona', 'ZONA', 0, 0);
)";

} // namespace

VendedorTest::VendedorTest() {
    database.run(QString::fromUtf8(seed));
    context.Connection = std::make_unique<quorvane::Connection>([this](const QString& connectString) {
        return std::make_unique<FailEngine>(quorvane::openEngine(connectString), fail);
    });
    context.Connection->open(database.connectString(200));
    auto fake = std::make_unique<FakeSession>();
    session = fake.get();
    context.Session = std::move(fake);
    context.Table = std::make_unique<DBTable>(*context.Connection, *context.Session, context.Regional);
    EXPECT_TRUE(context.Table->DBInitialize());
    context.Connection->setStatementObserver([this](const QString& sql) { statements << sql; });
    fail.statements = 0;
    session->audits.clear();
    form = std::make_unique<FM_Vendedor>(context);
}

VendedorTest::~VendedorTest() {
    form.reset();
}

void VendedorTest::open() {
    form->open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
}

void VendedorTest::openSilently() {
    open();
    expectSilence();
    statements.clear();
    fail.statements = 0;
}

QRect VendedorTest::cell(int row, int column) {
    const auto* view = grid().findChild<QTableView*>();
    return view->visualRect(view->model()->index(row - 1, column));
}

void VendedorTest::clickCell(int row, int column, Qt::KeyboardModifiers held) {
    QTest::mouseClick(grid().findChild<QTableView*>()->viewport(), Qt::LeftButton, held,
                      cell(row, column).center());
}

void VendedorTest::dragCells(int fromRow, int toRow) {
    QWidget* viewport = grid().findChild<QTableView*>()->viewport();
    const auto place = [this](int row) { return cell(row, SalespeopleList::Codigo).center(); };
    QTest::mousePress(viewport, Qt::LeftButton, {}, place(fromRow));
    // QTest::mouseMove sends no button with it.
    QMouseEvent move(QEvent::MouseMove, place(toRow), viewport->mapToGlobal(place(toRow)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &move);
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, place(toRow));
}

void VendedorTest::press(Qt::Key key, Qt::KeyboardModifiers held) {
    QTest::keyClick(QApplication::focusWidget(), key, held);
}

void VendedorTest::filter(const QString& text) {
    controls().TxtCodigo->setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, controls().TxtCodigo, Qt::Key_unknown, QString(c), Qt::NoModifier);
    press(Qt::Key_Return);
}

QString VendedorTest::marks() {
    QString marks;
    for (int row = 1; row < grid().rows(); ++row) {
        quorvane::XGridPicture picture;
        form->list().cellPicture(row, SalespeopleList::Mark, picture);
        marks += picture.icon.isNull() ? u'-' : u'*';
    }
    return marks;
}

QStringList VendedorTest::shown() {
    const QString marked = marks();
    QStringList lines;
    for (int row = 1; row < grid().rows(); ++row)
        lines << (marked[row - 1] == u'*' ? u"*"_s : QString()) +
                     QStringList{grid().text(row, 1), grid().text(row, 2), grid().text(row, 3)}.join(u'|');
    return lines;
}

QStringList VendedorTest::rows(const QString& select) {
    quorvane::Connection connection;
    connection.open(database.connectString());
    QStringList result;
    for (auto row = connection.openRecordset(select); !row.eof(); row.moveNext()) {
        QStringList values;
        for (int i = 0; i < row.fieldCount(); ++i)
            values << (row.value(i).isNull() ? QString() : row.value(i).toText({}));
        result << values.join(u'|');
    }
    return result;
}

void VendedorTest::execute(const QString& statement) {
    database.run(statement);
}

QString VendedorTest::wholeDatabase() {
    const QString catalogue =
        GetParam() == TestEngine::Sqlite || GetParam() == TestEngine::TestSqlServer
            ? u"select name, sql from sqlite_master where type = 'table' order by name"_s
            : u"select c.relname, count(*) from pg_class c, pg_attribute a where a.attrelid = c.oid and "
              "c.relkind = 'r' and c.relnamespace = 'public'::regnamespace group by c.relname order by 1"_s;
    QString all;
    for (const QString& table : rows(catalogue)) {
        QStringList content = rows(u"select * from "_s + table.section(u'|', 0, 0));
        content.sort();
        all += table + u'\n' + content.join(u'\n') + u'\n';
    }
    return all;
}

} // namespace dalvora::test
