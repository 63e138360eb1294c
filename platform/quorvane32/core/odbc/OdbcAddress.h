#pragma once

#include <QString>
#include <vector>

namespace quorvane {
class ConnectString;
}

namespace quorvane::odbc {

/// The text of pairs keyword=value by which the ODBC driver manager finds a driver and the driver its server.
class OdbcAddress {
public:
    /// How a driver ends a value in braces: most read "}}" as one "}"; FreeTDS takes every "}" as it stands
    /// and ends the value at "};".
    enum class Braces : quint8 { Doubled, Plain };
    explicit OdbcAddress(Braces braces) : m_braces(braces) {}

    /// An empty value is left out. Error 5 for one that the driver could not be given without reading a
    /// keyword out of it.
    void add(const QString& keyword, const QString& value);
    /// Adds a profile's own text of further keywords, or changes those that are there; what names the driver
    /// and the user is not taken from it.
    void addAll(const QString& text);
    QString text() const;

private:
    struct Pair {
        QString keyword;
        QString value;
    };
    QString written(const Pair& pair) const;

    Braces m_braces;
    std::vector<Pair> m_pairs;
};

} // namespace quorvane::odbc
