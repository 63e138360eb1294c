#pragma once

#include "platform/reportengine/layout/Layout.h"
#include "tests/support/ListRows.h"
#include "tests/support/ReportParts.h"
#include <QStringList>
#include <gtest/gtest.h>

/// Failed comparisons show texts, not their bytes.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace quorvane::test {

/// A report of small sections on a page with room for exactly 100 points, laid out from rows in the test and
/// told as text: each band by its section's name and the value of its first object.
class LayoutFixture : public testing::Test {
protected:
    using Kind = report::SectionKind;
    using Source = report::FieldSource::Kind;
    static constexpr int nameColumn = 0;
    static constexpr int numberColumnIndex = 1;
    static constexpr int dateColumnIndex = 2;

    LayoutFixture() {
        definition.pageSize = {200, 120};
        definition.margins = {10, 10, 10, 10};
        definition.columns = {textColumn(QStringLiteral("nombre")), numberColumn(QStringLiteral("numero")),
                              dateColumn(QStringLiteral("fecha"))};
    }

    report::Section& add(const char16_t* name, Kind kind, double height,
                         std::vector<report::ReportObject> objects = {}, int group = 0) {
        definition.sections.push_back(section(kind, height, std::move(objects), group));
        definition.sections.back().name = QString::fromUtf16(name);
        return definition.sections.back();
    }

    static report::ReportObject nameField() { return field(Source::Column, nameColumn); }
    static report::ReportObject numberField() { return field(Source::Column, numberColumnIndex); }
    static report::ReportObject sumField(int scope) { return field(Source::Sum, numberColumnIndex, scope); }

    /// Rows of a name and a number each: "a1 a2 b3".
    static std::vector<RowValues> rowsOf(const QString& text) {
        std::vector<RowValues> rows;
        for (const QString& row : text.split(u' ', Qt::SkipEmptyParts))
            rows.push_back({row.left(1), row.mid(1).toInt(), Value::Null{}});
        return rows;
    }
    static QStringList columnNames() {
        return {QStringLiteral("Nombre"), QStringLiteral("Numero"), QStringLiteral("Fecha")};
    }

    report::Layout& layOut(std::vector<RowValues> rows) {
        layout = std::make_unique<report::Layout>(definition,
                                                  std::make_unique<ListRows>(columnNames(), std::move(rows)));
        layout->finish();
        return *layout;
    }
    report::Layout& layOut(const QString& rows) { return layOut(rowsOf(rows)); }

    static QString text(const Value& value) {
        return value.isNull() ? QStringLiteral("Null") : value.toText(RegionalSettings());
    }
    QString told(const report::Band& band) const {
        const QString name = definition.sections[band.section].name;
        return band.values.empty() ? name : name + u' ' + text(band.values.front());
    }
    QString told(const report::Page& page) const {
        QStringList bands;
        for (const report::Band& band : page.bands)
            bands.append(told(band));
        return bands.join(QStringLiteral(", "));
    }
    QStringList allPages() const {
        QStringList pages;
        for (int i = 0; i < layout->pageCount(); ++i)
            pages.append(told(layout->page(i)));
        return pages;
    }

    report::Definition definition;
    std::unique_ptr<report::Layout> layout;
};

} // namespace quorvane::test
