#include "tests/tsql/StatementRecorder.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

namespace dalvora::test {

namespace {

/// Between a connection and its engine: writes down what passes.
class RecordingEngine final : public quorvane::Engine {
public:
    explicit RecordingEngine(std::unique_ptr<quorvane::Engine> engine) : m_engine(std::move(engine)) {
        if (!m_file.open(QIODevice::Append))
            qFatal("cannot write %s", qPrintable(m_file.fileName()));
    }

    std::unique_ptr<quorvane::Cursor> select(const QString& sql) override {
        record(sql);
        return m_engine->select(sql);
    }
    qint64 execute(const QString& sql) override {
        record(sql);
        return m_engine->execute(sql);
    }
    void begin() override { m_engine->begin(); }
    void commit() override { m_engine->commit(); }
    void rollback() override { m_engine->rollback(); }

private:
    void record(const QString& sql) {
        m_file.write(QJsonDocument(QJsonArray{sql}).toJson(QJsonDocument::Compact) + '\n');
        m_file.flush();
    }

    std::unique_ptr<quorvane::Engine> m_engine;
    QFile m_file{statementFile()};
};

} // namespace

QString statementFile() {
    return QStringLiteral(STATEMENT_FILE);
}

void startRecording() {
    QFile file(statementFile());
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

std::unique_ptr<quorvane::Engine> recorded(std::unique_ptr<quorvane::Engine> engine) {
    return std::make_unique<RecordingEngine>(std::move(engine));
}

} // namespace dalvora::test

// The names that --wrap gives to quorvane::openEngine: calls come to the first, the second is the real one.
std::unique_ptr<quorvane::Engine>
realOpenEngine(const QString& connectString) asm("__real__ZN8quorvane10openEngineERK7QString");
std::unique_ptr<quorvane::Engine>
recordingOpenEngine(const QString& connectString) asm("__wrap__ZN8quorvane10openEngineERK7QString");

std::unique_ptr<quorvane::Engine> recordingOpenEngine(const QString& connectString) {
    return dalvora::test::recorded(realOpenEngine(connectString));
}
