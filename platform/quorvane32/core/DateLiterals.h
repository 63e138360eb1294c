#pragma once

#include "platform/quorvane32/core/DateColumns.h"
#include "platform/quorvane32/core/SqlLexer.h"
#include <QString>

namespace quorvane {

/// Marks the text literals that stand against a date column: compared with it or with a function that keeps
/// it a date (isnull, max, ...), assigned to it, in BETWEEN or IN with it, another argument of such a
/// function, or inserted into it by VALUES or SELECT. A qualifier tells the column's table; without one a
/// name counts that is a date in every table that has it, or in one that the statement names.
void markDateLiterals(QStringView sql, std::vector<SqlToken>& tokens, const DateColumns& columns);

/// The ISO form (yyyy-mm-dd, with hh:mm:ss behind a blank unless that is midnight) of a date literal's text:
/// day/month/year with "/", "-" or ".", or ISO already; the empty text is 1900-01-01, the ERP server's own
/// reading. Error 241 when the text is no date.
QString isoDate(const QString& text);

} // namespace quorvane
