#pragma once

#include <QString>
#include <QStringList>

namespace quorvane {

/// The parts of a lookup's argument: query name + "@" + query file + "#" + parameters separated by "#".
struct QueryArgument {
    QString query;
    QString file;
    QStringList parameters;

    /// Error 5 when the text has no "@". A folder of the file may hold a "#": the file ends at the first "#"
    /// that follows ".qry".
    static QueryArgument parse(const QString& text);
};

/// The path of an existing file as the file system spells it: its last part is compared without regard to
/// case when it does not exist as given, and "\" separates folders on every platform. The path unchanged
/// when there is none.
QString locateFile(const QString& path);

} // namespace quorvane
