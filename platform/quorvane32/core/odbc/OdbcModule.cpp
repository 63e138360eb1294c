#include "platform/quorvane32/core/EngineFactory.h"
#include "platform/quorvane32/core/odbc/OdbcServers.h"
#include "platform/quorvane32/core/qtsql/ServerEngine.h"
#include <QObject>

namespace quorvane::odbc {

/// The module's door.
class OdbcModule final : public QObject, public EngineFactory {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QUORVANE_ENGINE_FACTORY)
    Q_INTERFACES(quorvane::EngineFactory)

public:
    std::unique_ptr<Engine> open(const ConnectString& options) override {
        return std::make_unique<qtsql::ServerEngine>(serverOf(options));
    }
};

} // namespace quorvane::odbc

#include "OdbcModule.moc"
