#include "tools/tour/Tour.h"
#include "demo/lorbadeno/DocumentProgram.h"
#include "forms/main/frmMain.h"
#include "tools/tour/Screen.h"
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <cstdio>

namespace tour {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto interval = 20ms;  // between two looks
constexpr auto settling = 150ms; // from the last change to the picture: carets and pointers come to rest
constexpr auto longest = 60s;    // for what a step brings about

} // namespace

Tour::Tour(dalvora::frmMain& form, QString folder) : m_form(form), m_folder(std::move(folder)) {
    addReadingSteps();
    addEditingSteps();
    addRefusalSteps();
    addSalespeopleSteps();
    addReportSteps();
    addOtherWindowSteps();
}

Tour::~Tour() = default;

void Tour::addStep(const QString& picture, std::function<void()> play, Condition shown) {
    m_steps.push_back({picture, std::move(play), shown});
}

void Tour::addClosing(const QString& picture) {
    addStep(picture, [this] { closeOpenWindow(); });
}

void Tour::addLookupSteps(const QString& lookup, const QString& filter, const QString& result) {
    addStep(
        lookup,
        [this] {
            m_form.controls().TxtCodigo->setFocus();
            press(Qt::Key_F8);
        },
        &Tour::anotherInFront);
    addStep(result, [this, filter] {
        type(filter);
        press(Qt::Key_Return);
    });
}

void Tour::addReadingSteps() {
    addStep(u"inicio"_s, [] {});
    addLookupSteps(u"buscar-comision"_s, u"mixta"_s, u"comision-leida"_s);
    addStep(u"montos"_s, [this] { m_form.controls().SSTab1->setCurrentIndex(1); });
    addStep(u"precios"_s, [this] { m_form.controls().SSTab1->setCurrentIndex(2); });
}

void Tour::addEditingSteps() {
    addStep(u"celda-en-edicion"_s, [this] {
        goToCell(1, 6);
        type(u"7,5"_s);
    });
    addStep(
        u"lista-de-tipos"_s,
        [this] {
            press(Qt::Key_Return);
            goToCell(lastRow(), 1);
            press(Qt::Key_Down, Qt::AltModifier);
        },
        &Tour::anotherInFront);
    addClosing();
    addStep({}, [this] {
        goToCell(lastRow(), 1);
        type(u"Producto"_s);
        press(Qt::Key_Return);
    });
    addStep(
        u"buscar-producto"_s,
        [this] {
            goToCell(lastRow(), 2);
            press(Qt::Key_F8);
        },
        &Tour::anotherInFront);
    addStep(
        u"buscar-filtrando"_s, [this] { type(u"1"_s); }, &Tour::anotherInFront);
    addStep(u"producto-elegido"_s, [this] { press(Qt::Key_Return); });
}

void Tour::addRefusalSteps() {
    addStep(
        u"valor-rechazado"_s,
        [this] {
            goToCell(lastRow(), 6);
            type(u"150"_s);
            press(Qt::Key_Return);
        },
        &Tour::anotherInFront);
    addClosing();
    addStep(u"fila-completa"_s, [this] {
        const int row = lastRow();
        goToCell(row, 6);
        type(u"2,25"_s);
        press(Qt::Key_Return);
        goToCell(row, 7);
        type(u"Neto"_s);
        press(Qt::Key_Return);
    });
    addStep(
        u"modificar-fechas"_s, [this] { m_form.controls().menuItem(u"mnuModif").trigger(); },
        &Tour::anotherInFront);
    addClosing();
    addStep(u"grabado"_s, [this] { clickButton(u"grabar"_s); });
}

void Tour::addSalespeopleSteps() {
    addLookupSteps({}, u"mixta"_s, u"comision-por-asignar"_s);
    addStep(
        u"vendedores"_s, [this] { clickButton(u"cliente"_s); }, &Tour::anotherInFront);
    addStep(
        u"vendedores-marcados"_s,
        [this] {
            press(Qt::Key_Tab);
            press(Qt::Key_Space);
            press(Qt::Key_Down);
            press(Qt::Key_Down);
            press(Qt::Key_Down, Qt::ShiftModifier);
            press(Qt::Key_Down, Qt::ShiftModifier);
            press(Qt::Key_L, Qt::ControlModifier);
        },
        &Tour::anotherInFront);
    addStep(
        u"comision-asignada"_s, [this] { press(Qt::Key_G, Qt::ControlModifier); }, &Tour::anotherInFront);
    addClosing(u"vendedores-cerrado"_s);
}

void Tour::addOtherWindowSteps() {
    addStep({}, [this] { clickButton(u"limpiar"_s); });
    addLookupSteps({}, u"campaña"_s, u"leida-otra-vez"_s);
    addStep(
        u"eliminar"_s, [this] { clickButton(u"eliminar"_s); }, &Tour::anotherInFront);
    addClosing();
    addStep(
        u"acerca-de"_s, [this] { m_form.controls().menuItem(u"mnuAcercaDe").trigger(); },
        &Tour::anotherInFront);
    addClosing();
    // The system's help is no window of this program.
    addStep(
        u"ayuda"_s, [this] { clickButton(u"ayuda"_s); }, &Tour::commandOver);
    addClosing();
    addStep(u"nuevo"_s, [this] { clickButton(u"limpiar"_s); });
}

bool Tour::atRest() {
    if (!otherWindows(m_form).isEmpty() || m_form.isBusy())
        return false;
    return bringToFront(m_form);
}

bool Tour::anotherInFront() {
    const QList<QWidget*> others = otherWindows(m_form);
    return QApplication::activePopupWidget() || others.contains(QApplication::activeWindow());
}

bool Tour::commandOver() {
    return !m_form.isBusy();
}

void Tour::start() {
    next();
}

void Tour::next() {
    if (m_next == m_steps.size()) {
        Q_EMIT finished();
        return;
    }
    m_waiting.start();
    QTimer::singleShot(interval, this, &Tour::look);
    m_steps[m_next++].play();
}

void Tour::look() {
    const Step& step = m_steps[m_next - 1];
    const bool shown = (this->*step.shown)();
    if (!shown && !m_waiting.hasExpired(std::chrono::milliseconds(longest).count())) {
        QTimer::singleShot(interval, this, &Tour::look);
        return;
    }
    if (!shown)
        fail(u"no se mostró lo esperado "_s + step.picture);
    QTimer::singleShot(settling, this, [this, name = step.picture] {
        takePicture(name);
        next();
    });
}

void Tour::takePicture(const QString& name) {
    if (!name.isEmpty())
        save(name, pictureOfScreen(m_form));
}

void Tour::addPicture(const QString& name, const QPixmap& picture) {
    save(name, picture);
}

void Tour::save(const QString& name, const QPixmap& picture) {
    const QString file = u"%1/%2-%3.png"_s.arg(m_folder).arg(++m_pictures, 2, 10, QLatin1Char('0')).arg(name);
    if (!picture.save(file))
        fail(u"no se pudo escribir "_s + file);
}

void Tour::fail(const QString& why) {
    std::fprintf(stderr, "paso %zu: %s\n", m_next, qPrintable(why));
    ++m_failures;
}

void Tour::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    if (QWidget* receiver = QApplication::focusWidget())
        QTest::keyClick(receiver, key, modifiers);
    else
        fail(u"nadie recibe la tecla %1"_s.arg(key));
}

void Tour::type(const QString& text) {
    for (const QChar c : text) {
        QWidget* receiver = QApplication::focusWidget();
        if (!receiver) {
            fail(u"nadie recibe el texto "_s + text);
            return;
        }
        QTest::sendKeyEvent(QTest::Click, receiver, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
}

void Tour::clickButton(const QString& key) {
    QToolBar& bar = *m_form.controls().Toolbar;
    QTest::mouseClick(bar.widgetForAction(&m_form.controls().button(key)), Qt::LeftButton);
}

void Tour::goToCell(int row, int column) {
    m_form.controls().SSTab1->setCurrentIndex(0);
    quorvane::XGrid& grid = *m_form.controls().XGrid;
    grid.setFocus();
    grid.setRow(row);
    grid.setCol(column);
}

int Tour::lastRow() {
    return m_form.controls().XGrid->rows() - 1;
}

void Tour::closeOpenWindow() {
    const QList<QWidget*> others = otherWindows(m_form);
    if (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    else if (QWidget* modal = QApplication::activeModalWidget())
        QTest::keyClick(modal, Qt::Key_Escape);
    else if (!others.isEmpty())
        others.last()->close();
}

} // namespace tour
