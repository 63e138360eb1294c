#include "tests/reportengine_definition/DefinitionFile.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace quorvane::report::test {

QString DefinitionFolder::write(const QString& name, const QByteArray& content) const {
    QString path = m_folder.filePath(name + QStringLiteral(".rpt"));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(content), content.size());
    return path;
}

Outcome DefinitionFolder::read(const QByteArray& content, const QString& name) const {
    return outcomeOf(write(name, content));
}

Outcome outcomeOf(const QString& path) {
    try {
        return {readDefinition(path), 0, {}};
    } catch (const RunTimeError& error) {
        return {std::nullopt, error.number(), error.description()};
    }
}

QByteArray with(QByteArray text, const QByteArray& part, const QByteArray& replacement) {
    const qsizetype position = text.indexOf(part);
    EXPECT_GE(position, 0) << part.toStdString();
    return position < 0 ? text : text.replace(position, part.size(), replacement);
}

QStringList shippedDefinitions() {
    const QDir folder(QStringLiteral(SHIPPED_DEFINITIONS));
    QStringList paths;
    for (const QString& name : folder.entryList({QStringLiteral("*.rpt")}, QDir::Files, QDir::Name))
        paths.append(folder.filePath(name));
    return paths;
}

QByteArray smallDefinition() {
    return R"(<report title="T">
<page width="210" height="297" left="10" top="10" right="10" bottom="10"/>
<styles><style name="s"/></styles>
<columns><column name="a" type="text"/></columns>
<sections><details height="5"/></sections>
</report>)";
}

QByteArray fullDefinition() {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- A comment. -->
<report title="Prueba" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xsi:noNamespaceSchemaLocation="report.xsd">
  <page width="210" height="297" left="15" top="12.5" right="15" bottom="10"/>
  <styles>
    <style name="plain" font="Arial, Liberation Sans" size="8.5" colour="#222222" align="left" valign="middle"/>
    <style name="figure" bold="true" italic="true" background="#EEF2F8" align="right" valign="bottom"/>
    <style name="middle" align="center" valign="top" bold="false"/>
  </styles>
  <columns>
    <column name="vendedor" type="text"/>
    <column name="fecha" type="date"/>
    <column name="monto" type="number"/>
    <column name="precio" type="number"/>
    <sumColumn name="ambos"><term column="monto"/><term column="precio"/></sumColumn>
    <countColumn name="unos" column="vendedor" equals="01"/>
  </columns>
  <formulas>
    <formula name="{@CfgEmpresa}"/>
    <formula name="{@Titulo}" text="Hola"/>
  </formulas>
  <groups>
    <group name="vendedor" column="vendedor" caption="Vendedor" captionColumn="vendedor" period="none"/>
    <group name="anno" column="fecha" period="year"/>
    <group name="mes" column="fecha" period="month"/>
  </groups>
  <sort>
    <key column="fecha" descending="true"/>
    <key column="monto"/>
  </sort>
  <sections>
    <reportHeader height="10" name="inicio"/>
    <pageHeader height="20">
      <formulaField left="0" top="0" width="100" height="6" formula="{@CfgEmpresa}"/>
      <line left="0" top="7" width="180" height="0" style="plain" stroke="1.5"/>
      <special left="150" top="0" width="30" height="6" show="pageOfPages" style="figure"/>
      <special left="150" top="6" width="30" height="6" show="page"/>
      <special left="150" top="12" width="10" height="6" show="pages"/>
      <special left="160" top="12" width="20" height="6" show="printDate"/>
    </pageHeader>
    <groupHeader group="mes" height="6"/>
    <groupHeader group="vendedor" height="8" repeat="true" newPage="true">
      <box left="0" top="0" width="180" height="8" style="figure" stroke="0"/>
      <text left="2" top="0" width="50" height="8" text="Vendedor {@Titulo}"/>
    </groupHeader>
    <details height="5" shaded="true" name="detalle">
      <field name="Field1" left="0" top="0" width="40" height="5" column="fecha" dateForm="month"/>
      <field name="Field8" left="50" top="0" width="25" height="5" column="monto" decimals="2" thousands="." decimal=",">
        <when column="monto" is="negative" style="figure"/>
      </field>
      <field left="80" top="0" width="25" height="5" column="ambos" decimals="3" formatOf="Field8"/>
      <text left="110" top="0" width="10" height="5" text="N/C"><showWhen column="vendedor" is="filled"/></text>
    </details>
    <groupFooter group="vendedor" height="9">
      <sum left="50" top="0" width="25" height="5" column="monto" group="vendedor" formatOf="Field8"/>
      <count left="80" top="0" width="25" height="5" group="vendedor"/>
    </groupFooter>
    <groupFooter group="mes" height="4"/>
    <groupFooter group="anno" height="3"/>
    <reportFooter height="90" newPage="true">
      <sum left="50" top="0" width="25" height="5" column="ambos" decimals="1"/>
      <chart left="0" top="10" width="180" height="70" group="vendedor" column="ambos" title="Por vendedor"/>
    </reportFooter>
    <pageFooter height="7"/>
  </sections>
</report>
)";
}

} // namespace quorvane::report::test
