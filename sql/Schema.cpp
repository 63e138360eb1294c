#include "sql/Schema.h"

#include <QFile>

static void initialiseResources() {
    Q_INIT_RESOURCE(schema); // a static library's resources are linked only when something names them
}

namespace dalvora {

namespace {

QByteArray script(SchemaEngine engine, const char* name) {
    initialiseResources();
    const char* folder = engine == SchemaEngine::Sqlite ? "sqlite" : "postgresql";
    QFile file(QStringLiteral(":/sql/%1/%2").arg(QLatin1String(folder), QLatin1String(name)));
    // The text is part of the program: without it there is no program to report to.
    if (!file.open(QIODevice::ReadOnly))
        qFatal("missing resource %s", qPrintable(file.fileName()));
    return file.readAll();
}

} // namespace

QByteArray erpTables(SchemaEngine engine) {
    return script(engine, "erp.sql");
}

QByteArray sessionTables(SchemaEngine engine) {
    return script(engine, "session.sql");
}

} // namespace dalvora
