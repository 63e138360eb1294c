#include "platform/help/HelpFile.h"

#include "platform/help/ByteReader.h"
#include "platform/help/HelpText.h"
#include "platform/quorvane32/base/RunTimeError.h"

#include <QDir>
#include <QFileInfo>
#include <functional>

namespace help {

namespace {

constexpr qsizetype LargestPage = 8'388'608; // bytes

// Codes of the records in the file's system part.
constexpr quint16 ContentsRecord = 0;
constexpr quint16 IndexRecord = 1;
constexpr quint16 HomeRecord = 2;
constexpr quint16 TitleRecord = 3;

QString withoutAnchor(const QString& page) {
    return page.section(u'#', 0, 0);
}

QString textUpToNul(QByteArrayView bytes) {
    const qsizetype end = bytes.indexOf('\0');
    return decodeText(end < 0 ? bytes : bytes.first(end));
}

bool isPage(const QString& name) {
    return name.endsWith(u".html", Qt::CaseInsensitive) || name.endsWith(u".htm", Qt::CaseInsensitive);
}

QString titleInTree(const std::vector<SitemapNode>& nodes, const QString& page) {
    for (const SitemapNode& node : nodes) {
        if (!node.pages.isEmpty() && node.pages.front().compare(page, Qt::CaseInsensitive) == 0)
            return node.title;
        QString below = titleInTree(node.children, page);
        if (!below.isEmpty())
            return below;
    }
    return {};
}

} // namespace

HelpFile::HelpFile(const QString& path) : m_path(path), m_archive(path) {
    collectPages();
    const SystemNames names = readSystem();
    m_contents = readSitemap(names.contents, u".hhc");
    m_index = readSitemap(names.index, u".hhk");
    readContexts();
    chooseHome();
    if (m_title.isEmpty())
        m_title = QFileInfo(path).completeBaseName();
}

void HelpFile::collectPages() {
    for (const QString& name : m_archive.names()) {
        if (isPage(name))
            m_pages.append(name.sliced(1));
    }
}

HelpFile::SystemNames HelpFile::readSystem() {
    SystemNames names;
    const QByteArray system = m_archive.read(QStringLiteral("/#SYSTEM")).value_or(QByteArray());
    ByteReader reader(system);
    reader.skip(4);
    while (reader.ok()) {
        const quint16 code = reader.u16();
        const QString text = textUpToNul(reader.take(reader.u16()));
        if (!reader.ok())
            break;
        if (code == ContentsRecord)
            names.contents = text;
        else if (code == IndexRecord)
            names.index = text;
        else if (code == HomeRecord)
            m_home = text;
        else if (code == TitleRecord)
            m_title = text;
    }
    return names;
}

// The system part names the contents and the index; without it the first file with the right ending serves.
std::vector<SitemapNode> HelpFile::readSitemap(const QString& name, QStringView ending) const {
    QString chosen = name;
    for (const QString& candidate : m_archive.names()) {
        if (m_archive.contains(chosen) && !chosen.isEmpty())
            break;
        if (candidate.endsWith(ending, Qt::CaseInsensitive))
            chosen = candidate;
    }
    const QByteArray source = m_archive.read(chosen).value_or(QByteArray());
    return parseSitemap(decodeText(QByteArrayView(source).first(std::min(source.size(), LargestPage))));
}

// Context numbers: pairs of number and position of a page name in the string table. The compiler puts the
// folder of its sources before the name, so only the last part of it counts.
void HelpFile::readContexts() {
    const QByteArray table = m_archive.read(QStringLiteral("/#IVB")).value_or(QByteArray());
    const QByteArray strings = m_archive.read(QStringLiteral("/#STRINGS")).value_or(QByteArray());
    ByteReader reader(table);
    for (quint32 left = reader.u32() / 8; left > 0 && reader.ok(); --left) {
        const quint32 context = reader.u32();
        const quint32 position = reader.u32();
        if (!reader.ok() || position >= static_cast<quint64>(strings.size()))
            continue;
        const QString page = pageNamed(textUpToNul(QByteArrayView(strings).sliced(position)));
        if (!page.isEmpty())
            m_contexts.insert(context, page);
    }
}

QString HelpFile::pageNamed(const QString& path) const {
    const QString file = path.section(u'/', -1).section(u'\\', -1);
    for (const QString& page : m_pages) {
        if (page.section(u'/', -1).compare(file, Qt::CaseInsensitive) == 0)
            return page;
    }
    return {};
}

void HelpFile::chooseHome() {
    if (!hasPage(m_home)) {
        const bool listed = !m_contents.empty() && !m_contents.front().pages.isEmpty();
        m_home = listed ? m_contents.front().pages.front() : QString();
    }
    if (!hasPage(m_home))
        m_home = m_pages.value(0);
    if (!html(m_home))
        throw quorvane::RunTimeError(quorvane::ErrorFileFormat,
                                     QStringLiteral("El archivo de ayuda %1 está dañado: no se puede leer "
                                                    "su primera página")
                                         .arg(QDir::toNativeSeparators(m_path)));
}

bool HelpFile::hasPage(const QString& page) const {
    return !page.isEmpty() && isPage(withoutAnchor(page)) && m_archive.contains(withoutAnchor(page));
}

std::optional<QString> HelpFile::html(const QString& page) const {
    if (!hasPage(page))
        return std::nullopt;
    const auto stored = m_archive.read(withoutAnchor(page));
    if (!stored || stored->size() > LargestPage)
        return std::nullopt;
    return decodeText(*stored);
}

QString HelpFile::titleOf(const QString& page) const {
    QString own = pageTitle(html(page).value_or(QString()));
    if (!own.isEmpty())
        return own;
    QString listed = titleInTree(m_contents, page);
    return listed.isEmpty() ? withoutAnchor(page) : listed;
}

} // namespace help
