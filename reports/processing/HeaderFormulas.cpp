#include "reports/processing/HeaderFormulas.h"
#include "common/Blanks.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Recordset.h"
#include "platform/reportengine/engine/Report.h"

namespace dalvora {

namespace {

bool isOfHeader(const QString& formula) {
    return formula.contains(u"@Cfg", Qt::CaseInsensitive) || formula.contains(u"@Ubs", Qt::CaseInsensitive);
}

QString columnText(const quorvane::Recordset& row, const QString& column,
                   const quorvane::RegionalSettings& regional) {
    try {
        const quorvane::Value value = row.value(column);
        return value.isNull() ? QString() : value.toText(regional);
    } catch (const quorvane::RunTimeError& error) {
        if (error.number() != quorvane::ErrorItemNotFound)
            throw;
        return {};
    }
}

} // namespace

void fillHeaderFormulas(quorvane::report::Report& report, const quorvane::Recordset& row,
                        const quorvane::RegionalSettings& regional) {
    for (int i = 1; i <= report.formulaCount(); ++i) {
        QString column = report.formulaName(i);
        if (!isOfHeader(column))
            continue;
        column.remove(QLatin1String("{@")).remove(u'}');
        const QString text = columnText(row, column, regional);
        report.setFormulaText(i, u'"' + withoutOuterBlanks(text).toString() + u'"');
    }
}

} // namespace dalvora
