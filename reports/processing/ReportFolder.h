#pragma once

#include <QString>
#include <QStringList>
#include <array>

namespace dalvora {

/// The folder that holds the report definitions of a program: "reportes" beside the program, and in it one
/// folder a program.
class ReportFolder {
public:
    ReportFolder(const QString& programFolder, const QString& programName);

    /// Path of the definition of a name, its extension in the case that the file has it in.
    QString definition(const QString& name) const;
    /// File names of the definitions there, extension in any case, in the order that folders are listed in:
    /// by name without regard to case.
    QStringList files() const;

private:
    QString m_folder;
};

/// The names of the reports of a program, in a list of fixed room.
class ReportNames {
public:
    static constexpr int room = 51;

    /// Takes the names of definition files, without what follows the last ".". Error 9 at the 52nd file and 5
    /// at a file without a "."; the names before it stay.
    void take(const QStringList& files);
    /// "" outside the list.
    QString at(int index) const;
    qint16 count() const { return m_count; }

private:
    std::array<QString, room> m_names;
    qint16 m_count = 0;
};

} // namespace dalvora
