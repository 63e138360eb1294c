#include "platform/quorvane32/lookup/QueryFileParser.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/lookup/LookupErrors.h"
#include <QStringDecoder>
#include <algorithm>
#include <utility>

namespace quorvane {

namespace {

constexpr int widestColumn = 200;
constexpr int mostDecimals = 10;
constexpr QStringView numberFormat = u"numero";

template<class Result> struct Word {
    QStringView word;
    Result result;
};

constexpr Word<ParameterKind> parameterKinds[] = {
    {u"texto", ParameterKind::Text},
    {u"fecha", ParameterKind::Date},
    {u"numero", ParameterKind::Number},
};

constexpr Word<ColumnAlignment> alignments[] = {
    {u"izquierda", ColumnAlignment::Left},
    {u"centro", ColumnAlignment::Centre},
    {u"derecha", ColumnAlignment::Right},
};

template<class Result, size_t Count>
const Result* findWord(const Word<Result> (&words)[Count], QStringView text) {
    const auto found = std::find_if(std::begin(words), std::end(words), [&](const Word<Result>& word) {
        return text.compare(word.word, Qt::CaseInsensitive) == 0;
    });
    return found == std::end(words) ? nullptr : &found->result;
}

bool isName(QStringView text) {
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar c) {
        return c == u'_' || (c.unicode() < 0x80 && c.isLetterOrNumber());
    });
}

/// The pieces of a line between its "|", trimmed.
std::vector<QStringView> pieces(QStringView value) {
    std::vector<QStringView> list;
    for (const QStringView piece : value.split(u'|'))
        list.push_back(piece.trimmed());
    return list;
}

QStringView pieceAt(const std::vector<QStringView>& list, size_t index) {
    return index < list.size() ? list[index] : QStringView();
}

ColumnAlignment usualAlignment(ColumnFormat format) {
    switch (format) {
    case ColumnFormat::Date:
        return ColumnAlignment::Centre;
    case ColumnFormat::Number:
        return ColumnAlignment::Right;
    case ColumnFormat::Text:
        break;
    }
    return ColumnAlignment::Left;
}

} // namespace

void QueryFileParser::fail(int line, const QString& reason) const {
    throw RunTimeError(ErrorInvalidFileFormat,
                       QStringLiteral("El archivo de consultas '%1' está dañado. Línea %2: %3")
                           .arg(m_fileName)
                           .arg(line)
                           .arg(reason));
}

std::vector<QueryDefinition> QueryFileParser::parse(const QByteArray& bytes) {
    // Line by line, so that a wrong byte is reported where it stands.
    const QByteArray byteOrderMark("\xEF\xBB\xBF");
    const QByteArray body = bytes.startsWith(byteOrderMark) ? bytes.sliced(byteOrderMark.size()) : bytes;
    for (const QByteArray& raw : body.split('\n')) {
        ++m_line;
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString line = decoder(raw);
        if (decoder.hasError() || line.contains(QChar(u'\0')))
            fail(QStringLiteral("el texto no está en UTF-8"));
        readLine(line.endsWith(u'\r') ? line.chopped(1) : line);
    }
    checkQuery();
    if (m_queries.empty())
        fail(QStringLiteral("no hay ninguna consulta"));
    return std::move(m_queries);
}

void QueryFileParser::readLine(const QString& line) {
    const QStringView text = QStringView(line).trimmed();
    if (text.isEmpty() || text.startsWith(u';'))
        return;
    if (line.at(0).isSpace()) {
        if (!m_inStatement)
            fail(QStringLiteral("una línea con sangría sólo puede continuar una sentencia sql"));
        current().sql += u'\n' + text.toString();
        return;
    }
    m_inStatement = false;
    if (text.startsWith(u'['))
        beginQuery(text);
    else
        readEntry(line);
}

void QueryFileParser::beginQuery(QStringView header) {
    checkQuery();
    const QStringView name = header.sliced(1).chopped(header.endsWith(u']') ? 1 : 0).trimmed();
    if (!header.endsWith(u']') || !isName(name))
        fail(QStringLiteral("el nombre de una consulta va entre corchetes y sólo lleva letras sin acento, "
                            "dígitos y «_»"));
    const bool known = std::any_of(m_queries.begin(), m_queries.end(), [&](const QueryDefinition& query) {
        return name.compare(query.name, Qt::CaseInsensitive) == 0;
    });
    if (known)
        fail(QStringLiteral("la consulta '%1' está dos veces").arg(name));
    m_queries.emplace_back().name = name.toString();
    m_queryLine = m_line;
}

QueryDefinition& QueryFileParser::current() {
    if (m_queries.empty())
        fail(QStringLiteral("falta el nombre de la consulta entre corchetes"));
    return m_queries.back();
}

void QueryFileParser::readEntry(const QString& line) {
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 0)
        fail(QStringLiteral("falta el signo «=»"));
    const QStringView key = QStringView(line).first(equals).trimmed();
    const QStringView value = QStringView(line).sliced(equals + 1).trimmed();
    const auto is = [&](QStringView word) { return key.compare(word, Qt::CaseInsensitive) == 0; };
    if (is(u"titulo"))
        readText(current().title, key, value);
    else if (is(u"vacio"))
        readText(current().emptyText, key, value);
    else if (is(u"parametro"))
        readParameter(value);
    else if (is(u"columna"))
        readColumn(value);
    else if (is(u"devuelve"))
        readReturned(value);
    else if (is(u"sql")) {
        // The statement may begin on its own line or on the next one.
        if (!current().sql.isEmpty())
            fail(QStringLiteral("la sentencia sql está dos veces"));
        current().sql = value.toString();
        m_inStatement = true;
    } else
        fail(QStringLiteral("la palabra '%1' no se conoce").arg(key.left(40)));
}

void QueryFileParser::readText(QString& target, QStringView key, QStringView value) {
    if (!target.isEmpty())
        fail(QStringLiteral("'%1' está dos veces").arg(key));
    if (value.isEmpty())
        fail(QStringLiteral("'%1' está vacío").arg(key));
    target = value.toString();
}

void QueryFileParser::readParameter(QStringView value) {
    const std::vector<QStringView> parts = pieces(value);
    QueryParameter parameter;
    parameter.name = parts[0].toString();
    if (parts.size() > 3 || parameter.name.isEmpty())
        fail(QStringLiteral("un parámetro se escribe: nombre | tipo | valor cuando viene vacío"));
    if (const QStringView kind = pieceAt(parts, 1); !kind.isEmpty()) {
        const ParameterKind* known = findWord(parameterKinds, kind);
        if (!known)
            fail(QStringLiteral("el tipo de parámetro '%1' no se conoce").arg(kind.left(40)));
        parameter.kind = *known;
    }
    parameter.whenEmpty = pieceAt(parts, 2).toString();
    current().parameters.push_back(std::move(parameter));
}

void QueryFileParser::readColumn(QStringView value) {
    const std::vector<QStringView> parts = pieces(value);
    if (parts.size() < 3 || parts.size() > 5 || parts[0].isEmpty() || !isName(parts[1]))
        fail(QStringLiteral("una columna se escribe: título | campo | ancho | formato | alineación"));
    QueryColumn column;
    column.caption = parts[0].toString();
    column.field = parts[1].toString();
    bool numeric = false;
    column.width = parts[2].toInt(&numeric);
    if (!numeric || column.width < 1 || column.width > widestColumn)
        fail(QStringLiteral("el ancho de una columna va de 1 a %1 caracteres").arg(widestColumn));
    readFormat(column, pieceAt(parts, 3));
    column.alignment = usualAlignment(column.format);
    if (const QStringView word = pieceAt(parts, 4); !word.isEmpty()) {
        const ColumnAlignment* known = findWord(alignments, word);
        if (!known)
            fail(QStringLiteral("la alineación '%1' no se conoce").arg(word.left(40)));
        column.alignment = *known;
    }
    current().columns.push_back(std::move(column));
}

void QueryFileParser::readFormat(QueryColumn& column, QStringView format) {
    if (format.isEmpty() || format.compare(u"texto", Qt::CaseInsensitive) == 0)
        return;
    if (format.compare(u"fecha", Qt::CaseInsensitive) == 0) {
        column.format = ColumnFormat::Date;
        return;
    }
    if (!format.startsWith(numberFormat, Qt::CaseInsensitive))
        fail(QStringLiteral("el formato '%1' no se conoce").arg(format.left(40)));
    column.format = ColumnFormat::Number;
    const QStringView decimals = format.sliced(numberFormat.size()).trimmed();
    if (decimals.isEmpty())
        return;
    bool numeric = false;
    column.decimals = decimals.toInt(&numeric);
    if (!numeric || column.decimals < 0 || column.decimals > mostDecimals)
        fail(QStringLiteral("los decimales de un número van de 0 a %1").arg(mostDecimals));
}

void QueryFileParser::readReturned(QStringView value) {
    QueryDefinition& query = current();
    if (!query.returned.isEmpty())
        fail(QStringLiteral("'devuelve' está dos veces"));
    for (const QStringView field : pieces(value)) {
        if (!isName(field))
            fail(QStringLiteral("'devuelve' lleva los nombres de los campos separados por «|»"));
        query.returned += field.toString();
    }
}

void QueryFileParser::checkQuery() const {
    if (m_queries.empty())
        return;
    const QueryDefinition& query = m_queries.back();
    const auto missing = [&](QStringView what) {
        fail(m_queryLine, QStringLiteral("a la consulta '%1' le falta '%2'").arg(query.name, what));
    };
    if (query.title.isEmpty())
        missing(u"titulo");
    if (query.columns.empty())
        missing(u"columna");
    if (query.returned.isEmpty())
        missing(u"devuelve");
    if (query.sql.trimmed().isEmpty())
        missing(u"sql");
    checkStatement(query);
}

void QueryFileParser::checkStatement(const QueryDefinition& query) const {
    const auto declared = static_cast<int>(query.parameters.size());
    bool allDeclared = true;
    const auto check = [&](int number) { allDeclared = allDeclared && number >= 1 && number <= declared; };
    bool nothingQuoted = true;
    // A parameter becomes a finished literal: inside quotes it would never be filled.
    const auto checkQuotes = [&](QStringView text) {
        for (qsizetype i = 0; i < text.size(); ++i) {
            int number = 0;
            if (placeholderEnd(text, i, number) != i)
                nothingQuoted = false;
        }
    };
    if (!walkStatement(query.sql, checkQuotes, check))
        fail(m_queryLine, QStringLiteral("la sentencia de '%1' deja comillas sin cerrar").arg(query.name));
    if (!nothingQuoted)
        fail(m_queryLine,
             QStringLiteral("la sentencia de '%1' tiene un parámetro entre comillas o en un comentario")
                 .arg(query.name));
    if (!allDeclared)
        fail(m_queryLine,
             QStringLiteral("la sentencia de '%1' usa un parámetro sin declarar").arg(query.name));
}

} // namespace quorvane
