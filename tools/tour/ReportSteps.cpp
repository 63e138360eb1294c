// The report part of the tour: choose a report, look at it, find, follow a line to its document, export; then
// the other reports. Each leaves its document and the picture of its first page.

#include "demo/lorbadeno/DocumentProgram.h"
#include "platform/quorvane32/session/Profile.h"
#include "platform/reportengine/output/PagePainter.h"
#include "platform/reportengine/viewer/ReportViewer.h"
#include "tools/tour/Screen.h"
#include "tools/tour/Tour.h"
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

namespace tour {

using namespace Qt::StringLiterals;
using quorvane::report::LayoutRun;
using quorvane::report::PageView;
using quorvane::report::ReportViewer;
using quorvane::report::ViewerDialogs;

namespace {

constexpr QSize viewerSize{1400, 800};
constexpr double pictureDpi = 100;
constexpr double pointsPerInch = 72;
const QString reportName = u"ComisionesVendedor"_s;
const QStringList otherReports{u"ResumenMensualVendedor"_s, u"DetalleCodigos"_s, u"ListaCodigos"_s};
const QString customer = u"ernst handel"_s;

/// The middle of the first detail line to be seen.
QPoint firstLine(PageView& view) {
    const quorvane::report::Definition& definition = view.pages()->definition();
    const std::shared_ptr<const quorvane::report::ShownPage> shown = view.pages()->page(view.currentPage());
    for (const quorvane::report::PlacedText& text : shown->texts) {
        const quorvane::report::Band& band = shown->page.bands[text.band];
        const QRect place =
            view.toViewport(view.geometryOfPages().toPixels({view.currentPage(), text.rect}, view.scroll()));
        if (definition.sections[band.section].kind == quorvane::report::SectionKind::Details &&
            view.viewport()->rect().contains(place))
            return place.center();
    }
    return {};
}

/// A page as on paper.
QImage pictureOfPage(quorvane::report::ReportPages& pages, int index) {
    constexpr double scale = pictureDpi / pointsPerInch;
    QImage picture((pages.pageSize() * scale).toSize(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    quorvane::report::PagePainter(pages.context()).paint(painter, pages.page(index)->page);
    return picture;
}

} // namespace

template<class Control> Control* Tour::inFront(const char* name) {
    QWidget* window = QApplication::activeModalWidget();
    auto* found = window ? window->findChild<Control*>(QLatin1StringView(name)) : nullptr;
    if (!found)
        fail(QLatin1StringView(name) + u" no está"_s);
    return found;
}

void Tour::addReportSteps() {
    addReportChoice(reportName, u"informe-elegido"_s, u"informe"_s);
    addStep(
        u"informe-vendedor"_s, [this] { goToThirdGroup(); }, &Tour::reportShown);
    addStep(
        u"informe-buscar"_s, [this] { findCustomer(); }, &Tour::customerFound);
    addStep(
        u"informe-documento"_s, [this] { openDocument(); }, &Tour::documentShown);
    addStep(
        u"informe-exportado"_s,
        [this] {
            m_documents.reset();
            exportReport(reportName);
        },
        &Tour::reportShown);
    addStep({}, [this] { leaveReport(); });
    for (const QString& name : otherReports) {
        addReportChoice(name, name + u"-elegido"_s, name);
        addStep(
            name + u"-exportado"_s, [this, name] { exportReport(name); }, &Tour::reportShown);
        addStep({}, [this] { leaveReport(); });
    }
    addStep(u"informe-cerrado"_s, [] {});
}

void Tour::addReportChoice(const QString& name, const QString& chosen, const QString& shown) {
    addStep(
        {}, [this] { clickButton(u"vprevia"_s); }, &Tour::anotherInFront);
    addStep(
        chosen, [this, name] { enterReport(name); }, &Tour::anotherInFront);
    addStep(
        {},
        [this] {
            if (auto* accept = inFront<QPushButton>("coAceptar"))
                QTest::mouseClick(accept, Qt::LeftButton);
        },
        &Tour::reportShown);
    addStep(
        shown, [this] { enlargeReport(); }, &Tour::reportShown);
}

bool Tour::reportShown() {
    QWidget* window = QApplication::activeModalWidget();
    const auto* viewer = window ? window->findChild<ReportViewer*>(u"CRViewer1"_s) : nullptr;
    return viewer && viewer->layoutRun().state() == LayoutRun::State::Complete && bringToFront(*window);
}

bool Tour::customerFound() {
    const QWidget* window = QApplication::activeModalWidget();
    const auto* message = window ? window->findChild<QLabel*>(u"findMessage"_s) : nullptr;
    return message && message->text().startsWith(u"Página");
}

bool Tour::documentShown() {
    return m_documentAsked && m_documents->window().windowTitle().contains(u" - ");
}

void Tour::enterReport(const QString& name) {
    auto* list = inFront<QComboBox>("cboReporte");
    auto* from = inFront<QWidget>("FecIni");
    auto* to = inFront<QWidget>("FecFin");
    if (!list || !from || !to)
        return;
    list->setCurrentIndex(list->findText(name));
    from->setFocus();
    type(u"01/07/1997"_s);
    to->setFocus();
    type(u"30/09/1997"_s);
}

void Tour::enlargeReport() {
    if (QWidget* window = QApplication::activeModalWidget())
        window->resize(viewerSize);
}

void Tour::goToThirdGroup() {
    auto* tree = inFront<QTreeView>("groups");
    if (!tree)
        return;
    if (tree->model()->rowCount() < 3)
        return fail(u"faltan los grupos"_s);
    const QModelIndex third = tree->model()->index(2, 0);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(third).center());
}

void Tour::findCustomer() {
    auto* viewer = inFront<ReportViewer>("CRViewer1");
    if (!viewer)
        return;
    viewer->pageView().setFocus();
    press(Qt::Key_F, Qt::ControlModifier);
    type(customer);
    press(Qt::Key_Return);
}

void Tour::openDocument() {
    auto* viewer = inFront<ReportViewer>("CRViewer1");
    if (!viewer)
        return;
    // In this process, so that it is in the picture and ends with the tour.
    m_documents = std::make_unique<dalvora::lorbadeno::DocumentProgram>(quorvane::Profile::defaultFolder());
    if (!m_documents->start())
        fail(u"el programa de documentos no pudo atender"_s);
    press(Qt::Key_Escape);
    QTest::mouseClick(viewer->pageView().viewport(), Qt::LeftButton, {}, firstLine(viewer->pageView()));
    m_documentAsked = true;
}

void Tour::leaveReport() {
    if (auto* leave = inFront<QAction>("arcSalir"))
        leave->trigger();
}

void Tour::exportReport(const QString& name) {
    auto* viewer = inFront<ReportViewer>("CRViewer1");
    if (!viewer)
        return;
    ViewerDialogs dialogs = ViewerDialogs::ofTheSystem();
    QString file = m_folder + u'/' + name + u".pdf"_s;
    dialogs.saveFile = [file](QWidget*, const ViewerDialogs::FileQuestion&) { return file; };
    viewer->setDialogs(dialogs);
    QFile::remove(file);
    viewer->findChild<QAction*>(u"exportPdf"_s)->trigger();
    if (QFileInfo(file).size() == 0)
        return fail(u"no se exportó el informe "_s + name);
    if (!pictureOfPage(*viewer->pageView().pages(), 0).save(m_folder + u'/' + name + u".png"_s))
        fail(u"no se pudo dibujar el informe "_s + name);
}

} // namespace tour
