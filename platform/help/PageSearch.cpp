#include "platform/help/PageSearch.h"

#include "platform/help/HelpFile.h"
#include "platform/help/HelpText.h"

#include <QRegularExpression>
#include <algorithm>

namespace help {

namespace {

constexpr int TitleWeight = 50;
constexpr int MostCounted = 6; // a long page is not better for naming a word everywhere
constexpr qsizetype ExcerptBefore = 45;
constexpr qsizetype ExcerptLength = 150;

} // namespace

PageSearch::PageSearch(const HelpFile& file) {
    for (const QString& name : file.pages()) {
        Page page;
        page.name = name;
        page.title = file.titleOf(name);
        page.text = plainText(file.html(name).value_or(QString()));
        page.foldedTitle = foldForSearch(page.title);
        page.foldedText = foldForSearch(page.text);
        m_pages.push_back(std::move(page));
    }
}

QStringList PageSearch::words(const QString& query) {
    static const QRegularExpression word(QStringLiteral("\"([^\"]+)\"|([^\\s\"]+)"));
    QStringList found;
    for (auto match = word.globalMatch(query); match.hasNext();) {
        const QRegularExpressionMatch one = match.next();
        const QString text = foldForSearch(one.captured(one.hasCaptured(1) ? 1 : 2).simplified());
        if (!text.isEmpty())
            found.append(text);
    }
    return found;
}

std::vector<SearchHit> PageSearch::find(const QString& query) const {
    const QStringList sought = words(query);
    std::vector<std::pair<int, const Page*>> found;
    for (const Page& page : m_pages) {
        if (const int points = sought.isEmpty() ? 0 : score(page, sought); points > 0)
            found.emplace_back(points, &page);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    std::vector<SearchHit> hits;
    hits.reserve(found.size());
    for (const auto& [points, page] : found)
        hits.push_back({page->name, page->title, excerpt(*page, sought.front())});
    return hits;
}

int PageSearch::score(const Page& page, const QStringList& words) {
    int points = 0;
    for (const QString& word : words) {
        const bool inTitle = page.foldedTitle.contains(word);
        const auto times = static_cast<int>(page.foldedText.count(word));
        if (!inTitle && times == 0)
            return 0;
        points += std::min(times, MostCounted) + (inTitle ? TitleWeight : 0);
    }
    return points;
}

QString PageSearch::excerpt(const Page& page, const QString& word) {
    const qsizetype found = std::max<qsizetype>(page.foldedText.indexOf(word), 0);
    qsizetype begin = std::max<qsizetype>(found - ExcerptBefore, 0);
    if (begin > 0)
        begin = page.text.indexOf(u' ', begin) + 1;
    qsizetype end = std::min(begin + ExcerptLength, page.text.size());
    if (end < page.text.size())
        end = std::max(page.text.lastIndexOf(u' ', end), std::min(found + word.size(), page.text.size()));
    const QString text = page.text.sliced(begin, end - begin);
    return (begin > 0 ? QStringLiteral("… ") : QString()) + text +
           (end < page.text.size() ? QStringLiteral(" …") : QString());
}

} // namespace help
