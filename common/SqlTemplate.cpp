#include "common/SqlTemplate.h"
#include "common/SqlText.h"

namespace dalvora {

namespace {

bool isNameCharacter(QChar c) {
    return c.isLetterOrNumber() || c == u'_';
}

/// Length of the placeholder that starts at a dollar sign, 0 when none does.
qsizetype placeholderLength(QStringView text) {
    qsizetype end = 1;
    while (end < text.size() && isNameCharacter(text[end]))
        ++end;
    return end > 1 && end < text.size() && text[end] == u'$' ? end + 1 : 0;
}

} // namespace

SqlTemplate::SqlTemplate(QStringView text, Qt::CaseSensitivity matching)
    : m_text(text), m_matching(matching) {
    qsizetype fixedStart = 0;
    for (qsizetype i = 0; i < text.size();) {
        const qsizetype length = text[i] == u'$' ? placeholderLength(text.mid(i)) : 0;
        if (length == 0) {
            ++i;
            continue;
        }
        const QStringView name = text.mid(i + 1, length - 2);
        int number = nameNumber(name);
        if (number < 0) {
            number = static_cast<int>(m_names.size());
            m_names.append(name);
        }
        m_pieces.append({text.mid(fixedStart, i - fixedStart), number});
        i += length;
        fixedStart = i;
    }
    m_pieces.append({text.mid(fixedStart), -1});
    for (const Piece& piece : m_pieces)
        m_looseDollar = m_looseDollar || piece.fixed.contains(u'$');
}

int SqlTemplate::nameNumber(QStringView name) const {
    for (int i = 0; i < m_names.size(); ++i)
        if (m_names[i].size() == name.size() && m_names[i].compare(name, m_matching) == 0)
            return i;
    return -1;
}

SqlStatement::SqlStatement(const SqlTemplate& form, const quorvane::RegionalSettings& regional)
    : m_form(&form)
    , m_regional(&regional)
    , m_fillOfName(form.m_names.size(), -1)
    , m_unfilled(form.m_names.size()) {}

SqlStatement& SqlStatement::fill(QStringView name, const quorvane::Value& value, quorvane::Kind code) {
    return fillText(name, SqlText(value, code, *m_regional));
}

SqlStatement& SqlStatement::fillText(QStringView name, const QString& text) {
    const int number = m_form->nameNumber(name);
    // A second fill of a name finds nothing left to replace.
    if (number >= 0 && m_fillOfName[number] < 0) {
        m_fillOfName[number] = static_cast<int>(m_fills.size());
        --m_unfilled;
    }
    m_dollarFilled = m_dollarFilled || text.contains(u'$');
    m_fills.append({name, text});
    return *this;
}

QString SqlStatement::text() const {
    // Only a dollar sign that is no part of a filled placeholder can make one out of a filled text; without
    // any, joining gives what replacing in order would.
    const bool looseDollar = m_dollarFilled || m_unfilled > 0 || m_form->m_looseDollar;
    return looseDollar ? replacedInOrder() : joined();
}

QString SqlStatement::joined() const {
    const auto filled = [this](const SqlTemplate::Piece& piece) {
        return piece.name < 0 ? QStringView() : QStringView(m_fills[m_fillOfName[piece.name]].text);
    };
    qsizetype length = 0;
    for (const SqlTemplate::Piece& piece : m_form->m_pieces)
        length += piece.fixed.size() + filled(piece).size();
    QString text;
    text.reserve(length);
    for (const SqlTemplate::Piece& piece : m_form->m_pieces)
        text.append(piece.fixed).append(filled(piece));
    return text;
}

QString SqlStatement::replacedInOrder() const {
    QString text = m_form->m_text.toString();
    for (const Fill& fill : m_fills)
        text.replace(QString(u'$').append(fill.name).append(u'$'), fill.text, m_form->m_matching);
    return text;
}

} // namespace dalvora
