#include "data/Salespeople.h"
#include "common/SqlTemplate.h"
#include "common/SqlText.h"
#include "data/DBTable.h"
#include "data/SessionContext.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Session.h"
#include <algorithm>

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::Kind;

namespace {

constexpr QStringView readStatement = u"select * from gen_tabcod where tipo = 'gen_vendedor' "
                                      u" and empresa = '$EMPRESA$' ";

constexpr QStringView assignStatement = u"update gen_tabcod "
                                        u"set texto= '$Comision$' "
                                        u"Where empresa = '$EMPRESA$' "
                                        u"and codigo = '$Codigo$' and tipo='Gen_vendedor' ";

constexpr QStringView limitReached = u"No se pueden leer más CtasCtes\r\n"
                                     u"Debe integrar o filtrar para continuar leyendo";
constexpr int errorLimit = 513; ///< the first number that is a program's own; only its text is shown

/// Blanks only: a tab is a character that somebody typed.
QString withoutBlanks(const QString& text) {
    const auto isOther = [](QChar c) { return c != u' '; };
    const auto first = std::find_if(text.begin(), text.end(), isOther);
    const auto last = std::find_if(text.rbegin(), std::make_reverse_iterator(first), isOther).base();
    return QString(first, last - first);
}

QString condition(const QString& filter) {
    const QString prefix = withoutBlanks(filter);
    return prefix.isEmpty() ? QString() : u"and codigo like '"_s + prefix + u"%' "_s;
}

/// Doubled quotes stand for one; a single one would end the literal and let the rest of the code be read as
/// part of the statement.
bool staysWithinQuotes(QString text) {
    return !text.remove("''"_L1).contains(u'\'');
}

} // namespace

bool Salespeople::mayRead() const {
    return m_context.Session->AccessRights().startsWith(u'R');
}

void Salespeople::read(const QString& filter, std::vector<Salesperson>& people) const {
    const SqlTemplate form(readStatement, Qt::CaseSensitive);
    // The company's code stands as it is, too.
    const QString sql =
        SqlStatement(form, m_context.Regional).fillText(u"EMPRESA", m_context.Session->CompanyCode()).text();
    quorvane::Recordset rows = m_context.Connection->openRecordset(sql + condition(filter));
    if (rows.eof())
        return;
    const int fields[] = {rows.ordinal(u"Codigo"), rows.ordinal(u"Descripcion"), rows.ordinal(u"texto")};
    const auto field = [&](int number) {
        return FieldValue(rows.value(fields[number]), Kind::String, m_context.Regional)
            .toText(m_context.Regional);
    };
    for (; !rows.eof(); rows.moveNext()) {
        people.push_back({field(0), field(1), field(2)});
        // Asked after the row was taken: exactly as many as fit raise the error as well.
        if (people.size() >= most)
            throw quorvane::RunTimeError(errorLimit, limitReached.toString());
    }
}

QString Salespeople::schemeCode() const {
    return m_context.Table ? m_context.Table->Codigo() : QString();
}

void Salespeople::assign(const QString& scheme, const QString& salesperson) const {
    // The scheme's code goes into the statement as it stands, so one with a quote never was assignable; sent,
    // it could change other columns or other rows.
    if (!staysWithinQuotes(scheme))
        throw quorvane::RunTimeError(
            quorvane::ErrorRefusedStatement,
            u"El código de comisión «%1» tiene una comilla y no se puede asignar"_s.arg(scheme));
    static const SqlTemplate form(assignStatement, Qt::CaseSensitive);
    m_context.Connection->execute(SqlStatement(form, m_context.Regional)
                                      .fill(u"EMPRESA", m_context.Session->CompanyCode(), Kind::String)
                                      .fill(u"Codigo", salesperson, Kind::String)
                                      .fillText(u"Comision", scheme)
                                      .text());
}

} // namespace dalvora
