// The audit trail's indexes on a PostgreSQL server.
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/AuditReader.h"
#include "tests/support/TestDatabase.h"

namespace {

using namespace quorvane;
using namespace Qt::StringLiterals;
using dalvora::test::TestDatabase;
using dalvora::test::TestEngine;

TEST(AuditIndexes, AServerWithManyEntriesUsesThemForUserAndDay) {
    const TestDatabase database(TestEngine::PostgreSql);
    Connection connection;
    connection.open(database.connectString());
    connection.execute(u"INSERT INTO ses_auditoria (Momento, Usuario, Empresa, Programa, Codigo, Texto) "
                       "SELECT to_char(timestamp '2020-01-01' + n * interval '1 hour', "
                       "'YYYY-MM-DD HH24:MI:SS.MS'), concat('u', n % 500), '001', 'VELTRANO', 7, 'x' "
                       "FROM generate_series(1, 20000) n"_s);
    connection.execute(u"ANALYZE ses_auditoria"_s);
    int entries = 0;
    const AuditReader::Take count = [&](const AuditEntry&) { ++entries; };
    AuditReader(connection).all({u"U7"_s, {}, {}, {}, {}}, count);
    EXPECT_EQ(entries, 40);
    AuditReader(connection).all({{}, {}, {}, QDate(2020, 6, 1), QDate(2020, 6, 2)}, count);
    EXPECT_EQ(entries, 40 + 48);
    connection.openRecordset(u"SELECT 1 FROM pg_stat_force_next_flush()"_s);
    const auto scans = [&](const QString& index) {
        return connection
            .openRecordset(
                u"SELECT idx_scan FROM pg_stat_user_indexes WHERE indexrelname = '%1'"_s.arg(index))
            .value(0)
            .toNumber({});
    };
    EXPECT_EQ(scans(u"ses_auditoria_usuario"_s), 1);
    EXPECT_EQ(scans(u"ses_auditoria_momento"_s), 1);
}

} // namespace
