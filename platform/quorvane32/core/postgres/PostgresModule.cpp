#include "platform/quorvane32/core/EngineFactory.h"
#include "platform/quorvane32/core/postgres/PostgresProduct.h"
#include "platform/quorvane32/core/postgres/PostgresTransport.h"
#include "platform/quorvane32/core/qtsql/ServerEngine.h"
#include <QObject>

namespace quorvane::postgres {

/// The module's door.
class PostgresModule final : public QObject, public EngineFactory {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QUORVANE_ENGINE_FACTORY)
    Q_INTERFACES(quorvane::EngineFactory)

public:
    std::unique_ptr<Engine> open(const ConnectString& options) override {
        return std::make_unique<qtsql::ServerEngine>(
            qtsql::Server{std::make_unique<PostgresTransport>(options), std::make_unique<PostgresProduct>()});
    }
};

} // namespace quorvane::postgres

#include "PostgresModule.moc"
