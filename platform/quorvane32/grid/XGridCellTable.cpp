#include "platform/quorvane32/grid/XGridCellTable.h"

namespace quorvane {

namespace {

bool isLineEnd(QChar c) {
    return c == u'\n' || c == u'\r';
}

bool isCellEnd(QChar c) {
    return c == u'\t' || isLineEnd(c);
}

/// Walks over the text of a block, cell by cell.
class CellReader {
public:
    explicit CellReader(const QString& text) : m_text(text) {}

    bool atEnd() const { return m_at >= m_text.size(); }

    QString cell() {
        const qsizetype close = closingQuote();
        if (close < 0)
            return plainCell();
        QString cell = m_text.mid(m_at + 1, close - m_at - 1);
        m_at = close + 1;
        return cell.replace(QStringLiteral("\"\""), QStringLiteral("\""));
    }

    bool takeTab() {
        if (atEnd() || m_text[m_at] != u'\t')
            return false;
        ++m_at;
        return true;
    }

    void takeLineEnd() {
        if (atEnd())
            return;
        const QChar first = m_text[m_at++];
        if (first == u'\r' && !atEnd() && m_text[m_at] == u'\n')
            ++m_at;
    }

private:
    /// Where the quoted cell that begins here ends; -1 when this is no quoted cell.
    qsizetype closingQuote() const {
        if (atEnd() || m_text[m_at] != u'"')
            return -1;
        qsizetype quote = m_text.indexOf(u'"', m_at + 1);
        while (quote >= 0 && quote + 1 < m_text.size() && m_text[quote + 1] == u'"')
            quote = m_text.indexOf(u'"', quote + 2);
        if (quote < 0 || quote + 1 == m_text.size() || isCellEnd(m_text[quote + 1]))
            return quote;
        return -1;
    }

    QString plainCell() {
        const qsizetype start = m_at;
        while (!atEnd() && !isCellEnd(m_text[m_at]))
            ++m_at;
        return m_text.mid(start, m_at - start);
    }

    const QString& m_text;
    qsizetype m_at = 0;
};

bool needsQuotes(const QString& cell) {
    return cell.startsWith(u'"') || std::any_of(cell.begin(), cell.end(), isCellEnd);
}

QString cellText(QString cell) {
    if (!needsQuotes(cell))
        return cell;
    return u'"' + cell.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

} // namespace

QString cellTableText(const QList<QStringList>& table) {
    QString text;
    for (const QStringList& line : table) {
        for (qsizetype c = 0; c < line.size(); ++c) {
            if (c > 0)
                text += u'\t';
            text += cellText(line[c]);
        }
        text += u'\n';
    }
    return text;
}

QList<QStringList> cellTable(const QString& text) {
    QList<QStringList> table;
    CellReader reader(text);
    do {
        QStringList line{reader.cell()};
        while (reader.takeTab())
            line += reader.cell();
        reader.takeLineEnd();
        table += line;
    } while (!reader.atEnd());
    return table;
}

} // namespace quorvane
