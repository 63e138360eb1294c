// What the report viewer works on: laying out, finding out how far that is, copying, exporting, printing.

#include "platform/reportengine/viewer/FindBar.h"
#include "platform/reportengine/viewer/GroupTreeModel.h"
#include "platform/reportengine/viewer/NoticeBar.h"
#include "platform/reportengine/viewer/ReportViewer.h"
#include "platform/reportengine/viewer/ViewerBar.h"
#include "platform/reportengine/viewer/ViewerSearch.h"
#include "platform/reportengine/viewer/WorkBar.h"
#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QPointer>
#include <QPrinter>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTimer>
#include <QToolButton>

namespace quorvane::report {

using namespace Qt::StringLiterals;

namespace {

struct FormatNames {
    QStringView title;
    QStringView filter;
    QStringView suffix;
};

FormatNames namesOf(ViewerOutputs::Format format) {
    switch (format) {
    case ViewerOutputs::Format::Spreadsheet:
        return {u"Exportar a planilla de cálculo", u"Planilla de cálculo (*.xlsx)", u"xlsx"};
    case ViewerOutputs::Format::Csv:
        return {u"Exportar a texto separado", u"Texto separado (*.csv)", u"csv"};
    default:
        return {u"Exportar a PDF", u"Documento PDF (*.pdf)", u"pdf"};
    }
}

QString grouped(qint64 number) {
    return RegionalSettings().groupedText(static_cast<double>(number), 0);
}

QString counted(qint64 number, const QString& one, const QString& many) {
    return number == 1 ? u"1 "_s + one : grouped(number) + u' ' + many;
}

QString pagesText(qint64 pages) {
    return counted(pages, u"página"_s, u"páginas"_s);
}

/// A file name made of the report's title: what file systems do not take becomes a blank.
QString fileNameOf(const QString& title) {
    QString name = title.trimmed();
    for (QChar& character : name)
        if (character.unicode() < 0x20 || u"\\/:*?\"<>|"_s.contains(character))
            character = u' ';
    return name.simplified().isEmpty() ? u"Informe"_s : name.simplified();
}

} // namespace

void ReportViewer::tell(const QString& text) {
    if (m_status == text)
        return;
    m_status = text;
    Q_EMIT statusChanged(text);
}

void ReportViewer::layoutProgressed() {
    const bool first = m_view->geometryOfPages().count() == 0;
    m_view->pagesAdded();
    m_groups->update();
    m_search->pagesAdded(true);
    if (m_wantedPage >= 0 && m_wantedPage < m_pages->count())
        goTo(m_wantedPage);
    if (first && m_pages->count() > 0)
        showPages();
}

void ReportViewer::layoutEnded() {
    m_news->stop();
    m_work->done();
    m_search->pagesAdded(false);
    const LayoutRun::State state = m_run->state();
    if (state == LayoutRun::State::Complete)
        m_view->pagesChanged();
    m_view->setEmptyText(u"El informe no tiene páginas listas."_s);
    if (m_wantedPage >= 0)
        goTo(m_wantedPage);
    showPages();
    showProgress();
    const QString ready = pagesText(m_pages->count());
    if (state == LayoutRun::State::Failed)
        m_notice->showNotice(
            NoticeBar::Kind::Warning,
            u"El informe quedó incompleto: %1. Páginas que se alcanzaron a preparar: %2."_s.arg(
                m_run->error()->description(), grouped(m_pages->count())));
    else if (state == LayoutRun::State::Stopped && isVisible())
        m_notice->showNotice(NoticeBar::Kind::Warning,
                             u"Se detuvo la preparación del informe con %1."_s.arg(ready), u"&Continuar"_s,
                             [this] {
                                 m_notice->hide();
                                 m_run->start(m_report->layout());
                                 m_news->start();
                             });
    const std::function<void()> work = std::exchange(m_whenComplete, {});
    m_purpose.clear();
    if (work && state == LayoutRun::State::Complete)
        QTimer::singleShot(0, this, work);
}

void ReportViewer::showProgress() {
    if (!m_pages || m_outputs->isRunning())
        return;
    if (!m_run->isRunning()) {
        tell(m_run->state() == LayoutRun::State::Complete
                 ? pagesText(m_pages->count())
                 : u"Informe incompleto: "_s + pagesText(m_pages->count()));
        return;
    }
    showPage();
    const Layout& layout = m_report->layout();
    const bool counting = layout.rowsLaidOut() > 0;
    const QString step = counting ? u"Preparando páginas: "_s + grouped(layout.pageCount())
                                  : u"Leyendo filas: "_s + grouped(layout.rowsFetched());
    QString text = m_purpose.isEmpty() ? step : m_purpose + u" - "_s + step;
    if (m_wantedPage == PageView::lastPage)
        text += u" (se irá a la última)"_s;
    else if (m_wantedPage >= 0)
        text += u" (se irá a la %1)"_s.arg(m_wantedPage + 1);
    // Rows of a report that the database orders come as they are laid out: how many there are nobody knows.
    const bool known = counting && !m_report->definition().sortedBySource;
    m_work->showWork(text, layout.rowsLaidOut(), known ? layout.rowsFetched() : 0);
    tell(text);
}

bool ReportViewer::cancel() {
    if (m_outputs->isRunning()) {
        m_outputs->stop();
        return true;
    }
    if (m_search->cancel())
        return true;
    if (m_view->hasSelection()) {
        m_view->clearSelection();
        return true;
    }
    if (!m_run->isRunning())
        return false;
    m_run->stop();
    return true;
}

void ReportViewer::stop() {
    m_outputs->stop();
    m_whenComplete = {};
    m_run->stop();
}

void ReportViewer::enableOutputs() {
    const bool usable = m_pages && m_pages->count() > 0 && !m_outputs->isRunning();
    for (const QStringView name : {u"print", u"exportPdf", u"exportXlsx", u"exportCsv"})
        m_bar->action(name).setEnabled(usable);
    m_bar->findChild<QToolButton*>(u"export"_s)->setEnabled(usable);
    m_bar->action(u"copy").setEnabled(usable && m_view->hasSelection());
    m_bar->action(u"find").setEnabled(m_pages != nullptr);
}

void ReportViewer::copySelection() {
    try {
        QGuiApplication::clipboard()->setText(m_view->selectedText());
        tell(u"Copiado al portapapeles"_s);
    } catch (const RunTimeError& error) {
        m_notice->showNotice(NoticeBar::Kind::Warning, u"No se pudo copiar: "_s + error.description());
    }
}

void ReportViewer::withAllPages(const QString& purpose, std::function<void()> work) {
    if (m_run->state() == LayoutRun::State::Failed) {
        m_notice->showNotice(NoticeBar::Kind::Warning,
                             u"El informe está incompleto (%1): no se puede imprimir ni exportar."_s.arg(
                                 m_run->error()->description()));
        return;
    }
    if (m_pages->complete()) {
        work();
        return;
    }
    m_notice->hide();
    m_purpose = purpose;
    m_whenComplete = std::move(work);
    if (!m_run->isRunning())
        m_run->start(m_report->layout());
    m_news->start();
    showProgress();
}

void ReportViewer::exportAs(ViewerOutputs::Format format) {
    const FormatNames names = namesOf(format);
    if (m_folder.isEmpty())
        m_folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString suggestion =
        QDir(m_folder).filePath(fileNameOf(m_report->title()) + u'.' + names.suffix.toString());
    const QString path = m_dialogs.saveFile(
        this, {names.title.toString(), suggestion, names.filter.toString(), names.suffix.toString()});
    if (path.isEmpty())
        return;
    m_folder = QFileInfo(path).absolutePath();
    withAllPages(names.title.toString(), [this, format, path] { write(format, path); });
}

void ReportViewer::write(ViewerOutputs::Format format, const QString& path) {
    const QPointer<ReportViewer> self = this;
    if (!output(namesOf(format).title.toString(), [&] { return m_outputs->write(*m_pages, format, path); }) ||
        !self)
        return;
    tell(u"Exportado"_s);
    m_notice->showNotice(NoticeBar::Kind::Done, u"Se exportó a "_s + QDir::toNativeSeparators(path),
                         u"&Abrir"_s, [this, path] {
                             if (!m_dialogs.openFile(path))
                                 m_notice->showNotice(NoticeBar::Kind::Warning,
                                                      u"No hay un programa que abra "_s +
                                                          QDir::toNativeSeparators(path));
                         });
}

void ReportViewer::printerSetup(QWidget* owner) {
    const std::optional<QString> name = m_dialogs.choosePrinter(owner, m_printerName);
    if (!name || !m_report)
        return;
    m_printerName = *name;
    m_report->selectPrinter({}, m_printerName, {});
}

void ReportViewer::print() {
    withAllPages(u"Imprimir"_s, [this] {
        QPrinter printer(QPrinter::HighResolution);
        if (!m_printerName.isEmpty())
            printer.setPrinterName(m_printerName);
        printer.setDocName(m_report->title());
        printOn(printer);
    });
}

void ReportViewer::printOn(QPrinter& printer) {
    ViewerDialogs::Pages pages{1, m_pages->count()};
    if (!m_dialogs.print(this, printer, pages, m_view->currentPage() + 1))
        return;
    const QPointer<ReportViewer> self = this;
    if (output(u"Imprimiendo"_s,
               [&] { return m_outputs->print(*m_pages, printer, pages.first, pages.last); }) &&
        self)
        tell(u"Impreso"_s);
}

bool ReportViewer::output(const QString& text, const std::function<bool()>& work) {
    const QPointer<ReportViewer> self = this;
    m_notice->hide();
    const QMetaObject::Connection progress =
        connect(m_outputs, &ViewerOutputs::progressed, this, [this, text](int done, int total) {
            const QString how = u"%1: página %2 de %3"_s.arg(text, grouped(done), grouped(total));
            m_work->showWork(how, done, total);
            tell(how);
        });
    const auto over = qScopeGuard([&] {
        if (!self)
            return;
        disconnect(progress);
        m_work->done();
        enableOutputs();
        showProgress();
    });
    // The commands that would begin another output rest meanwhile.
    for (const QStringView name : {u"print", u"exportPdf", u"exportXlsx", u"exportCsv", u"copy"})
        m_bar->action(name).setEnabled(false);
    try {
        const bool whole = work();
        if (!whole && self)
            m_notice->showNotice(NoticeBar::Kind::Warning, text + u": se detuvo; no se escribió nada."_s);
        return whole;
    } catch (const RunTimeError& error) {
        if (self)
            m_notice->showNotice(NoticeBar::Kind::Warning, text + u": "_s + error.description());
        return false;
    }
}

} // namespace quorvane::report
