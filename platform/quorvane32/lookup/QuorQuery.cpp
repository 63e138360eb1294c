#include "platform/quorvane32/lookup/QuorQuery.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/lookup/LookupWindow.h"
#include "platform/quorvane32/lookup/QueryArgument.h"
#include "platform/quorvane32/lookup/QueryFile.h"
#include <QApplication>

namespace quorvane {

namespace {

/// The hourglass while the database works, taken away again whatever happens.
class WaitCursor {
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(WaitCursor)
};

} // namespace

QuorQuery::QuorQuery(const RegionalSettings& regional, std::shared_ptr<LookupSizes> sizes)
    : m_regional(regional), m_sizes(std::move(sizes)) {}

QString QuorQuery::Muestra() {
    if (!m_connection)
        raise(ErrorObjectNotSet);
    const QueryArgument argument = QueryArgument::parse(m_argument);
    const QueryFile file = QueryFile::load(locateFile(argument.file));
    const QueryDefinition& query = file.query(argument.query);
    const auto open = [&] {
        const WaitCursor hourglass;
        const QString sql = query.statement(argument.parameters, m_regional);
        return std::make_unique<LookupWindow>(query, m_connection->openRecordset(sql), m_regional,
                                              QApplication::activeWindow());
    };
    const std::unique_ptr<LookupWindow> window = open();
    const QString sizeKey = query.name.toLower();
    if (m_sizes->contains(sizeKey))
        window->resize(m_sizes->value(sizeKey));
    window->exec();
    m_sizes->insert(sizeKey, window->size());
    if (window->error())
        std::rethrow_exception(window->error());
    return window->chosen();
}

} // namespace quorvane
