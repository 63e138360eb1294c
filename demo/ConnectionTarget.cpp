#include "demo/ConnectionTarget.h"

#include "platform/quorvane32/core/Connection.h"

namespace dalvora::demo {

namespace {

constexpr int mostRows = 100;

QString literal(const Field& field) {
    if (const auto* text = std::get_if<QString>(&field))
        return u'\'' + QString(*text).replace(u'\'', QStringLiteral("''")) + u'\'';
    if (const auto* number = std::get_if<qint64>(&field))
        return QString::number(*number);
    if (const auto* amount = std::get_if<Amount>(&field))
        return QString::number(static_cast<double>(amount->hundredths) / 100, 'f', 2);
    return QStringLiteral("NULL");
}

} // namespace

class ConnectionTarget::Sink final : public RowSink {
public:
    Sink(ConnectionTarget& target, std::shared_ptr<Batch> batch)
        : m_target(target), m_batch(std::move(batch)) {}

    void add(std::span<const Field> row) override {
        QString values;
        for (const Field& field : row)
            values += (values.isEmpty() ? u'(' : u',') + literal(field);
        m_batch->values += (m_batch->rows == 0 ? QString() : QStringLiteral(",")) + values + u')';
        if (++m_batch->rows >= mostRows)
            m_target.send(*m_batch);
    }

private:
    ConnectionTarget& m_target;
    std::shared_ptr<Batch> m_batch;
};

std::unique_ptr<RowSink> ConnectionTarget::open(const char* table, const char* columns) {
    auto batch = std::make_shared<Batch>();
    batch->insert =
        QStringLiteral("INSERT INTO %1 (%2) VALUES ").arg(QLatin1String(table), QLatin1String(columns));
    m_batches.push_back(batch);
    return std::make_unique<Sink>(*this, std::move(batch));
}

void ConnectionTarget::send(Batch& batch) {
    if (batch.rows > 0)
        m_connection.execute(batch.insert + batch.values);
    batch.values.clear();
    batch.rows = 0;
}

void ConnectionTarget::finish() {
    for (const auto& batch : m_batches)
        send(*batch);
    m_batches.clear();
}

} // namespace dalvora::demo
