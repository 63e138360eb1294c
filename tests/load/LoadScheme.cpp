#include "tests/load/LoadScheme.h"

#include "platform/quorvane32/core/Connection.h"
#include "tests/load/SchemeImage.h"
#include <algorithm>
#include <set>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostLines = 4; ///< of a kind
constexpr int conceptsUsed = 12;
constexpr int mostAttempts = 100;

struct KindColumns {
    LineKind kind;
    QChar letter; ///< of the codes
    int code;
    int percentage;
    int calculo;
};
constexpr KindColumns kinds[] = {
    {LineKind::Producto, u'P', 2, 6, 7}, {LineKind::Monto, u'D', 1, 4, 5}, {LineKind::Precio, u'L', 1, 3, 4}};

int number(LoadRandom& random, int first, int last) {
    return std::uniform_int_distribution(first, last)(random);
}

int linesIn(LineList& lines) {
    int count = 0;
    for (int i = 1; i <= lines.count(); ++i)
        count += lines.line(i).SysRecordNull() ? 0 : 1;
    return count;
}

/// Enters a line as a user does, each code looked up.
void enterLine(LineList& lines, const KindColumns& columns, const QString& code, const QString& mark,
               int percentage) {
    // The last line is the empty one that takes new input.
    CommissionLine& line = lines.add(lines.count());
    if (columns.kind == LineKind::Producto)
        line.setTextValue(1, u"Producto"_s);
    line.setTextValue(columns.code, code);
    line.setTextValue(columns.percentage, QString::number(percentage));
    line.setTextValue(columns.calculo, mark);
}

QString freshConcept(LineList& lines, const KindColumns& columns, LoadRandom& random) {
    std::set<QString> taken;
    for (int i = 1; i <= lines.count(); ++i)
        taken.insert(lines.line(i).TextValue(columns.code));
    QString code;
    // A scheme that has come out with too many lines shall be told of, not waited for.
    for (int attempt = 0; attempt == 0 || (taken.contains(code) && attempt < mostAttempts); ++attempt)
        code = columns.letter + QString::number(number(random, 1, conceptsUsed));
    return code;
}

void describe(DBTable& table, const QString& mark, LoadRandom& random) {
    QString text = mark;
    for (const KindColumns& columns : kinds)
        text += u' ' + QString::number(linesIn(table.lines(columns.kind)));
    table.setTextValue(3, text);
    table.setTextValue(4, QString::number(number(random, 1, 99)));
}

void addLines(DBTable& table, const QString& mark, int most, LoadRandom& random) {
    for (const KindColumns& columns : kinds) {
        LineList& lines = table.lines(columns.kind);
        for (int wanted = number(random, 0, std::max(0, most - linesIn(lines))); wanted > 0; --wanted)
            enterLine(lines, columns, freshConcept(lines, columns, random), mark, number(random, 1, 99));
    }
}

void setPeriod(DBTable& table, const quorvane::Date& day) {
    const QString text = day.toDayMonthYear(u'/');
    table.setTextValue(6, text);
    table.setTextValue(5, text);
}

} // namespace

int userOf(const QString& mark) {
    return mark.section(u'.', 0, 0).toInt();
}

void makeScheme(DBTable& table, const QString& mark, int day, LoadRandom& random) {
    setPeriod(table, quorvane::Date(day));
    table.Acumulable = u"N"_s;
    addLines(table, mark, mostLines, random);
    describe(table, mark, random);
}

void changeScheme(DBTable& table, const QString& mark, LoadRandom& random) {
    for (const KindColumns& columns : kinds) {
        LineList& lines = table.lines(columns.kind);
        for (int i = linesIn(lines); i >= 1; --i) {
            const int what = number(random, 0, 9);
            CommissionLine& line = lines.line(i);
            if (what == 0) {
                lines.remove(i);
                continue;
            }
            if (what == 1) // another code: its row is deleted and inserted anew
                line.setTextValue(columns.code, freshConcept(lines, columns, random));
            if (what <= 4)
                line.setTextValue(columns.percentage, QString::number(number(random, 1, 99)));
            line.setTextValue(columns.calculo, mark);
        }
    }
    addLines(table, mark, mostLines, random);
    describe(table, mark, random);
    setPeriod(table, quorvane::Date(table.FechaFinal().serial() + 1));
}

std::vector<LoadCell> changeShare(DBTable& table, const QString& mark) {
    const int user = userOf(mark);
    for (const KindColumns& columns : kinds) {
        LineList& lines = table.lines(columns.kind);
        const QString own = columns.letter + QString::number(user + 1);
        int place = 0;
        for (int i = 1; i <= lines.count(); ++i)
            if (lines.line(i).TextValue(columns.code) == own)
                place = i;
        if (place == 0)
            enterLine(lines, columns, own, mark, 1 + user % 99);
        else
            lines.line(place).setTextValue(columns.calculo, mark);
    }
    table.setTextValue(3, mark);
    QStringList faults;
    std::vector<LoadCell> written;
    // Other users' lines stay as they are.
    for (const LoadCell& cell : cellsOf(table, faults))
        if (!cell.name.contains(u'#') || cell.name.section(u'#', 1).toInt() == user)
            written.push_back(cell);
    return written;
}

QStringList entriesOf(DBTable& table) {
    QStringList texts{table.Acumulable};
    for (int column = 1; column <= 6; ++column)
        texts << table.TextValue(column);
    for (const KindColumns& columns : kinds) {
        LineList& lines = table.lines(columns.kind);
        for (int i = 1; i <= lines.count(); ++i)
            for (int column = 1; column <= columns.calculo; ++column)
                texts << lines.line(i).TextValue(column);
    }
    return texts;
}

} // namespace dalvora::test
