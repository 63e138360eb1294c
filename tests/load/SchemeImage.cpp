#include "tests/load/SchemeImage.h"

#include "data/DBTable.h"
#include "platform/quorvane32/core/Connection.h"
#include "tests/load/LoadScheme.h"
#include <QCryptographicHash>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

QString shortHash(const QString& text) {
    return QString::fromLatin1(
        QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Md5).toHex().left(12));
}

QString joined(std::initializer_list<double> numbers, const QString& text = {}) {
    QStringList parts{text};
    for (const double number : numbers)
        parts << QString::number(number, 'g', 12);
    return parts.join(u'|');
}

QString textOf(const LineImage& line) {
    return QString::number(line.kind) + u'|' + line.code + u'|' + line.mark + u'|' + line.rest + u'\n';
}

/// A scheme that one save writes whole.
std::vector<LoadCell> wholeScheme(const SchemeImage& image, QStringList& faults) {
    const QString mark = image.description.section(u' ', 0, 0);
    QString text = image.description + u'\n' + image.rest + u'\n';
    int counts[4] = {};
    for (const LineImage& line : image.lines) {
        text += textOf(line);
        ++counts[line.kind];
        if (line.mark != mark)
            faults << u"%1 of %2 has line %3 of %4"_s.arg(image.code, mark, line.code, line.mark);
    }
    for (int kind = 1; kind <= 3; ++kind)
        if (image.description.section(u' ', kind, kind) != QString::number(counts[kind]))
            faults << u"%1 described \"%2\" has %3 lines of kind %4"_s.arg(image.code, image.description)
                          .arg(counts[kind])
                          .arg(kind);
    return {{image.code, mark + u':' + shortHash(text)}};
}

/// A scheme in which everyone has three lines.
std::vector<LoadCell> sharedScheme(const SchemeImage& image, QStringList& faults) {
    std::map<int, std::vector<LineImage>> shares;
    for (const LineImage& line : image.lines)
        shares[QStringView(line.code).mid(1).toInt() - 1].push_back(line);
    std::vector<LoadCell> cells{
        {image.code, image.description + u':' + shortHash(image.description + image.rest)}};
    for (const auto& [user, lines] : shares) {
        QString text;
        for (const LineImage& line : lines) {
            text += textOf(line);
            if (line.mark != lines.front().mark)
                faults << u"%1 has lines %2 and %3 of user %4"_s
                              .arg(image.code, lines.front().mark, line.mark)
                              .arg(user);
        }
        if (lines.size() != 3)
            faults << u"%1 has %2 lines of user %3"_s.arg(image.code).arg(lines.size()).arg(user);
        if (image.description.contains(u'.') && userOf(image.description) == user &&
            lines.front().mark != image.description)
            faults << u"%1 saved by %2 has that user's lines %3"_s.arg(image.code, image.description,
                                                                       lines.front().mark);
        cells.push_back(
            {image.code + u'#' + QString::number(user), lines.front().mark + u':' + shortHash(text)});
    }
    if (image.description.contains(u'.') && !shares.contains(userOf(image.description)))
        faults << u"%1 saved by %2 has none of that user's lines"_s.arg(image.code, image.description);
    return cells;
}

} // namespace

std::vector<LoadCell> cellsOf(SchemeImage image, QStringList& faults) {
    std::sort(image.lines.begin(), image.lines.end());
    return image.code.startsWith(u'S') ? sharedScheme(image, faults) : wholeScheme(image, faults);
}

std::vector<LoadCell> cellsOf(DBTable& table, QStringList& faults) {
    const double start = table.FECHAINICIO().serial();
    const double end = table.FechaFinal().serial();
    SchemeImage image{
        table.Codigo(), table.Descripcion(), joined({table.Porcentaje(), start, end}, table.Acumulable), {}};
    for (int i = 1; i <= table.DetailsCount(); ++i)
        if (const DBDetail& line = table.Details(i); !line.SysRecordNull())
            image.lines.push_back({1, line.Producto, line.calculo,
                                   joined({line.InicioTramo, line.FinTramo, line.Porcentaje, start, end},
                                          line.SubTipo + u'|' + line.Descripcion)});
    for (int i = 1; i <= table.MontosCount(); ++i)
        if (const DBMonto& line = table.montos(i); !line.SysRecordNull())
            image.lines.push_back(
                {2, line.Documento, line.calculo,
                 joined({line.InicioTramo, line.FinTramo, line.Porcentaje, start, end}, u"|"_s)});
    for (int i = 1; i <= table.PreciosCount(); ++i)
        if (const DBPrecio& line = table.Precios(i); !line.SysRecordNull())
            image.lines.push_back({3, line.ListaPrecio, line.calculo,
                                   joined({0, 0, line.Porcentaje, start, end}, u"|"_s + line.Descripcion)});
    return cellsOf(std::move(image), faults);
}

std::vector<LoadCell> storedCells(quorvane::Connection& connection, QStringList& faults) {
    const quorvane::RegionalSettings regional;
    std::map<QString, SchemeImage> schemes;
    const auto text = [&](const quorvane::Recordset& row, const char16_t* field) {
        return row.value(QStringView(field)).toText(regional);
    };
    const auto numberOf = [&](const quorvane::Recordset& row, const char16_t* field) {
        return row.value(QStringView(field)).toNumber(regional);
    };
    for (auto row = connection.openRecordset(u"SELECT * FROM Comisiones"_s); !row.eof(); row.moveNext()) {
        const QString code = text(row, u"Codigo");
        if (schemes.contains(code))
            faults << u"two headers of "_s + code;
        schemes[code] = {code,
                         text(row, u"Descripcion"),
                         joined({numberOf(row, u"Porcentaje"), numberOf(row, u"FechaInicio"),
                                 numberOf(row, u"FechaFinal")},
                                text(row, u"Acumulable")),
                         {}};
    }
    for (auto row = connection.openRecordset(u"SELECT * FROM ComisionesD"_s); !row.eof(); row.moveNext()) {
        const QString code = text(row, u"Codigo");
        if (!schemes.contains(code)) {
            faults << u"a line without a header of "_s + code;
            continue;
        }
        const QString type = text(row, u"Tipo");
        const int kind = type == u"Producto" ? 1 : type == u"Monto" ? 2 : 3;
        schemes[code].lines.push_back(
            {kind, text(row, u"Concepto"), text(row, u"Calculo"),
             joined({numberOf(row, u"CantidadInicio"), numberOf(row, u"CantidadFinal"),
                     numberOf(row, u"Porcentaje"), numberOf(row, u"FechaInicio"),
                     numberOf(row, u"FechaFinal")},
                    text(row, u"SubTipo") + u'|' + (kind == 2 ? QString() : text(row, u"Descripcion")))});
    }
    std::vector<LoadCell> cells;
    for (const auto& [code, image] : schemes)
        for (LoadCell& cell : cellsOf(image, faults))
            cells.push_back(std::move(cell));
    for (auto row = connection.openRecordset(u"SELECT * FROM gen_tabcod WHERE tipo = 'gen_vendedor'"_s);
         !row.eof(); row.moveNext())
        cells.push_back({text(row, u"Codigo"), text(row, u"Texto")});
    return cells;
}

} // namespace dalvora::test
