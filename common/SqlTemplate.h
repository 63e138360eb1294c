#pragma once

#include "platform/quorvane32/base/RegionalSettings.h"
#include "platform/quorvane32/base/Value.h"
#include <QString>
#include <QStringView>
#include <QVarLengthArray>

namespace dalvora {

/// A statement text whose placeholders (a name between two dollar signs, as in $Codigo$) have been found
/// once, so that a thousand statements of one form cost a thousand joins and no search. The text must outlive
/// the template: it is meant to be a literal next to the operation that sends it.
class SqlTemplate {
public:
    explicit SqlTemplate(QStringView text, Qt::CaseSensitivity matching = Qt::CaseInsensitive);

    QStringView text() const { return m_text; }

private:
    friend class SqlStatement;
    /// A stretch of fixed text and the placeholder behind it.
    struct Piece {
        QStringView fixed;
        int name = -1; ///< placeholders of one name share a number; -1 behind the last stretch
    };
    int nameNumber(QStringView name) const;

    QStringView m_text;
    Qt::CaseSensitivity m_matching;
    QVarLengthArray<Piece, 24> m_pieces;
    QVarLengthArray<QStringView, 24> m_names; ///< without dollar signs
    bool m_looseDollar = false;               ///< a dollar sign stands in fixed text
};

/// One statement in the making: a template and the texts of its placeholders. The result is that of replacing
/// each placeholder over the whole text in the order of the fills, so a filled text that itself reads like a
/// placeholder is replaced by a later fill of that name, and what no fill names stays as it is.
class SqlStatement {
public:
    /// The template and the settings must outlive the statement.
    SqlStatement(const SqlTemplate& form, const quorvane::RegionalSettings& regional);

    /// Fills with the SqlText of a value. Raises what SqlText raises.
    SqlStatement& fill(QStringView name, const quorvane::Value& value, quorvane::Kind code);
    /// Fills with a text as it stands.
    SqlStatement& fillText(QStringView name, const QString& text);

    QString text() const;

private:
    struct Fill {
        QStringView name;
        QString text;
    };
    QString joined() const;
    QString replacedInOrder() const;

    const SqlTemplate* m_form;
    const quorvane::RegionalSettings* m_regional;
    QVarLengthArray<Fill, 16> m_fills;
    QVarLengthArray<int, 24> m_fillOfName; ///< position in m_fills, -1 while not filled
    qsizetype m_unfilled;
    bool m_dollarFilled = false;
};

} // namespace dalvora
