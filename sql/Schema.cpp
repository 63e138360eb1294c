#include "sql/Schema.h"

#include <QFile>

static void initialiseResources() {
    Q_INIT_RESOURCE(schema); // a static library's resources are linked only when something names them
}

namespace dalvora {

namespace {

struct EngineName {
    SchemaEngine engine;
    QStringView name; ///< as a driver and as a folder
};

constexpr EngineName engineNames[] = {
    {SchemaEngine::Sqlite, u"sqlite"},
    {SchemaEngine::PostgreSql, u"postgresql"},
    {SchemaEngine::SqlServer, u"sqlserver"},
};

QStringView folderOf(SchemaEngine engine) {
    for (const EngineName& known : engineNames)
        if (known.engine == engine)
            return known.name;
    return {};
}

QByteArray script(SchemaEngine engine, const char* name) {
    initialiseResources();
    QFile file(QStringLiteral(":/sql/%1/%2").arg(folderOf(engine), QLatin1String(name)));
    // The text is part of the program: without it there is no program to report to.
    if (!file.open(QIODevice::ReadOnly))
        qFatal("missing resource %s", qPrintable(file.fileName()));
    return file.readAll();
}

} // namespace

std::optional<SchemaEngine> schemaEngine(QStringView driver) {
    for (const EngineName& known : engineNames)
        if (driver.compare(known.name, Qt::CaseInsensitive) == 0)
            return known.engine;
    return std::nullopt;
}

QByteArray erpTables(SchemaEngine engine) {
    return script(engine, "erp.sql");
}

QByteArray sessionTables(SchemaEngine engine) {
    return script(engine, "session.sql");
}

QByteArray layoutUpgrade(SchemaEngine engine, int version) {
    return script(engine, QByteArray("upgrade-" + QByteArray::number(version) + ".sql").constData());
}

} // namespace dalvora
