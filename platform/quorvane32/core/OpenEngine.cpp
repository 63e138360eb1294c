#include "platform/quorvane32/base/Module.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/EngineFactory.h"
#include "platform/quorvane32/core/sqlite/SqliteEngine.h"

namespace quorvane {

namespace {

struct Module {
    const char16_t* driver;
    const char16_t* file;
};

constexpr Module modules[] = {
    {u"postgresql", u"quorvane_postgres"},
    {u"sqlserver", u"quorvane_odbc"},
    {u"odbc-postgresql", u"quorvane_odbc"},
};

std::unique_ptr<Engine> openFromModule(const Module& module, const ConnectString& options) {
    const QString purpose =
        QStringLiteral("el controlador de la base de datos '%1'").arg(QString::fromUtf16(module.driver));
    return moduleFactory<EngineFactory>(QString::fromUtf16(module.file), purpose).open(options);
}

} // namespace

std::unique_ptr<Engine> openEngine(const QString& connectString) {
    const ConnectString options = ConnectString::parse(connectString);
    const QString driver = options.value(QStringLiteral("driver"));
    if (driver.compare(u"sqlite", Qt::CaseInsensitive) == 0)
        return sqlite::openSqlite(options);
    for (const Module& module : modules)
        if (driver.compare(QStringView(module.driver), Qt::CaseInsensitive) == 0)
            return openFromModule(module, options);
    throw RunTimeError(
        ErrorCannotCreateObject,
        QStringLiteral("Este programa no tiene controlador para la base de datos '%1'").arg(driver));
}

} // namespace quorvane
