#include "tests/faults/SchemeStates.h"
#include "data/DBTable.h"
#include "tests/faults/TestCompany.h"
#include <QDate>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int products = 20;
constexpr int columnDescription = 3;

QDate startOf(int state) {
    return QDate(2006, 1, 1).addDays(state % 300);
}

QDate endOf(int state) {
    return startOf(state).addDays(364);
}

QString iso(const QDate& date) {
    return date.toString(u"yyyy-MM-dd"_s);
}

QString description(int state) {
    return u"Estado %1"_s.arg(state);
}

/// A third of the lines change with each step.
int percentageOf(int place, int state) {
    return 1 + (place + state) / 3 % 90;
}

/// One line in ten is missing, another one in each state.
bool isThere(int place, int state) {
    return (place + state) % 10 != 0;
}

} // namespace

SchemeStates::Line SchemeStates::productLine(int place, int state) const {
    const int product = 1 + (place + state) / 7 % products;
    return {u"Producto"_s, u"P%1"_s.arg(product), u"Producto %1"_s.arg(product),
            place * 10,    place * 10 + 9,        percentageOf(place, state),
            u"Producto"_s};
}

QList<SchemeStates::Line> SchemeStates::lines(int state) const {
    QList<Line> all;
    for (int place = 1; place <= m_productLines; ++place)
        if (isThere(place, state))
            all << productLine(place, state);
    all << Line{u"Monto"_s, u"FACTURA"_s, u" "_s, 0, 1000, percentageOf(0, state), {}};
    all << Line{u"Precio"_s, u"L1"_s, u"Mayorista"_s, 0, 0, percentageOf(1, state), {}};
    return all;
}

QStringList SchemeStates::rows(int state) const {
    const QString period = iso(startOf(state)) + u'|' + iso(endOf(state));
    QStringList result{u"Esquema|"_s + description(state) + u'|' + period};
    for (const Line& line : lines(state))
        result << QStringList{line.kind,
                              line.code,
                              line.text,
                              QString::number(line.start),
                              QString::number(line.end),
                              QString::number(line.percentage),
                              line.subKind,
                              u"Neto"_s,
                              period}
                      .join(u'|');
    result.sort();
    return result;
}

void SchemeStates::store(const TestCompany& company, int state) const {
    const QString period = u"'%1', '%2'"_s.arg(iso(startOf(state)), iso(endOf(state)));
    QString statements = u"INSERT INTO Comisiones (Empresa, Codigo, Descripcion, FechaInicio, FechaFinal) "
                         u"VALUES ('001', '%1', '%2', %3);"_s.arg(m_code, description(state), period);
    for (const Line& line : lines(state))
        statements += u"INSERT INTO ComisionesD (Empresa, Codigo, FechaInicio, FechaFinal, Tipo, Concepto, "
                      u"Descripcion, CantidadInicio, CantidadFinal, Porcentaje, SubTipo, Calculo) VALUES "
                      u"('001', '%1', %2, '%3', '%4', '%5', %6, %7, %8, '%9', 'Neto');"_s
                          .arg(m_code, period, line.kind, line.code, line.text)
                          .arg(line.start)
                          .arg(line.end)
                          .arg(line.percentage)
                          .arg(line.subKind);
    company.execute(statements);
}

QStringList SchemeStates::storedRows(const TestCompany& company) const {
    QStringList all =
        company.rows(u"SELECT 'Esquema', Descripcion, FechaInicio, FechaFinal FROM Comisiones "
                     u"WHERE Empresa = '001' AND Codigo = '%1'"_s.arg(m_code)) +
        company.rows(
            u"SELECT Tipo, Concepto, Descripcion, CantidadInicio, CantidadFinal, Porcentaje, SubTipo, "
            u"Calculo, FechaInicio, FechaFinal FROM ComisionesD WHERE Empresa = '001' AND Codigo = '%1'"_s
                .arg(m_code));
    all.sort();
    return all;
}

int SchemeStates::storedState(const TestCompany& company) const {
    const QString text =
        company.value(u"SELECT substr(Descripcion, 8) FROM Comisiones WHERE Codigo = '%1'"_s.arg(m_code));
    return text.isEmpty() ? -1 : text.toInt();
}

int SchemeStates::read(DBTable& table) const {
    table.DBClear();
    table.ClearDates();
    table.setTextValue(2, m_code);
    if (!table.DBRead() || !table.SysRecordFound)
        return -1;
    table.SaveDates();
    return table.Descripcion().mid(7).toInt();
}

void SchemeStates::change(DBTable& table, int state) const {
    table.setTextValue(columnDescription, description(state));
    table.setPeriod(quorvane::Date::fromQDate(startOf(state)), quorvane::Date::fromQDate(endOf(state)));
    changeProducts(table, state);
    table.montos(1).setTextValue(4, QString::number(percentageOf(0, state)));
    table.Precios(1).setTextValue(3, QString::number(percentageOf(1, state)));
}

void SchemeStates::changeProducts(DBTable& table, int state) const {
    QList<bool> known(m_productLines + 1, false);
    // The last line is the empty one that takes new input.
    for (int at = table.DetailsCount() - 1; at >= 1; --at) {
        DBDetail& line = table.Details(at);
        const int place = static_cast<int>(line.InicioTramo) / 10;
        if (!isThere(place, state)) {
            table.DetailsRemove(at);
            continue;
        }
        known[place] = true;
        const Line wanted = productLine(place, state);
        line.setTextValue(2, wanted.code);
        line.setTextValue(6, QString::number(wanted.percentage));
    }
    for (int place = 1; place <= m_productLines; ++place) {
        if (known[place] || !isThere(place, state))
            continue;
        const Line wanted = productLine(place, state);
        DBDetail& line = table.DetailsAdd(table.DetailsCount());
        const QStringList columns{wanted.subKind,
                                  wanted.code,
                                  wanted.text,
                                  QString::number(wanted.start),
                                  QString::number(wanted.end),
                                  QString::number(wanted.percentage),
                                  u"Neto"_s};
        for (int column = 1; column <= columns.size(); ++column)
            line.setTextValue(column, columns[column - 1]);
    }
}

} // namespace dalvora::test
