#include "demo/lorbadeno/DocumentWindow.h"
#include "demo/lorbadeno/DocumentSheet.h"
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace dalvora::lorbadeno {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize usualSize(860, 700);
constexpr int margin = 12;

QLabel* emptyDesk() {
    auto* label = new QLabel(u"Aquí se muestra el documento que se abre desde un informe de comisiones:\n"
                             u"haga clic en una línea de la vista previa de un informe por vendedor."_s);
    label->setObjectName(u"lblVacio"_s);
    label->setAlignment(Qt::AlignCenter);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

DocumentWindow::DocumentWindow(quorvane::RegionalSettings regional)
    : m_regional(regional), m_desk(new QScrollArea(this)) {
    setObjectName(u"DocumentWindow"_s);
    setWindowTitle(u"Emisión de Documentos"_s);
    m_desk->setWidgetResizable(true);
    m_desk->setFrameShape(QFrame::NoFrame);
    m_desk->setAccessibleName(u"Documento"_s);
    m_desk->setWidget(emptyDesk());

    auto* note = new QLabel(u"Programa de demostración: muestra documentos guardados, no los emite."_s);
    note->setObjectName(u"lblNota"_s);
    auto* close = new QPushButton(u"&Cerrar"_s);
    close->setObjectName(u"coCerrar"_s);
    close->setShortcut(Qt::Key_Escape);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    auto* foot = new QHBoxLayout;
    foot->setContentsMargins(margin, margin / 2, margin, margin / 2);
    foot->addWidget(note, 1);
    foot->addWidget(close);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_desk, 1);
    layout->addLayout(foot);
    resize(usualSize);
    m_desk->setFocus(); // the keyboard scrolls
}

void DocumentWindow::showDocument(const StoredDocument& document) {
    const QString name = document.type.label.isEmpty() ? document.type.code : document.type.label;
    setWindowTitle(u"%1 %2 - Emisión de Documentos"_s.arg(name, document.number));
    // The sheet lies on a desk, so that a wide window does not stretch the paper.
    auto* desk = new QWidget;
    auto* row = new QHBoxLayout(desk);
    row->setContentsMargins(margin, margin, margin, margin);
    row->addStretch();
    row->addWidget(new DocumentSheet(document, m_regional), 0, Qt::AlignTop);
    row->addStretch();
    m_desk->setWidget(desk);
    m_desk->verticalScrollBar()->setValue(0);
    comeToFront();
}

void DocumentWindow::comeToFront() {
    setWindowState((windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    show();
    raise();
    activateWindow();
}

} // namespace dalvora::lorbadeno
