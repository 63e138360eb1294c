#include "platform/help/ChmHelpSystem.h"

#include "platform/help/HelpFile.h"
#include "platform/help/HelpText.h"
#include "platform/help/HelpViewer.h"
#include "platform/quorvane32/base/RunTimeError.h"

#include <QApplication>
#include <QFileInfo>
#include <QThread>

namespace help {

namespace {

[[noreturn]] void raiseNotUsable(const QString& reason) {
    throw quorvane::RunTimeError(ErrorViewerNotUsable,
                                 QStringLiteral("No se puede usar el visor de la ayuda: %1").arg(reason));
}

[[noreturn]] void raiseNoTopic(const QString& topic) {
    throw quorvane::RunTimeError(quorvane::ErrorItemNotFound,
                                 QStringLiteral("La ayuda no tiene el tema %1").arg(topic));
}

// A topic is a page of the file or a word of its index.
QString pageForTopic(const HelpFile& file, const QString& topic) {
    if (file.hasPage(topic))
        return topic;
    const QString sought = foldForSearch(topic.trimmed());
    for (const SitemapNode& word : file.index()) {
        if (!sought.isEmpty() && !word.pages.isEmpty() && foldForSearch(word.title) == sought)
            return word.pages.front();
    }
    raiseNoTopic(QStringLiteral("«%1»").arg(topic));
}

QString pageFor(const HelpFile& file, int command, const QVariant& data) {
    switch (command) {
    case DisplayTopic:
        return pageForTopic(file, data.toString());
    case ShowContext: {
        bool isNumber = false;
        QString page = file.pageForContext(data.toUInt(&isNumber));
        if (!isNumber || page.isEmpty())
            raiseNoTopic(data.toString());
        return page;
    }
    case DisplayContents:
    case DisplayIndex:
        return {};
    default:
        quorvane::raise(quorvane::ErrorInvalidCall);
    }
}

} // namespace

ChmHelpSystem::ChmHelpSystem() = default;
ChmHelpSystem::~ChmHelpSystem() = default;

// The place is looked up before the window changes: a failed call leaves what the user is reading.
void ChmHelpSystem::htmlHelp(const QString& file, int command, const QVariant& data) {
    const std::shared_ptr<const HelpFile> opened = fileAt(file);
    const QString page = pageFor(*opened, command, data);
    HelpViewer& viewer = usableViewer();
    viewer.setFile(opened);
    viewer.bringToFront();
    if (command == DisplayIndex)
        viewer.showIndex(data.toString());
    else if (command == DisplayContents)
        viewer.showContents();
    else
        viewer.openPage(page);
}

std::shared_ptr<const HelpFile> ChmHelpSystem::fileAt(const QString& path) {
    const QFileInfo info(path);
    if (!m_file || m_file->path() != path || m_fileTime != info.lastModified() || !info.exists()) {
        m_file = std::make_shared<HelpFile>(path);
        m_fileTime = info.lastModified();
    }
    return m_file;
}

HelpViewer& ChmHelpSystem::usableViewer() {
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
        raiseNotUsable(QStringLiteral("el programa no tiene ventanas"));
    if (QThread::currentThread() != QCoreApplication::instance()->thread())
        raiseNotUsable(QStringLiteral("solo se abre desde la ventana del programa"));
    try {
        if (!m_viewer)
            m_viewer = std::make_unique<HelpViewer>();
    } catch (const std::exception& failure) {
        raiseNotUsable(QString::fromLocal8Bit(failure.what()));
    }
    return *m_viewer;
}

} // namespace help
