#include "reports/processing/ReportFolder.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QDir>

namespace dalvora {

ReportFolder::ReportFolder(const QString& programFolder, const QString& programName)
    : m_folder(programFolder + QStringLiteral("/reportes/") + programName) {}

QString ReportFolder::definition(const QString& name) const {
    return m_folder + u'/' + name + QStringLiteral(".rpt");
}

QStringList ReportFolder::files() const {
    return QDir(m_folder).entryList({QStringLiteral("*.RPT")}, QDir::Files, QDir::Name | QDir::IgnoreCase);
}

// The list has room for 51 names and no more: a 52nd definition stops the listing, and the program with it,
// rather than leave a report out unseen.
void ReportNames::take(const QStringList& files) {
    m_count = 0;
    m_names.fill({});
    for (const QString& file : files) {
        const qsizetype dot = file.lastIndexOf(u'.');
        if (dot < 0)
            quorvane::raise(quorvane::ErrorInvalidCall);
        if (m_count >= room)
            quorvane::raise(quorvane::ErrorSubscript);
        m_names[m_count++] = file.left(dot);
    }
}

QString ReportNames::at(int index) const {
    return index >= 0 && index < room ? m_names[index] : QString();
}

} // namespace dalvora
