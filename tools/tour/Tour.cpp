#include "tools/tour/Tour.h"
#include "demo/lorbadeno/DocumentProgram.h"
#include "forms/main/frmMain.h"
#include "tools/tour/WindowPicture.h"
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <cstdio>

namespace tour {

Tour::Tour(dalvora::frmMain& form, QString folder) : m_form(form), m_folder(std::move(folder)) {
    addReadingSteps();
    addEditingSteps();
    addRefusalSteps();
    addSalespeopleSteps();
    addReportSteps();
    addOtherWindowSteps();
}

Tour::~Tour() = default;

void Tour::addReadingSteps() {
    m_steps.push_back({QStringLiteral("inicio"), [] {}});
    m_steps.push_back({QStringLiteral("buscar-comision"), [this] {
                           m_form.controls().TxtCodigo->setFocus();
                           press(Qt::Key_F8);
                       }});
    m_steps.push_back({QStringLiteral("comision-leida"), [this] {
                           type(QStringLiteral("mixta"));
                           press(Qt::Key_Return);
                       }});
    m_steps.push_back({QStringLiteral("montos"), [this] { m_form.controls().SSTab1->setCurrentIndex(1); }});
    m_steps.push_back({QStringLiteral("precios"), [this] { m_form.controls().SSTab1->setCurrentIndex(2); }});
}

void Tour::addEditingSteps() {
    m_steps.push_back({QStringLiteral("celda-en-edicion"), [this] {
                           goToCell(0, 1, 6);
                           type(QStringLiteral("7,5"));
                       }});
    m_steps.push_back({QStringLiteral("lista-de-tipos"), [this] {
                           press(Qt::Key_Return);
                           goToCell(0, m_form.controls().XGrid->rows() - 1, 1);
                           press(Qt::Key_Down, Qt::AltModifier);
                       }});
    m_steps.push_back({QStringLiteral("buscar-producto"), [this] {
                           closeOpenWindow();
                           goToCell(0, m_form.controls().XGrid->rows() - 1, 1);
                           type(QStringLiteral("Producto"));
                           press(Qt::Key_Return);
                           goToCell(0, m_form.controls().XGrid->rows() - 1, 2);
                           QTimer::singleShot(0, this, [this] { press(Qt::Key_F8); });
                       }});
    m_steps.push_back({QStringLiteral("buscar-filtrando"), [this] { type(QStringLiteral("1")); }});
    m_steps.push_back({QStringLiteral("producto-elegido"), [this] { press(Qt::Key_Return); }});
}

void Tour::addRefusalSteps() {
    m_steps.push_back({QStringLiteral("valor-rechazado"), [this] {
                           goToCell(0, m_form.controls().XGrid->rows() - 1, 6);
                           type(QStringLiteral("150"));
                           QTimer::singleShot(0, this, [this] { press(Qt::Key_Return); });
                       }});
    m_steps.push_back({QStringLiteral("fila-completa"), [this] {
                           closeOpenWindow();
                           const int row = m_form.controls().XGrid->rows() - 1;
                           QTimer::singleShot(0, this, [this, row] {
                               goToCell(0, row, 6);
                               type(QStringLiteral("2,25"));
                               press(Qt::Key_Return);
                               goToCell(0, row, 7);
                               type(QStringLiteral("Neto"));
                               press(Qt::Key_Return);
                           });
                       }});
    m_steps.push_back({QStringLiteral("modificar-fechas"), [this] {
                           QTimer::singleShot(0, this,
                                              [this] { m_form.controls().menuItem(u"mnuModif").trigger(); });
                       }});
    m_steps.push_back({QStringLiteral("grabado"), [this] {
                           closeOpenWindow();
                           clickButton(QStringLiteral("grabar"));
                       }});
}

void Tour::addSalespeopleSteps() {
    m_steps.push_back({QStringLiteral("comision-por-asignar"), [this] {
                           activate();
                           m_form.controls().TxtCodigo->setFocus();
                           QTimer::singleShot(stepDelay / 3, this, [this] {
                               type(QStringLiteral("mixta"));
                               press(Qt::Key_Return);
                           });
                           press(Qt::Key_F8);
                       }});
    m_steps.push_back({QStringLiteral("vendedores"), [this] {
                           activate();
                           clickButton(QStringLiteral("cliente"));
                       }});
    m_steps.push_back({QStringLiteral("vendedores-marcados"), [this] {
                           press(Qt::Key_Tab);
                           press(Qt::Key_Space);
                           press(Qt::Key_Down);
                           press(Qt::Key_Down);
                           press(Qt::Key_Down, Qt::ShiftModifier);
                           press(Qt::Key_Down, Qt::ShiftModifier);
                           press(Qt::Key_L, Qt::ControlModifier);
                       }});
    m_steps.push_back(
        {QStringLiteral("comision-asignada"), [this] { press(Qt::Key_G, Qt::ControlModifier); }});
    m_steps.push_back({QStringLiteral("vendedores-cerrado"), [this] {
                           closeOpenWindow();
                           activate();
                       }});
}

void Tour::addOtherWindowSteps() {
    m_steps.push_back({QStringLiteral("leida-otra-vez"), [this] {
                           activate();
                           m_form.controls().TxtCodigo->setFocus();
                           QTimer::singleShot(stepDelay / 3, this, [this] {
                               type(QStringLiteral("campaña"));
                               press(Qt::Key_Return);
                           });
                           press(Qt::Key_F8);
                       }});
    m_steps.push_back({QStringLiteral("eliminar"), [this] {
                           activate();
                           clickButton(QStringLiteral("eliminar"));
                       }});
    m_steps.push_back({QStringLiteral("acerca-de"), [this] {
                           closeOpenWindow();
                           m_form.controls().menuItem(u"mnuAcercaDe").trigger();
                       }});
    m_steps.push_back({QStringLiteral("ayuda"), [this] {
                           closeOpenWindow();
                           clickButton(QStringLiteral("ayuda"));
                       }});
    m_steps.push_back({QStringLiteral("nuevo"), [this] {
                           closeOpenWindow();
                           clickButton(QStringLiteral("limpiar"));
                       }});
}

void Tour::start() {
    QTimer::singleShot(stepDelay, this, &Tour::next);
}

void Tour::next() {
    if (m_next == m_steps.size()) {
        Q_EMIT finished();
        return;
    }
    const Step& step = m_steps[m_next++];
    QTimer::singleShot(stepDelay, this, [this, name = step.picture] {
        takePicture(name);
        next();
    });
    step.play();
}

void Tour::takePicture(const QString& name) {
    if (!name.isEmpty())
        save(name, pictureOfScreen(m_form));
}

void Tour::addPicture(const QString& name, const QPixmap& picture) {
    save(name, picture);
}

void Tour::save(const QString& name, const QPixmap& picture) {
    const QString file =
        QStringLiteral("%1/%2-%3.png").arg(m_folder).arg(++m_pictures, 2, 10, QLatin1Char('0')).arg(name);
    if (!picture.save(file))
        fail(QStringLiteral("no se pudo escribir ") + file);
}

void Tour::fail(const QString& why) {
    std::fprintf(stderr, "paso %zu: %s\n", m_next, qPrintable(why));
    ++m_failures;
}

void Tour::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    if (QWidget* receiver = QApplication::focusWidget())
        QTest::keyClick(receiver, key, modifiers);
    else
        fail(QStringLiteral("nadie recibe la tecla %1").arg(key));
}

void Tour::type(const QString& text) {
    for (const QChar c : text) {
        QWidget* receiver = QApplication::focusWidget();
        if (!receiver) {
            fail(QStringLiteral("nadie recibe el texto ") + text);
            return;
        }
        QTest::sendKeyEvent(QTest::Click, receiver, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
}

void Tour::clickButton(const QString& key) {
    QToolBar& bar = *m_form.controls().Toolbar;
    QTest::mouseClick(bar.widgetForAction(&m_form.controls().button(key)), Qt::LeftButton);
}

void Tour::goToCell(int tab, int row, int column) {
    activate();
    m_form.controls().SSTab1->setCurrentIndex(tab);
    quorvane::XGrid& grid = *m_form.controls().grids()[static_cast<std::size_t>(tab)];
    grid.setFocus();
    grid.setRow(row);
    grid.setCol(column);
}

/// Closing another window leaves none active on a platform without a window manager.
void Tour::activate() {
    m_form.activateWindow();
    if (!QTest::qWaitForWindowActive(&m_form))
        fail(QStringLiteral("la ventana no está activa"));
}

void Tour::closeOpenWindow() {
    if (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    else if (QWidget* modal = QApplication::activeModalWidget())
        QTest::keyClick(modal, Qt::Key_Escape);
    else if (QWidget* window = QApplication::activeWindow(); window && window != &m_form)
        window->close();
}

} // namespace tour
