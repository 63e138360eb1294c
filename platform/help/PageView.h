#pragma once

#include <QTextBrowser>
#include <memory>

namespace help {

class HelpFile;

/// Shows one page of a help file and follows its links inside the file; nothing outside the file is ever
/// loaded or opened. Keeps the history for back and forward.
class PageView : public QTextBrowser {
    Q_OBJECT

public:
    explicit PageView(QWidget* parent = nullptr);

    void setFile(std::shared_ptr<const HelpFile> file);
    /// Shows `page`, which may carry an anchor ("mensajes.html#grabar").
    void showPage(const QString& page);
    /// Name of the page shown, without anchor.
    QString page() const;

    /// Marks every place where one of the folded `words` stands and goes to the first; returns how many there
    /// are. No words: no marks.
    int mark(const QStringList& words);
    /// Goes to the marked place after (or before) the current one, round the end; returns its number from 1,
    /// 0 when nothing is marked.
    int goToMark(bool forward);

    /// Size of the letters in percent of the normal one, 70 to 250.
    int zoom() const { return m_zoom; }
    void setZoom(int percent);

Q_SIGNALS:
    /// A link led outside the help file and was not followed.
    void linkRefused(const QString& address);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

private:
    void showMarks();
    static QString missingPage(const QString& name);

    std::shared_ptr<const HelpFile> m_file;
    QList<QTextCursor> m_marks;
    qsizetype m_currentMark = -1;
    int m_zoom = 100;
    qreal m_normalSize = 0; // points, taken when the first zoom starts
};

} // namespace help
