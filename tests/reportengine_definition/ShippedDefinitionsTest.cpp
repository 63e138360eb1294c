#include "tests/reportengine_definition/DefinitionFile.h"
#include <QFileInfo>
#include <algorithm>
#include <gtest/gtest.h>

namespace quorvane::report::test {

namespace {

using namespace Qt::StringLiterals;

QString nameOf(const QString& path) {
    return QFileInfo(path).completeBaseName();
}

Definition shipped(const QString& name) {
    for (const QString& path : shippedDefinitions())
        if (nameOf(path) == name)
            return readDefinition(path);
    ADD_FAILURE() << name.toStdString();
    return {};
}

const ReportObject* objectNamed(const Definition& definition, SectionKind kind, const QString& name) {
    for (const Section& section : definition.sections)
        for (const ReportObject& object : section.objects)
            if (section.kind == kind && object.name == name)
                return &object;
    return nullptr;
}

QString columnOf(const Definition& definition, const ReportObject* object) {
    return object == nullptr ? u"(none)"_s
                             : definition.columns[static_cast<std::size_t>(object->source.index)].name;
}

TEST(ShippedDefinitionsTest, AreTheFourOfTheProgram) {
    QStringList names;
    for (const QString& path : shippedDefinitions())
        names.append(nameOf(path));
    EXPECT_EQ(names, (QStringList{u"ComisionesVendedor"_s, u"DetalleCodigos"_s, u"ListaCodigos"_s,
                                  u"ResumenMensualVendedor"_s}));
}

TEST(ShippedDefinitionsTest, HoldEveryHeaderFormula) {
    const QStringList wanted{u"{@CfgEmpresa}"_s, u"{@CfgDireccion}"_s,   u"{@CfgComuna}"_s,
                             u"{@CfgCiudad}"_s,  u"{@CfgTelefono}"_s,    u"{@CfgCodigoLegal}"_s,
                             u"{@CfgGiro}"_s,    u"{@CfgRutRepLegal}"_s, u"{@CfgRepLegal}"_s,
                             u"{@CfgUsuario}"_s, u"{@CfgSubtitulo}"_s};
    for (const QString& path : shippedDefinitions()) {
        QStringList found;
        for (const Formula& formula : readDefinition(path).formulas)
            found.append(formula.name);
        EXPECT_EQ(found, wanted) << path.toStdString();
    }
}

TEST(ShippedDefinitionsTest, NameAndTitleSayWhichStatementAndWhichFilterTheyTake) {
    for (const QString& path : shippedDefinitions()) {
        const QString title = readDefinition(path).title.toUpper();
        const bool ofSalespeople = nameOf(path).toUpper().contains(u"VENDEDOR"_s);
        EXPECT_EQ(title.contains(u"VENDEDOR"_s), ofSalespeople) << path.toStdString();
        EXPECT_EQ(title.contains(u"CODIGOS"_s), !ofSalespeople) << path.toStdString();
    }
}

TEST(ShippedDefinitionsTest, ColumnsAreThoseOfTheirStatement) {
    const QStringList documents{
        u"vendedor"_s,      u"tipodocto"_s,        u"correlativo"_s,     u"numero"_s,
        u"comisionmonto"_s, u"comisioncantidad"_s, u"comisionlprecio"_s, u"idctacte"_s,
        u"razonsocial"_s,   u"codlegal"_s,         u"fecha"_s,           u"total"_s,
        u"neto"_s};
    const QStringList schemes{u"codigo"_s,     u"descripcion"_s,    u"fechainicio"_s,        u"fechafinal"_s,
                              u"acumulable"_s, u"tipo"_s,           u"descripciondetalle"_s, u"concepto"_s,
                              u"porcentaje"_s, u"cantidadinicio"_s, u"cantidadfinal"_s,      u"subtipo"_s,
                              u"calculo"_s};
    for (const QString& path : shippedDefinitions()) {
        const bool ofSalespeople = nameOf(path).contains(u"Vendedor"_s);
        for (const Column& column : readDefinition(path).columns)
            EXPECT_TRUE(column.origin != Column::Origin::Rows ||
                        (ofSalespeople ? documents : schemes).contains(column.name.toLower()))
                << path.toStdString() << ": " << column.name.toStdString();
    }
}

TEST(ShippedDefinitionsTest, TheReportBySalespersonHasWhatAClickOnALineNeeds) {
    const Definition definition = shipped(u"ComisionesVendedor"_s);
    EXPECT_EQ(columnOf(definition, objectNamed(definition, SectionKind::Details, u"Field10"_s)),
              u"TipoDocto"_s);
    EXPECT_EQ(columnOf(definition, objectNamed(definition, SectionKind::Details, u"Field6"_s)), u"numero"_s);
}

TEST(ShippedDefinitionsTest, EveryAmountKeepsToTheFormatOfField8) {
    for (const QString& name : {u"ComisionesVendedor"_s, u"ResumenMensualVendedor"_s, u"DetalleCodigos"_s}) {
        const Definition definition = shipped(name);
        int amounts = 0;
        for (const Section& section : definition.sections)
            for (const ReportObject& object : section.objects) {
                using Kind = FieldSource::Kind;
                const bool ofColumn = object.source.kind == Kind::Column || object.source.kind == Kind::Sum;
                if (object.kind != ObjectKind::Field || !ofColumn)
                    continue;
                const Column& column = definition.columns[static_cast<std::size_t>(object.source.index)];
                if (column.type != ColumnType::Number)
                    continue;
                EXPECT_EQ(object.name == u"Field8"_s, object.formatOf.isEmpty()) << name.toStdString();
                EXPECT_EQ(object.format.decimals, 2) << name.toStdString();
                ++amounts;
            }
        EXPECT_GE(amounts, 3) << name.toStdString();
    }
}

TEST(ShippedDefinitionsTest, TheReportBySalespersonTotalsTheThreeColumnsPerSalespersonAndInAll) {
    const Definition definition = shipped(u"ComisionesVendedor"_s);
    ASSERT_EQ(definition.groups.size(), 1U);
    EXPECT_EQ(definition.columns[static_cast<std::size_t>(definition.groups[0].column)].name, u"vendedor"_s);
    for (const SectionKind kind : {SectionKind::GroupFooter, SectionKind::ReportFooter}) {
        QStringList summed;
        for (const Section& section : definition.sections)
            for (const ReportObject& object : section.objects)
                if (section.kind == kind && object.kind == ObjectKind::Field &&
                    object.source.kind == FieldSource::Kind::Sum)
                    summed.append(columnOf(definition, &object));
        EXPECT_EQ(summed, (QStringList{u"ComisionMonto"_s, u"ComisionCantidad"_s, u"ComisionlPrecio"_s,
                                       u"ComisionTotal"_s}));
    }
}

TEST(ShippedDefinitionsTest, TheSummaryGroupsByMonthAndDrawsAChart) {
    const Definition definition = shipped(u"ResumenMensualVendedor"_s);
    ASSERT_EQ(definition.groups.size(), 2U);
    EXPECT_EQ(definition.groups[1].period, Period::Month);
    const auto& objects =
        std::find_if(definition.sections.begin(), definition.sections.end(), [](const Section& section) {
            return section.kind == SectionKind::ReportFooter;
        })->objects;
    EXPECT_EQ(std::count_if(objects.begin(), objects.end(),
                            [](const ReportObject& object) { return object.kind == ObjectKind::Chart; }),
              1);
}

TEST(ShippedDefinitionsTest, ListingsKeepTheOrderOfTheDatabase) {
    EXPECT_TRUE(shipped(u"DetalleCodigos"_s).sortedBySource);
    EXPECT_TRUE(shipped(u"ListaCodigos"_s).sortedBySource);
    EXPECT_FALSE(shipped(u"ComisionesVendedor"_s).sortedBySource) << "its statement orders nothing";
    EXPECT_FALSE(shipped(u"ResumenMensualVendedor"_s).sortedBySource);
}

} // namespace

} // namespace quorvane::report::test
