#pragma once

#include "tests/tds/ColumnType.h"
#include <QStringList>

namespace dalvora::test::tds {

/// What the server tells a client: an error (class 11 and above) or news.
struct ServerMessage {
    int number = 0;
    int severity = 16;
    int state = 1;
    QString text;
    int line = 1;
};

struct Column {
    QString name;
    ColumnType type;
};

/// Bits of a DONE.
enum DoneStatus : quint16 {
    DoneFinal = 0x00,
    DoneMore = 0x01,
    DoneError = 0x02,
    DoneInTransaction = 0x04,
    DoneCount = 0x10,
    DoneAttention = 0x20,
};

enum class Change : quint8 {
    Database = 1,
    Language = 2,
    PacketSize = 4,
    Collation = 7,
    Begin = 8,
    Commit = 9,
    Rollback = 10,
};

void writeMessage(ByteWriter& out, const ServerMessage& message);
void writeLoginAcknowledged(ByteWriter& out, int majorVersion);
void writeChange(ByteWriter& out, Change change, const QString& now, const QString& before);
/// The changes of a transaction: its number, 0 where none is or was.
void writeTransactionChange(ByteWriter& out, Change change, quint64 now, quint64 before);
void writeCollation(ByteWriter& out);
void writeColumns(ByteWriter& out, const std::vector<Column>& columns);
/// One row, in the form that spares NULLs when most of it is.
void writeRow(ByteWriter& out, const std::vector<Column>& columns,
              const std::vector<quorvane::Value>& values);
void writeDone(ByteWriter& out, int status, quint64 rows);

} // namespace dalvora::test::tds
