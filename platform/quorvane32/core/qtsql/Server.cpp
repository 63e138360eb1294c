#include "platform/quorvane32/core/qtsql/Server.h"
#include "platform/quorvane32/core/ConnectString.h"

namespace quorvane::qtsql {

QString placeOf(const ConnectString& options) {
    const QString host = options.value(QStringLiteral("host"), options.value(QStringLiteral("dsn")));
    return QStringLiteral("«%1» en %2")
        .arg(options.value(QStringLiteral("database")),
             host.isEmpty() ? QStringLiteral("este equipo") : host);
}

bool flagOf(const ConnectString& options, const char* key, bool usual) {
    const QString value = options.value(QLatin1String(key));
    return value.isEmpty() ? usual : value.compare(u"s", Qt::CaseInsensitive) == 0;
}

} // namespace quorvane::qtsql
