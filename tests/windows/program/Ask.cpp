// Tells what a company's database answers: dalvora_ask FILE SELECT. A line a row, a bar between values, dates
// dd/mm/yyyy, numbers with a point. No other shell reads these files: their texts compare by the program's
// own rule.

#include "platform/quorvane32/base/RegionalSettings.h"
#include "platform/quorvane32/core/Connection.h"
#include <QCoreApplication>
#include <QStringList>
#include <cstdio>

namespace {

void print(const QString& line) {
    std::fprintf(stdout, "%s\n", qUtf8Printable(line));
}

void answer(const QString& file, const QString& select) {
    quorvane::RegionalSettings regional;
    regional.decimalSeparator = u'.';
    quorvane::Connection connection;
    connection.open(QStringLiteral("Driver=sqlite;ReadOnly=S;Database=") + file);
    for (quorvane::Recordset rows = connection.openRecordset(select); !rows.eof(); rows.moveNext()) {
        QStringList values;
        for (int field = 0; field < rows.fieldCount(); ++field)
            values.append(rows.value(field).isNull() ? QString() : rows.value(field).toText(regional));
        print(values.join(u'|'));
    }
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().size() != 3)
        return 2;
    try {
        answer(QCoreApplication::arguments().at(1), QCoreApplication::arguments().at(2));
        return 0;
    } catch (const quorvane::RunTimeError& error) {
        print(QStringLiteral("%1 - %2").arg(error.number()).arg(error.description()));
        return 1;
    }
}
