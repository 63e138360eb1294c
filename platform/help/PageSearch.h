#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace help {

class HelpFile;

/// A page that a search found.
struct SearchHit {
    QString page;
    QString title;
    QString excerpt; ///< the text around the first word found
};

/// Finds words in all pages of a help file, without regard to case and accents. The pages' texts are taken
/// once, when it is made; a manual has tens of pages, so each search simply looks through them.
class PageSearch {
public:
    explicit PageSearch(const HelpFile& file);

    /// Pages that hold every word of `query`, the best first: words in the title count most, then how often
    /// they stand in the page. Words in double quotes are looked for as they stand.
    std::vector<SearchHit> find(const QString& query) const;

    /// The words that `query` looks for, folded.
    static QStringList words(const QString& query);

private:
    struct Page {
        QString name;
        QString title;
        QString text;
        QString foldedTitle;
        QString foldedText;
    };

    static int score(const Page& page, const QStringList& words);
    static QString excerpt(const Page& page, const QString& word);

    std::vector<Page> m_pages;
};

} // namespace help
