#pragma once

#include <QString>
#include <QStringList>

namespace dalvora {
class DBTable;
}

namespace dalvora::test {

class TestCompany;

/// A scheme that goes through numbered states. From one state to the next its description, its period and a
/// third of its percentages change, codes of lines change, lines go and lines come: every kind of statement
/// that a save sends. What a state is follows from its number alone, so a reader can tell one whole state
/// from a mixture of two.
class SchemeStates {
public:
    SchemeStates(QString code, int productLines) : m_code(std::move(code)), m_productLines(productLines) {}

    const QString& code() const { return m_code; }

    /// Stores the scheme in the given state, past the program.
    void store(const TestCompany& company, int state) const;
    /// Header and lines as the database holds them in a state, in the order of the texts.
    QStringList rows(int state) const;
    /// The same as they are stored now; nothing when the scheme is not there.
    QStringList storedRows(const TestCompany& company) const;
    /// The state that the stored header tells; -1 when there is none.
    int storedState(const TestCompany& company) const;

    /// Reads the scheme into the record as the window does; its state, or -1.
    int read(DBTable& table) const;
    /// Changes the record, which holds a state, into another one, as a user's entries would.
    void change(DBTable& table, int state) const;

private:
    struct Line {
        QString kind;
        QString code;
        QString text;
        int start = 0;
        int end = 0;
        int percentage = 0;
        QString subKind;
    };
    QList<Line> lines(int state) const;
    Line productLine(int place, int state) const;
    void changeProducts(DBTable& table, int state) const;

    QString m_code;
    int m_productLines;
};

} // namespace dalvora::test
