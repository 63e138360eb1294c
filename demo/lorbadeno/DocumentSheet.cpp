#include "demo/lorbadeno/DocumentSheet.h"
#include "demo/lorbadeno/LineTable.h"
#include <QFontInfo>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

namespace dalvora::lorbadeno {

using namespace Qt::StringLiterals;

namespace {

constexpr int paperWidth = 780;
constexpr int paperMargin = 36;
constexpr int titleWidth = 250;
constexpr QColor paper(255, 255, 255);
constexpr QColor edge(170, 180, 195);
constexpr QColor ink(32, 32, 32);
constexpr QColor paleInk(110, 110, 110);
constexpr QColor titleInk(176, 32, 32);
constexpr QColor warningInk(176, 96, 0);

void dye(QWidget* widget, const QColor& colour) {
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, colour);
    widget->setPalette(palette);
}

/// The programs' font is measured in pixels, the toolkit's own in points: QFontInfo knows both.
void enlarge(QWidget* widget, double factor, bool bold = true) {
    QFont font = widget->font();
    font.setPixelSize(qRound(QFontInfo(font).pixelSize() * factor));
    font.setBold(bold);
    widget->setFont(font);
}

QFrame* rule() {
    auto* frame = new QFrame;
    frame->setFixedHeight(1);
    frame->setAutoFillBackground(true);
    QPalette palette = frame->palette();
    palette.setColor(QPalette::Window, edge);
    frame->setPalette(palette);
    return frame;
}

QString codeAndLabel(const Labelled& item) {
    return item.label.isEmpty() ? item.code : item.code + u" - "_s + item.label;
}

} // namespace

DocumentSheet::DocumentSheet(const StoredDocument& document, const quorvane::RegionalSettings& regional)
    : m_regional(regional) {
    setObjectName(u"DocumentSheet"_s);
    QPalette palette(paper);
    palette.setColor(QPalette::Window, paper);
    palette.setColor(QPalette::Base, paper);
    palette.setColor(QPalette::Text, ink);
    palette.setColor(QPalette::WindowText, ink);
    setPalette(palette);
    setFixedWidth(paperWidth);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(paperMargin, paperMargin, paperMargin, paperMargin);
    layout->setSpacing(18);
    layout->addLayout(letterHead(document));
    layout->addWidget(rule());
    layout->addLayout(facts(document));
    layout->addWidget(lines(document));
    layout->addLayout(totals(document));
}

void DocumentSheet::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(edge);
    painter.setBrush(paper);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

QLabel* DocumentSheet::label(const QString& name, const QString& text) {
    auto* result = new QLabel(text, this);
    result->setObjectName(name);
    result->setTextFormat(Qt::PlainText);
    result->setTextInteractionFlags(Qt::TextSelectableByMouse);
    result->setWordWrap(true);
    return result;
}

QLayout* DocumentSheet::letterHead(const StoredDocument& document) {
    auto* company = label(u"lblEmpresa"_s,
                          document.company.label.isEmpty() ? document.company.code : document.company.label);
    enlarge(company, 1.6);
    auto* words = new QVBoxLayout;
    words->setSpacing(3);
    words->addWidget(company);
    for (const QString& text : {document.companyAddress, document.companyCode}) {
        auto* detail = label({}, text);
        dye(detail, paleInk);
        words->addWidget(detail);
    }
    words->addStretch();
    auto* head = new QHBoxLayout;
    head->setSpacing(24);
    head->addLayout(words, 1);
    head->addWidget(title(document));
    return head;
}

QWidget* DocumentSheet::title(const StoredDocument& document) {
    auto* box = new QFrame(this);
    box->setFrameShape(QFrame::Box);
    box->setLineWidth(2);
    box->setFixedWidth(titleWidth);
    dye(box, titleInk);
    auto* inside = new QVBoxLayout(box);
    inside->setContentsMargins(12, 14, 12, 14);
    inside->setSpacing(6);
    const QString name = document.type.label.isEmpty() ? document.type.code : document.type.label;
    auto* type = label(u"lblTipo"_s, name.toUpper());
    auto* number = label(u"lblNumero"_s, u"N° "_s + document.number);
    enlarge(type, 1.2);
    enlarge(number, 1.5);
    QString stateText = document.issued ? u"Emitido"_s : u"No emitido"_s;
    if (document.voided)
        stateText = u"ANULADO"_s;
    auto* state = label(u"lblEstado"_s, stateText);
    for (QLabel* each : {type, number, state}) {
        each->setAlignment(Qt::AlignCenter);
        dye(each, titleInk);
        inside->addWidget(each);
    }
    enlarge(state, 1, document.voided || !document.issued);
    dye(state, document.voided || !document.issued ? warningInk : paleInk);
    return box;
}

QLayout* DocumentSheet::facts(const StoredDocument& document) {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(7);
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(3, 2);
    const auto put = [&](int row, int column, const QString& caption, const QString& name,
                         const QString& text) {
        auto* head = label({}, caption);
        head->setWordWrap(false);
        dye(head, paleInk);
        auto* fact = label(name, text);
        fact->setAccessibleName(caption + u": "_s + text);
        grid->addWidget(head, row, column, Qt::AlignTop);
        grid->addWidget(fact, row, column + 1, Qt::AlignTop);
    };
    put(0, 0, u"Cliente"_s, u"lblCliente"_s, codeAndLabel(document.customer));
    put(1, 0, u"Código legal"_s, u"lblCodLegal"_s, document.customerCode);
    put(2, 0, u"Domicilio"_s, u"lblDomicilio"_s, document.customerPlace);
    put(3, 0, u"Vendedor"_s, u"lblVendedor"_s, codeAndLabel(document.salesperson));
    put(0, 2, u"Fecha"_s, u"lblFecha"_s, m_regional.dateText(document.date));
    put(1, 2, u"Tipo"_s, u"lblTipoDocto"_s, document.type.code);
    put(2, 2, u"Lista de precios"_s, u"lblLista"_s, codeAndLabel(document.priceList));
    put(3, 2, u"Moneda"_s, u"lblMoneda"_s, codeAndLabel(document.currency));
    return grid;
}

QWidget* DocumentSheet::lines(const StoredDocument& document) {
    if (!document.linesKept) {
        auto* note = label(u"lblSinLineas"_s,
                           u"Esta base de datos no guarda las líneas de los documentos; sólo sus totales."_s);
        dye(note, paleInk);
        return note;
    }
    return new LineTable(document, m_regional);
}

QLayout* DocumentSheet::totals(const StoredDocument& document) {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(30);
    grid->setVerticalSpacing(6);
    grid->setColumnStretch(0, 1);
    const auto put = [&](int row, const QString& caption, const QString& name, double amount) {
        auto* head = label({}, caption);
        auto* figure = label(name, m_regional.groupedText(amount, document.decimals));
        figure->setAccessibleName(caption + u": "_s + figure->text());
        for (QLabel* each : {head, figure})
            each->setWordWrap(false);
        figure->setAlignment(Qt::AlignRight);
        grid->addWidget(head, row, 1);
        grid->addWidget(figure, row, 2);
        return std::pair(head, figure);
    };
    put(0, u"Neto"_s, u"lblNeto"_s, document.net);
    put(1, u"Impuesto"_s, u"lblImpuesto"_s, document.tax);
    put(2, u"Flete"_s, u"lblFlete"_s, document.freight);
    grid->addWidget(rule(), 3, 1, 1, 2);
    const auto [head, figure] =
        put(4, document.currency.code.isEmpty() ? u"Total"_s : u"Total "_s + document.currency.code,
            u"lblTotal"_s, document.total);
    enlarge(head, 1.25);
    enlarge(figure, 1.25);
    return grid;
}

} // namespace dalvora::lorbadeno
