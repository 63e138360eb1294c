// The report part of the tour: choose a report, look at it, find, follow a line to its document, export.

#include "demo/lorbadeno/DocumentProgram.h"
#include "platform/quorvane32/session/Profile.h"
#include "platform/reportengine/viewer/ReportViewer.h"
#include "tools/tour/Tour.h"
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFileInfo>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeView>

namespace tour {

using namespace Qt::StringLiterals;
using quorvane::report::PageView;
using quorvane::report::ReportViewer;
using quorvane::report::ViewerDialogs;

namespace {

constexpr QSize viewerSize{1400, 800};
const QString reportName = u"ComisionesVendedor"_s;
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

} // namespace

template<class Control> Control* Tour::inFront(const char* name) {
    QWidget* window = QApplication::activeModalWidget();
    auto* found = window ? window->findChild<Control*>(QLatin1StringView(name)) : nullptr;
    if (!found)
        fail(QLatin1StringView(name) + u" no está"_s);
    return found;
}

void Tour::addReportSteps() {
    m_steps.push_back({u"informe-elegido"_s, [this] {
                           activate();
                           clickButton(u"vprevia"_s);
                           QTimer::singleShot(stepDelay / 2, this, [this] { chooseReport(); });
                       }});
    m_steps.push_back({u"informe"_s, [this] {
                           QTimer::singleShot(stepDelay / 2, this, [] {
                               if (QWidget* viewer = QApplication::activeModalWidget())
                                   viewer->resize(viewerSize);
                           });
                           if (auto* accept = inFront<QPushButton>("coAceptar"))
                               QTest::mouseClick(accept, Qt::LeftButton);
                       }});
    m_steps.push_back({u"informe-vendedor"_s, [this] {
                           auto* tree = inFront<QTreeView>("groups");
                           if (!tree || tree->model()->rowCount() < 3)
                               return fail(u"faltan los grupos"_s);
                           QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                                             tree->visualRect(tree->model()->index(2, 0)).center());
                       }});
    m_steps.push_back({u"informe-buscar"_s, [this] {
                           auto* viewer = inFront<ReportViewer>("CRViewer1");
                           if (!viewer)
                               return;
                           viewer->pageView().setFocus();
                           press(Qt::Key_F, Qt::ControlModifier);
                           type(customer);
                           press(Qt::Key_Return);
                       }});
    m_steps.push_back({u"informe-documento"_s, [this] {
                           if (auto* viewer = inFront<ReportViewer>("CRViewer1")) {
                               // In this process, so that it is in the picture and ends with the tour.
                               m_documents = std::make_unique<dalvora::lorbadeno::DocumentProgram>(
                                   quorvane::Profile::defaultFolder());
                               m_documents->start();
                               press(Qt::Key_Escape);
                               QTest::mouseClick(viewer->pageView().viewport(), Qt::LeftButton, {},
                                                 firstLine(viewer->pageView()));
                           }
                       }});
    m_steps.push_back({u"informe-exportado"_s, [this] {
                           m_documents.reset();
                           exportReport();
                       }});
    m_steps.push_back({u"informe-cerrado"_s, [this] {
                           if (auto* leave = inFront<QAction>("arcSalir"))
                               leave->trigger();
                       }});
}

void Tour::chooseReport() {
    auto* list = inFront<QComboBox>("cboReporte");
    auto* from = inFront<QWidget>("FecIni");
    auto* to = inFront<QWidget>("FecFin");
    if (!list || !from || !to)
        return;
    list->setCurrentIndex(list->findText(reportName));
    from->setFocus();
    type(u"01/07/1997"_s);
    to->setFocus();
    type(u"30/09/1997"_s);
}

void Tour::exportReport() {
    auto* viewer = inFront<ReportViewer>("CRViewer1");
    if (!viewer)
        return;
    ViewerDialogs dialogs = ViewerDialogs::ofTheSystem();
    const QString file = m_folder + u"/informe.pdf"_s;
    dialogs.saveFile = [file](QWidget*, const ViewerDialogs::FileQuestion&) { return file; };
    viewer->setDialogs(dialogs);
    viewer->findChild<QAction*>(u"exportPdf"_s)->trigger();
    if (QFileInfo(file).size() == 0)
        fail(u"no se exportó el informe"_s);
}

} // namespace tour
