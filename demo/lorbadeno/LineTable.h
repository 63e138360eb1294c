#pragma once

#include "demo/lorbadeno/StoredDocument.h"
#include "platform/quorvane32/base/RegionalSettings.h"
#include <QTableWidget>

namespace dalvora::lorbadeno {

/// The lines of a document, all of them in view: the sheet scrolls, not the table.
class LineTable : public QTableWidget {
public:
    LineTable(const StoredDocument& document, const quorvane::RegionalSettings& regional);
};

} // namespace dalvora::lorbadeno
