#include "tests/report_output/SheetReader.h"
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <gtest/gtest.h>
#include <private/qzipreader_p.h>

using namespace Qt::StringLiterals;

namespace quorvane::report::test {

namespace {

/// "C12" as column 2.
int columnOf(QStringView reference) {
    int column = 0;
    for (const QChar letter : reference)
        if (letter.isLetter())
            column = column * 26 + letter.unicode() - u'A' + 1;
    return column - 1;
}

/// Characters that the format writes as "_x000B_".
QString unescaped(const QString& text) {
    static const QRegularExpression escape(u"_x([0-9A-Fa-f]{4})_"_s);
    QString result;
    qsizetype done = 0;
    for (auto found = escape.globalMatch(text); found.hasNext();) {
        const auto match = found.next();
        result += QStringView(text).mid(done, match.capturedStart() - done);
        result += QChar(match.captured(1).toUShort(nullptr, 16));
        done = match.capturedEnd();
    }
    return result + text.mid(done);
}

QColor colourOf(const QXmlStreamAttributes& attributes) {
    return QColor(u"#"_s + attributes.value("rgb"_L1).toString());
}

} // namespace

double SheetCell::number() const {
    EXPECT_EQ(kind, Kind::Number) << "a text stands here: " << words.toStdString();
    return digits;
}

QString SheetCell::text() const {
    return words;
}

void SheetCell::setNumber(double number) {
    kind = Kind::Number;
    digits = number;
}

void SheetCell::setText(const QString& text) {
    kind = Kind::Text;
    words = text;
}

SheetReader::SheetReader(const QString& path) : m_path(path) {
    readNames();
    readLooks();
    open(0);
}

void SheetReader::open(int sheet) {
    readRows(part(u"xl/worksheets/sheet%1.xml"_s.arg(sheet + 1)));
}

QByteArray SheetReader::part(const QString& name) const {
    const QZipReader archive(m_path);
    QByteArray text = archive.fileData(name);
    EXPECT_FALSE(text.isEmpty()) << name.toStdString() << " of " << m_path.toStdString();
    return text;
}

void SheetReader::readNames() {
    QXmlStreamReader xml(part(u"xl/workbook.xml"_s));
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"sheet")
            m_names << xml.attributes().value("name"_L1).toString();
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
}

void SheetReader::readLooks() {
    QXmlStreamReader xml(part(u"xl/styles.xml"_s));
    QMap<int, QString> formats{{0, u"General"_s}, {1, u"0"_s},        {2, u"0.00"_s},
                               {3, u"#,##0"_s},   {4, u"#,##0.00"_s}, {49, u"@"_s}};
    std::vector<Look> fonts;
    std::vector<QColor> grounds;
    QString part;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QStringView name = xml.name();
        const QXmlStreamAttributes attributes = xml.attributes();
        if (name == u"fonts" || name == u"fills" || name == u"cellXfs" || name == u"borders" ||
            name == u"cellStyleXfs")
            part = name.toString();
        else if (name == u"numFmt")
            formats[attributes.value("numFmtId"_L1).toInt()] = attributes.value("formatCode"_L1).toString();
        else if (part == u"fonts" && name == u"font")
            fonts.push_back({});
        else if (part == u"fonts" && name == u"b")
            fonts.back().bold = true;
        else if (part == u"fonts" && name == u"color" && attributes.hasAttribute("rgb"_L1))
            fonts.back().colour = colourOf(attributes);
        else if (part == u"fills" && name == u"fill")
            grounds.emplace_back();
        else if (part == u"fills" && name == u"fgColor")
            grounds.back() = colourOf(attributes);
        else if (part == u"cellXfs" && name == u"xf") {
            Look look = fonts.at(attributes.value("fontId"_L1).toInt());
            look.format = formats.value(attributes.value("numFmtId"_L1).toInt());
            look.ground = grounds.at(attributes.value("fillId"_L1).toInt());
            m_looks.push_back(look);
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
}

void SheetReader::readRows(const QByteArray& sheet) {
    m_rows.clear();
    m_frozen = 0;
    QXmlStreamReader xml(sheet);
    SheetCell* cell = nullptr;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QStringView name = xml.name();
        const QXmlStreamAttributes attributes = xml.attributes();
        if (name == u"pane")
            m_frozen = attributes.value("ySplit"_L1).toInt();
        else if (name == u"col")
            m_widths[attributes.value("min"_L1).toInt() - 1] = attributes.value("width"_L1).toDouble();
        else if (name == u"row")
            m_rows.resize(attributes.value("r"_L1).toInt());
        else if (name == u"c") {
            const Look& look = m_looks.at(attributes.value("s"_L1).toInt());
            cell = &m_rows.back()[columnOf(attributes.value("r"_L1))];
            cell->format = look.format;
            cell->bold = look.bold;
            cell->colour = look.colour;
            cell->ground = look.ground;
        } else if (name == u"v")
            cell->setNumber(xml.readElementText().toDouble());
        else if (name == u"t")
            cell->setText(unescaped(xml.readElementText()));
        else
            EXPECT_NE(name, u"f"_s) << "a formula";
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
}

SheetCell SheetReader::cell(int row, int column) const {
    return row >= 0 && row < rowCount() ? m_rows[row].value(column) : SheetCell();
}

QStringList SheetReader::row(int row) const {
    QStringList texts;
    if (row < 0 || row >= rowCount())
        return texts;
    for (auto cell = m_rows[row].begin(); cell != m_rows[row].end(); ++cell) {
        if (cell->isEmpty())
            continue;
        while (texts.size() < cell.key())
            texts << QString();
        texts << (cell->kind == SheetCell::Kind::Number ? QString::number(cell->digits, 'g', 15)
                                                        : cell->words);
    }
    return texts;
}

int SheetReader::rowOf(const QString& text) const {
    for (int at = 0; at < rowCount(); ++at) {
        const QStringList texts = row(at);
        if (!texts.isEmpty() && texts.front() == text)
            return at;
    }
    return -1;
}

} // namespace quorvane::report::test
