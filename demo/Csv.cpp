#include "demo/Csv.h"

#include "platform/quorvane32/base/RunTimeError.h"

namespace dalvora::demo {

namespace {

/// Reads records one after the other from the whole text.
class CsvReader {
public:
    explicit CsvReader(const QString& text) : m_text(text) {}

    bool atEnd() const { return m_position >= m_text.size(); }

    QStringList record() {
        QStringList fields;
        while (true) {
            fields.append(field());
            if (atEnd() || m_text[m_position] == u'\n')
                break;
            ++m_position; // the comma
        }
        ++m_position;
        return fields;
    }

private:
    QString field() {
        if (!atEnd() && m_text[m_position] == u'"')
            return quotedField();
        const qsizetype start = m_position;
        while (!atEnd() && m_text[m_position] != u',' && m_text[m_position] != u'\n')
            ++m_position;
        return m_text.mid(start, m_position - start).trimmed();
    }

    QString quotedField() {
        QString value;
        for (++m_position; !atEnd(); ++m_position) {
            if (m_text[m_position] == u'"') {
                ++m_position;
                if (atEnd() || m_text[m_position] != u'"')
                    return value.trimmed();
            }
            value.append(m_text[m_position]);
        }
        quorvane::raise(quorvane::ErrorTypeMismatch);
    }

    const QString& m_text;
    qsizetype m_position = 0;
};

} // namespace

CsvTable CsvTable::parse(const QByteArray& utf8) {
    const QString text = QString::fromUtf8(utf8).remove(u'\r');
    CsvReader reader(text);
    CsvTable table;
    table.m_names = reader.record();
    while (!reader.atEnd()) {
        table.m_rows.push_back(reader.record());
        if (table.m_rows.back().size() != table.m_names.size())
            quorvane::raise(quorvane::ErrorTypeMismatch);
    }
    return table;
}

qsizetype CsvTable::column(const QString& name) const {
    const qsizetype position = m_names.indexOf(name);
    if (position < 0)
        quorvane::raise(quorvane::ErrorItemNotFound);
    return position;
}

} // namespace dalvora::demo
