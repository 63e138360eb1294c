#pragma once

#include <QString>

namespace quorvane {
class ConnectString;
}

namespace quorvane::postgres {

/// What the server's client library is told about a session beside its address, as a text of pairs key=value:
/// times, day-month-year dates, encryption, and the read-only mode that a profile may ask for. Holds no ";".
QString librarySettings(const ConnectString& options);

} // namespace quorvane::postgres
