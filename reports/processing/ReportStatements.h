#pragma once

#include "platform/quorvane32/base/Date.h"
#include <QString>

namespace dalvora {

class DBTable;

/// Who a report is made for.
struct ReportReader {
    QString company;
    QString user;
    quorvane::Date today;
};

/// The statement that gives the rows of the report that the record describes: documents for a report by
/// salesperson (its name says so), else commission schemes. Raises what SqlText raises.
QString rowsStatement(const DBTable& record, const QString& company);

/// The statement that gives the company's data, the user and the subtitle for the report's heading. Raises
/// what SqlText raises.
QString headerStatement(const DBTable& record, const ReportReader& reader);

} // namespace dalvora
