#pragma once

#include <QFile>
#include <QString>
#include <QTemporaryDir>

/// Style files for tests: the shipped one and changed copies of it in a folder of their own.
class StyleFiles {
public:
    static QString shipped() { return QStringLiteral(STYLES_FOLDER "/Office2007.cjstyles"); }
    static QString section() { return QStringLiteral("LightBlue.ini"); }

    static QByteArray shippedText() {
        QFile file(shipped());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Writes a file with this content and tells its path.
    QString write(const QByteArray& content) const {
        QFile file(m_folder.filePath(QStringLiteral("test.cjstyles")));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("cannot write a test file");
        return file.fileName();
    }

    /// The shipped file with the first line that starts with the key replaced.
    QString writeWith(const QByteArray& key, const QByteArray& line) const {
        QList<QByteArray> lines = shippedText().split('\n');
        for (QByteArray& candidate : lines) {
            if (candidate.startsWith(key)) {
                candidate = line;
                break;
            }
        }
        return write(lines.join('\n'));
    }

    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};
