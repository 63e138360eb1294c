#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace help {

/// One line of a help file's contents or index: a title, the pages it leads to (a heading leads nowhere) and
/// the lines below it. Pages keep their anchor ("mensajes.html#grabar").
struct SitemapNode {
    QString title;
    QStringList pages;
    QStringList pageTitles; ///< as many as pages; empty where the file gives none
    std::vector<SitemapNode> children;
};

/// Reads a contents (.hhc) or index (.hhk) file: nested lists of objects of type text/sitemap. Whatever is
/// not understood is passed over; depth and number of lines are limited.
std::vector<SitemapNode> parseSitemap(const QString& source);

} // namespace help
