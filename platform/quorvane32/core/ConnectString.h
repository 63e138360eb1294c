#pragma once

#include <QMap>
#include <QString>

namespace quorvane {

/// A connect string: pairs key=value separated by ";", keys compared without regard to case. A value that
/// holds
/// ";" stands in braces, where "}" is doubled.
class ConnectString {
public:
    static ConnectString parse(const QString& text);

    QString value(const QString& key, const QString& fallback = {}) const;
    void setValue(const QString& key, const QString& value);
    QString toString() const;

private:
    QMap<QString, QString> m_values;
};

} // namespace quorvane
