#include "sql/Schema.h"

#include <QFile>

static void initialiseResources() {
    Q_INIT_RESOURCE(schema); // a static library's resources are linked only when something names them
}

namespace dalvora {

namespace {

QByteArray resource(const QString& path) {
    initialiseResources();
    QFile file(path);
    // The text is part of the program: without it there is no program to report to.
    if (!file.open(QIODevice::ReadOnly))
        qFatal("missing resource %s", qPrintable(path));
    return file.readAll();
}

} // namespace

QByteArray erpTables() {
    return resource(QStringLiteral(":/sql/sqlite/erp.sql"));
}

QByteArray sessionTables() {
    return resource(QStringLiteral(":/sql/sqlite/session.sql"));
}

} // namespace dalvora
