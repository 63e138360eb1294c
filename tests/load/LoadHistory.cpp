#include "tests/load/LoadHistory.h"

namespace dalvora::test {

namespace {

// Control characters that no text of a run holds.
constexpr QChar betweenItems(0x1e);
constexpr QChar betweenParts(0x1f);
constexpr QChar lineBreak(0x1d);

QStringList items(const QString& text) {
    return text.isEmpty() ? QStringList() : text.split(betweenItems);
}

} // namespace

QByteArray toLine(const LoadOperation& operation) {
    QStringList cells;
    for (const LoadCell& cell : operation.cells)
        cells << cell.name + betweenParts + cell.value;
    QStringList messages;
    for (const Message& message : operation.messages)
        messages << QString::number(message.style) + betweenParts + message.text;
    const QStringList fields{QString::number(operation.client),
                             QString::number(static_cast<int>(operation.kind)),
                             operation.scheme,
                             QString::number(operation.start),
                             QString::number(operation.end),
                             QString::number(operation.done),
                             QString::number(operation.repeated),
                             operation.based,
                             operation.audit ? u'!' + *operation.audit : QString(),
                             cells.join(betweenItems),
                             messages.join(betweenItems),
                             operation.faults.join(betweenItems)};
    return fields.join(u'\t').replace(u'\n', lineBreak).toUtf8() + '\n';
}

LoadOperation fromLine(const QByteArray& line) {
    const QStringList fields = QString::fromUtf8(line).trimmed().replace(lineBreak, u'\n').split(u'\t');
    LoadOperation operation;
    operation.client = fields.value(0).toInt();
    operation.kind = static_cast<LoadKind>(fields.value(1).toInt());
    operation.scheme = fields.value(2);
    operation.start = fields.value(3).toLongLong();
    operation.end = fields.value(4).toLongLong();
    operation.done = fields.value(5) == u'1';
    operation.repeated = fields.value(6) == u'1';
    operation.based = fields.value(7);
    if (fields.value(8).startsWith(u'!'))
        operation.audit = fields.value(8).mid(1);
    for (const QString& cell : items(fields.value(9)))
        operation.cells.push_back({cell.section(betweenParts, 0, 0), cell.section(betweenParts, 1)});
    for (const QString& message : items(fields.value(10)))
        operation.messages.push_back(
            {message.section(betweenParts, 1), message.section(betweenParts, 0, 0).toInt()});
    operation.faults = items(fields.value(11));
    return operation;
}

} // namespace dalvora::test
