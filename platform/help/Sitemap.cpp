#include "platform/help/Sitemap.h"

#include "platform/help/HelpText.h"

namespace help {

namespace {

constexpr int DeepestLevel = 24;
constexpr int MostLines = 20000;

/// A tag of the source: its name in lower case and its text between the angle brackets.
struct Tag {
    QString name;
    QString text;
};

/// Gives the tags of the source one after the other; quotes around values may hold ">".
class TagReader {
public:
    explicit TagReader(const QString& source) : m_source(source) {}

    bool next(Tag& tag) {
        const qsizetype begin = m_source.indexOf(u'<', m_position);
        if (begin < 0)
            return false;
        qsizetype at = begin + 1;
        for (QChar quote; at < m_source.size(); ++at) {
            const QChar character = m_source[at];
            if (quote.isNull() && character == u'>')
                break;
            if (quote.isNull() && (character == u'"' || character == u'\''))
                quote = character;
            else if (character == quote)
                quote = QChar();
        }
        m_position = std::min(at + 1, m_source.size());
        tag.text = m_source.sliced(begin + 1, at - begin - 1);
        const auto isNamePart = [&tag](qsizetype i) {
            return tag.text[i].isLetterOrNumber() || tag.text[i] == u'/';
        };
        qsizetype end = 0;
        while (end < tag.text.size() && isNamePart(end))
            ++end;
        tag.name = tag.text.first(end).toLower();
        return true;
    }

private:
    const QString& m_source;
    qsizetype m_position = 0;
};

QString attribute(const QString& tag, QStringView name) {
    for (qsizetype at = tag.indexOf(name, 0, Qt::CaseInsensitive); at >= 0;
         at = tag.indexOf(name, at + 1, Qt::CaseInsensitive)) {
        qsizetype value = at + name.size();
        while (value < tag.size() && tag[value].isSpace())
            ++value;
        const bool stands = at > 0 && tag[at - 1].isSpace() && value < tag.size() && tag[value] == u'=';
        if (!stands)
            continue;
        for (++value; value < tag.size() && tag[value].isSpace();)
            ++value;
        const bool quoted = value < tag.size() && (tag[value] == u'"' || tag[value] == u'\'');
        const qsizetype begin = quoted ? value + 1 : value;
        const qsizetype end = quoted ? tag.indexOf(tag[value], begin) : tag.indexOf(u' ', begin);
        return resolveReferences(tag.sliced(begin, (end < 0 ? tag.size() : end) - begin)).trimmed();
    }
    return {};
}

/// Builds the tree from the tags, keeping for every open list the lines it collects.
class SitemapBuilder {
public:
    std::vector<SitemapNode> build(const QString& source) {
        TagReader reader(source);
        for (Tag tag; m_lines < MostLines && reader.next(tag);)
            take(tag);
        while (m_levels.size() > 1)
            closeList();
        return std::move(m_levels.front());
    }

private:
    void take(const Tag& tag) {
        if (tag.name == u"ul")
            openList();
        else if (tag.name == u"/ul")
            closeList();
        else if (tag.name == u"object")
            beginObject(tag);
        else if (tag.name == u"param" && m_inObject)
            takeParameter(attribute(tag.text, u"name").toLower(), attribute(tag.text, u"value"));
        else if (tag.name == u"/object")
            endObject();
    }

    void openList() {
        ++m_openLists;
        if (m_levels.size() < DeepestLevel)
            m_levels.emplace_back();
    }

    void closeList() {
        const bool beyondLimit = m_openLists-- > static_cast<int>(m_levels.size()) - 1;
        m_openLists = std::max(m_openLists, 0);
        if (beyondLimit || m_levels.size() < 2)
            return;
        std::vector<SitemapNode> lines = std::move(m_levels.back());
        m_levels.pop_back();
        // A list belongs to the line above it; the outermost list belongs to nobody.
        std::vector<SitemapNode>& above =
            m_levels.back().empty() ? m_levels.back() : m_levels.back().back().children;
        above.insert(above.end(), std::make_move_iterator(lines.begin()),
                     std::make_move_iterator(lines.end()));
    }

    void beginObject(const Tag& tag) {
        m_inObject = attribute(tag.text, u"type").compare(u"text/sitemap", Qt::CaseInsensitive) == 0;
        m_node = {};
        m_pendingTitle.clear();
    }

    // In an index the first name is the keyword and each later name the title of the page that follows it.
    void takeParameter(const QString& name, const QString& value) {
        if (name == u"name") {
            if (m_node.title.isEmpty())
                m_node.title = value;
            m_pendingTitle = value;
        } else if (name == u"local" && !value.isEmpty()) {
            m_node.pages.append(value);
            m_node.pageTitles.append(m_pendingTitle);
        }
    }

    void endObject() {
        if (m_inObject && !m_node.title.isEmpty()) {
            m_levels.back().push_back(std::move(m_node));
            ++m_lines;
        }
        m_inObject = false;
        m_node = {};
    }

    std::vector<std::vector<SitemapNode>> m_levels{1};
    int m_openLists = 0;
    int m_lines = 0;
    bool m_inObject = false;
    SitemapNode m_node;
    QString m_pendingTitle;
};

} // namespace

std::vector<SitemapNode> parseSitemap(const QString& source) {
    return SitemapBuilder().build(source);
}

} // namespace help
