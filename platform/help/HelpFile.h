#pragma once

#include "platform/help/ChmArchive.h"
#include "platform/help/Sitemap.h"

#include <QHash>
#include <vector>

namespace help {

/// One compiled help file as its reader sees it: title, contents, index, pages and context numbers. It knows
/// nothing of windows, and whatever a damaged file holds it stays usable or fails in the constructor.
class HelpFile {
public:
    /// Opens and reads `path`. Raises quorvane::RunTimeError: 53 missing, 70 not readable, 321 damaged or not
    /// a help file.
    explicit HelpFile(const QString& path);

    const QString& path() const { return m_path; }
    const QString& title() const { return m_title; }
    /// The page shown first; every help file that opens has one.
    const QString& homePage() const { return m_home; }
    const std::vector<SitemapNode>& contents() const { return m_contents; }
    const std::vector<SitemapNode>& index() const { return m_index; }
    /// Names of the HTML pages, without a leading "/".
    const QStringList& pages() const { return m_pages; }

    bool hasPage(const QString& page) const;
    /// The page that a context number stands for, empty when there is none.
    QString pageForContext(quint32 context) const { return m_contexts.value(context); }
    /// The page's HTML as text, nothing when it is missing or damaged. Anchors are cut off.
    std::optional<QString> html(const QString& page) const;
    /// The page's own title, else its title in the contents, else its name.
    QString titleOf(const QString& page) const;
    /// Any file inside (picture, style sheet) as stored.
    std::optional<QByteArray> bytes(const QString& name) const { return m_archive.read(name); }

private:
    struct SystemNames {
        QString contents;
        QString index;
    };

    SystemNames readSystem();
    std::vector<SitemapNode> readSitemap(const QString& name, QStringView ending) const;
    void readContexts();
    void collectPages();
    void chooseHome();
    QString pageNamed(const QString& path) const;

    QString m_path;
    ChmArchive m_archive;
    QString m_title;
    QString m_home;
    std::vector<SitemapNode> m_contents;
    std::vector<SitemapNode> m_index;
    QStringList m_pages;
    QHash<quint32, QString> m_contexts;
};

} // namespace help
