#include "platform/quorvane32/base/SpanishText.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include <sqlite3.h>

namespace quorvane::sqlite {

namespace {

QByteArrayView bytesOf(int length, const void* data) {
    return {static_cast<const char*>(data), length};
}

int collate(void*, int lengthA, const void* a, int lengthB, const void* b) {
    return compareSpanishUtf8(bytesOf(lengthA, a), bytesOf(lengthB, b));
}

QString textOf(sqlite3_value* value) {
    const auto* data = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return QString::fromUtf8(data, sqlite3_value_bytes(value));
}

/// text LIKE pattern [ESCAPE c] reaches here as like(pattern, text [, c]).
void like(sqlite3_context* context, int count, sqlite3_value** arguments) {
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL)
        return;
    const QString escape = count > 2 ? textOf(arguments[2]) : QString();
    const bool matches =
        likeSpanish(textOf(arguments[0]), textOf(arguments[1]), escape.isEmpty() ? QChar() : escape.front());
    sqlite3_result_int(context, matches ? 1 : 0);
}

} // namespace

void registerFunctions(sqlite3* database) {
    sqlite3_create_collation(database, "ERP_ES", SQLITE_UTF8, nullptr, collate);
    for (const int arguments : {2, 3})
        sqlite3_create_function(database, "like", arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                like, nullptr, nullptr);
}

} // namespace quorvane::sqlite
