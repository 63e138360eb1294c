#pragma once

#include <QString>
#include <QTemporaryDir>

namespace dalvora::test {

/// A real file system of a few kilobytes, mounted while it lives. Not everybody may mount: a test asks first.
class SmallDisk {
public:
    explicit SmallDisk(int kilobytes);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool isMounted() const { return m_mounted; }
    QString path() const { return m_folder.path(); }
    /// Fills it to the last byte.
    void fill() const;
    void grow(int kilobytes);
    /// Makes the room that fill() took available again.
    void empty() const;

private:
    bool mountWith(int kilobytes, unsigned long flags) const;
    QString filler() const { return path() + QStringLiteral("/relleno"); }

    QTemporaryDir m_folder;
    bool m_mounted = false;
};

} // namespace dalvora::test
