#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace quorvane {

/// A block of cells as spreadsheets exchange it: cells apart by tabs, lines by line ends, and a cell that
/// holds either (or a quote at its start) in double quotes with its own quotes doubled.
QString cellTableText(const QList<QStringList>& table);

/// Reads such a text; lines may have different lengths. A quote that opens no quoted cell is plain text. The
/// line end behind the last line makes no further line; the empty text gives one empty cell.
QList<QStringList> cellTable(const QString& text);

} // namespace quorvane
