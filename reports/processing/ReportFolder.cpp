#include "reports/processing/ReportFolder.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QDir>
#include <QFileInfo>

namespace dalvora {

namespace {

constexpr QLatin1StringView extension(".rpt");

} // namespace

ReportFolder::ReportFolder(const QString& programFolder, const QString& programName)
    : m_folder(programFolder + QStringLiteral("/reportes/") + programName) {}

// The list takes an extension in any case; where the system tells file names apart by case, the file has to
// be asked for as it is called.
QString ReportFolder::definition(const QString& name) const {
    QString file = name + extension;
    if (!QFileInfo::exists(m_folder + u'/' + file))
        for (const QString& listed : files())
            if (listed.chopped(extension.size()) == name)
                file = listed;
    return m_folder + u'/' + file;
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
