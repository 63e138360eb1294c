#pragma once

#include <QMap>
#include <QStringList>

namespace quorvane {

/// A connect string: pairs key=value separated by ";", keys compared without regard to case. Blanks
/// around keys and values do not count. A value that holds ";" or begins or ends with a blank stands in
/// braces, where "}" is doubled.
class ConnectString {
public:
    static ConnectString parse(const QString& text);

    QString value(const QString& key, const QString& fallback = {}) const;
    /// A whole number; the fallback for a value that is none or is missing.
    int number(const QString& key, int fallback) const;
    void setValue(const QString& key, const QString& value);
    /// In lower case, sorted.
    QStringList keys() const { return m_values.keys(); }
    QString toString() const;

private:
    QMap<QString, QString> m_values;
};

} // namespace quorvane
