#include "platform/help/PageView.h"

#include "platform/help/HelpFile.h"
#include "platform/help/HelpText.h"

#include <QFontInfo>
#include <algorithm>

namespace help {

namespace {

constexpr auto Scheme = "chm";
constexpr int SmallestZoom = 70;
constexpr int NormalZoom = 100;
constexpr int LargestZoom = 250;
constexpr int MostMarks = 2000;
constexpr qreal PageMargin = 14;
constexpr int FaintMark = 70; // opacity of the marks that are not the current one, of 255

QUrl addressOf(const QString& page) {
    QUrl url;
    url.setScheme(QLatin1StringView(Scheme));
    url.setPath(u'/' + page.section(u'#', 0, 0));
    if (page.contains(u'#'))
        url.setFragment(page.section(u'#', 1));
    return url;
}

} // namespace

PageView::PageView(QWidget* parent) : QTextBrowser(parent) {
    setOpenExternalLinks(false);
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(tr("Página de la ayuda"));
    document()->setDocumentMargin(PageMargin);
}

void PageView::setFile(std::shared_ptr<const HelpFile> file) {
    m_file = std::move(file);
    clearHistory();
}

void PageView::showPage(const QString& page) {
    setSource(addressOf(page));
}

QString PageView::page() const {
    return source().path().sliced(std::min<qsizetype>(1, source().path().size()));
}

void PageView::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
    const QUrl address = source().resolved(name);
    if (address.scheme() != QLatin1StringView(Scheme)) {
        Q_EMIT linkRefused(name.toDisplayString());
        return;
    }
    m_marks.clear();
    m_currentMark = -1;
    setExtraSelections({});
    QTextBrowser::doSetSource(address,
                              type == QTextDocument::UnknownResource ? QTextDocument::HtmlResource : type);
    document()->setDocumentMargin(PageMargin);
}

// Without an answer the text document would look for the file on disk by itself, so what is refused is
// answered with nothing: a page must not draw files of the user's computer into the help.
QVariant PageView::loadResource(int type, const QUrl& name) {
    const QUrl address = source().resolved(name);
    if (!m_file || address.scheme() != QLatin1StringView(Scheme))
        return QByteArray("");
    const QString file = address.path();
    if (type == QTextDocument::HtmlResource)
        return m_file->html(file).value_or(missingPage(file));
    const QByteArray bytes = m_file->bytes(file).value_or(QByteArray(""));
    if (type != QTextDocument::StyleSheetResource || bytes.isEmpty())
        return bytes;
    // The page is set in the font of the program around it.
    return QString(decodeText(bytes) +
                   QStringLiteral("\nbody { font-family: \"%1\"; }").arg(font().family()));
}

QString PageView::missingPage(const QString& name) {
    return QStringLiteral("<html><head><title>%1</title></head><body><h2>%1</h2><p>%2</p></body></html>")
        .arg(tr("Página no encontrada"),
             tr("La ayuda no tiene la página «%1», o esa parte del archivo está dañada.")
                 .arg(name.sliced(std::min<qsizetype>(1, name.size())).toHtmlEscaped()));
}

int PageView::mark(const QStringList& words) {
    m_marks.clear();
    m_currentMark = -1;
    const QString text = foldForSearch(document()->toPlainText());
    for (const QString& word : words) {
        for (qsizetype at = word.isEmpty() ? -1 : text.indexOf(word); at >= 0 && m_marks.size() < MostMarks;
             at = text.indexOf(word, at + word.size())) {
            QTextCursor cursor(document());
            cursor.setPosition(static_cast<int>(at));
            cursor.setPosition(static_cast<int>(at + word.size()), QTextCursor::KeepAnchor);
            m_marks.append(cursor);
        }
    }
    std::sort(m_marks.begin(), m_marks.end());
    if (goToMark(true) == 0)
        showMarks();
    return static_cast<int>(m_marks.size());
}

int PageView::goToMark(bool forward) {
    if (m_marks.isEmpty())
        return 0;
    const qsizetype count = m_marks.size();
    m_currentMark =
        m_currentMark < 0 ? (forward ? 0 : count - 1) : (m_currentMark + (forward ? 1 : count - 1)) % count;
    QTextCursor place = m_marks.at(m_currentMark);
    place.clearSelection();
    setTextCursor(place);
    ensureCursorVisible();
    showMarks();
    return static_cast<int>(m_currentMark) + 1;
}

void PageView::showMarks() {
    QList<QTextEdit::ExtraSelection> selections;
    for (qsizetype at = 0; at < m_marks.size(); ++at) {
        QTextEdit::ExtraSelection selection;
        selection.cursor = m_marks.at(at);
        QColor background = palette().color(QPalette::Active, QPalette::Highlight);
        if (at == m_currentMark)
            selection.format.setForeground(palette().color(QPalette::Active, QPalette::HighlightedText));
        else
            background.setAlpha(FaintMark);
        selection.format.setBackground(background);
        selections.append(selection);
    }
    setExtraSelections(selections);
}

void PageView::setZoom(int percent) {
    if (m_zoom == NormalZoom)
        m_normalSize = QFontInfo(font()).pointSizeF();
    m_zoom = std::clamp(percent, SmallestZoom, LargestZoom);
    QFont sized = font();
    sized.setPointSizeF(m_normalSize * m_zoom / NormalZoom);
    setFont(sized);
}

} // namespace help
