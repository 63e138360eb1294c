#include "benchmarks/SheetCells.h"
#include <QDir>
#include <QProcess>
#include <QXmlStreamReader>
#include <algorithm>
#include <stdexcept>
#include <xlsxwriter.h>

namespace bench {

namespace {

QByteArray sheetOf(const QString& workbook) {
    QProcess process;
    process.start(QStringLiteral("unzip"),
                  {QStringLiteral("-p"), workbook, QStringLiteral("xl/worksheets/sheet1.xml")});
    if (!process.waitForFinished(-1) || process.exitCode() != 0)
        throw std::runtime_error("the workbook cannot be read back");
    return process.readAllStandardOutput();
}

} // namespace

SheetCells::SheetCells(const QString& workbook) {
    QXmlStreamReader xml(sheetOf(workbook));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = xml.attributes();
        if (xml.name() == QLatin1String("c")) {
            const QByteArray reference = attributes.value(QLatin1String("r")).toLatin1();
            const int format = attributes.value(QLatin1String("s")).toInt();
            m_cells.push_back(
                {lxw_name_to_row(reference.constData()), lxw_name_to_col(reference.constData()), format, {}});
            m_formats = std::max(m_formats, format + 1);
        } else if (xml.name() == QLatin1String("v"))
            m_cells.back().value = xml.readElementText().toDouble();
        else if (xml.name() == QLatin1String("t"))
            m_cells.back().value = xml.readElementText().toUtf8();
    }
    if (xml.hasError())
        throw std::runtime_error("the workbook is damaged");
}

void SheetCells::write(const QString& path) const {
    QByteArray folder = QDir::tempPath().toUtf8();
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = folder.data();
    lxw_workbook* book = workbook_new_opt(path.toUtf8().constData(), &options);
    lxw_worksheet* sheet = workbook_add_worksheet(book, "Hoja");
    std::vector<lxw_format*> formats;
    for (int format = 0; format < m_formats; ++format) {
        formats.push_back(workbook_add_format(book));
        format_set_font_size(formats.back(), format + 1);
    }
    for (const Cell& cell : m_cells) {
        lxw_format* format = formats[cell.format];
        if (const double* number = std::get_if<double>(&cell.value))
            worksheet_write_number(sheet, cell.row, cell.column, *number, format);
        else if (const QByteArray* text = std::get_if<QByteArray>(&cell.value))
            worksheet_write_string(sheet, cell.row, cell.column, text->constData(), format);
        else
            worksheet_write_blank(sheet, cell.row, cell.column, format);
    }
    if (workbook_close(book) != LXW_NO_ERROR)
        throw std::runtime_error("the workbook cannot be written");
}

} // namespace bench
