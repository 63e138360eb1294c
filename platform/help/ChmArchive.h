#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>

namespace help {

/// The files inside a compiled help file (.chm). It reads the directory itself, front to back and with every
/// offset checked, because a damaged or hostile file must never crash or hang the program: links between
/// directory pages, which can form rings, are not followed at all. The whole file is held in memory (a manual
/// is small; more than 64 MiB is refused).
class ChmArchive {
public:
    /// Opens `path`. Raises 53 missing, 70 not readable, 321 damaged or not a help file.
    explicit ChmArchive(const QString& path);

    /// Names of all files inside, in the order of the directory, each with its leading "/".
    const QStringList& names() const { return m_names; }
    bool contains(const QString& name) const { return m_entries.contains(key(name)); }
    /// The content of one file (name in any case, with or without the leading "/"); nothing when there is no
    /// such file or its part of the archive is damaged.
    std::optional<QByteArray> read(const QString& name) const;

private:
    struct Entry {
        quint64 section = 0;
        quint64 offset = 0;
        quint64 length = 0;
    };

    static QString key(const QString& name);
    bool parse();
    bool parseDirectory(qsizetype offset, quint64 length);
    void parseChunk(QByteArrayView chunk);
    void unpack();

    QByteArray m_file;
    QByteArray m_unpacked;
    qsizetype m_contentOffset = 0;
    QHash<QString, Entry> m_entries;
    QStringList m_names;
    QList<bool> m_goodBlocks;
};

} // namespace help
