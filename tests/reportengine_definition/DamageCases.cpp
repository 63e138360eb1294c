#include "tests/reportengine_definition/DamageCases.h"

#include "tests/reportengine_definition/DefinitionFile.h"

namespace quorvane::report::test {

namespace {

// clang-format off
const DamageCase table[] = {
    // Form of the XML.
    {"TagNotClosed", "</sort>", "", "<sections>", "el elemento <sections> no va aquí, dentro de <sort>"},
    {"WrongEndTag", "</sort>", "</sorted>", "</sorted>", "el XML está mal formado"},
    {"CutOff", "<pageFooter height=\"7\"/>\n  </sections>\n</report>\n", "", "", "termina antes de tiempo"},
    {"AttributeTwice", "<sort>", "<sort><key column=\"fecha\" column=\"fecha\"/>", "<key column=\"fecha\" column", "mal formado"},
    {"UndeclaredEntity", "text=\"Hola\"", "text=\"&hola;\"", "&hola;", "mal formado"},
    {"ControlCharacter", "text=\"Hola\"", "text=\"\x01\"", "text=\"\x01", "mal formado"},
    {"WrongBytes", "text=\"Hola\"", "text=\"\xC3\x28\"", "text=\"\xC3", "hay bytes que no son UTF-8"},
    {"TwoRoots", "</report>", "</report><report/>", "</report><report/>", "mal formado"},

    // Elements.
    {"OtherRoot", "<report title=\"Prueba\"", "<html title=\"Prueba\"", "<html", "el primer elemento debe ser <report> y es <html>"},
    {"UnknownElement", "<sort>", "<sort><llave/>", "<llave/>", "el elemento <llave> no se conoce (dentro de <sort>)"},
    {"UnknownKind", "<box left", "<barcode left", "<barcode", "el elemento <barcode> no se conoce"},
    {"ElementOfANamespace", "<sort>", "<sort xmlns=\"urn:x\">", "<sort xmlns", "el elemento <sort> no se conoce"},
    {"ElementElsewhere", "<formulas>", "<formulas><style name=\"z\"/>", "<style name=\"z\"", "el elemento <style> no va aquí, dentro de <formulas>"},
    {"ElementOutOfOrder", "</formulas>", "</formulas><columns><column name=\"x\" type=\"text\"/></columns>", "</formulas><columns>", "no va aquí"},
    {"ElementWithinALeaf", "<key column=\"monto\"/>", "<key column=\"monto\"><key column=\"fecha\"/></key>", "<key column=\"monto\">", "no va aquí"},
    {"TwoConditions", "<showWhen column=\"vendedor\" is=\"filled\"/>", "<showWhen column=\"vendedor\" is=\"filled\"/><showWhen column=\"vendedor\" is=\"empty\"/>", "<showWhen", "hay más elementos <showWhen> de los que admite <text>"},
    {"SectionTwice", "<pageFooter height=\"7\"/>", "<pageFooter height=\"7\"/><pageFooter height=\"7\"/>", "<pageFooter", "hay más elementos <pageFooter>"},
    {"TextInTheWrongPlace", "<sort>", "<sort>por fecha", "<sort>por fecha", "hay texto donde no corresponde, dentro de <sort>: 'por fecha'"},
    {"CharacterDataInTheWrongPlace", "<sort>", "<sort><![CDATA[x]]>", "<sort>", "hay texto donde no corresponde"},

    // Attributes.
    {"UnknownAttribute", "<key column=\"monto\"/>", "<key column=\"monto\" clave=\"1\"/>", "<key column=\"monto\"", "el atributo 'clave' de <key> no se conoce"},
    {"AttributeInOtherCase", "<page width", "<page Width", "<page", "el atributo 'Width' de <page> no se conoce"},
    {"MissingAttribute", "<key column=\"monto\"/>", "<key/>", "<key/>", "falta el atributo 'column' de <key>"},
    {"MissingTitle", "<report title=\"Prueba\"", "<report", "<report", "falta el atributo 'title' de <report>"},
    {"EmptyTitle", "<report title=\"Prueba\"", "<report title=\"\"", "<report", "debe ser un nombre de 1 a 100 caracteres"},
    {"NegativeMeasure", "<reportHeader height=\"10\"", "<reportHeader height=\"-1\"", "<reportHeader", "el atributo 'height' de <reportHeader> debe ser una medida de 0 a 2000 milímetros y dice '-1'"},
    {"AbsurdMeasure", "<reportHeader height=\"10\"", "<reportHeader height=\"2000.1\"", "<reportHeader", "una medida de 0 a 2000"},
    {"HugeMeasure", "<reportHeader height=\"10\"", "<reportHeader height=\"99999999999999999999\"", "<reportHeader", "una medida de 0 a 2000"},
    {"MeasureWithExponent", "<reportHeader height=\"10\"", "<reportHeader height=\"1e1\"", "<reportHeader", "una medida de 0 a 2000"},
    {"MeasureThatIsNoNumber", "<reportHeader height=\"10\"", "<reportHeader height=\"NaN\"", "<reportHeader", "una medida de 0 a 2000"},
    {"MeasureWithComma", "<reportHeader height=\"10\"", "<reportHeader height=\"10,5\"", "<reportHeader", "una medida de 0 a 2000"},
    {"ObjectWithoutWidth", "<box left=\"0\" top=\"0\" width=\"180\"", "<box left=\"0\" top=\"0\" width=\"0\"", "<box", "una medida de 0.1 a 2000"},
    {"SmallPaper", "<page width=\"210\"", "<page width=\"19\"", "<page", "una medida de 20 a 2000"},
    {"FontTooLarge", "size=\"8.5\"", "size=\"1000\"", "<style name=\"plain\"", "un tamaño de 4 a 144 puntos"},
    {"PenTooWide", "stroke=\"1.5\"", "stroke=\"21\"", "<line", "un grosor de 0 a 20 puntos"},
    {"TooManyDecimals", "decimals=\"2\"", "decimals=\"10\"", "<field name=\"Field8\"", "un número entero de 0 a 9"},
    {"DecimalsWithDecimals", "decimals=\"2\"", "decimals=\"2.0\"", "<field name=\"Field8\"", "un número entero de 0 a 9"},
    {"LongSeparator", "thousands=\".\"", "thousands=\"..\"", "<field name=\"Field8\"", "un solo carácter o ninguno"},
    {"EmptyDecimalSeparator", "decimal=\",\"", "decimal=\"\"", "<field name=\"Field8\"", "un solo carácter y dice ''"},
    {"ColourByName", "colour=\"#222222\"", "colour=\"black\"", "<style name=\"plain\"", "un color como #1F3864"},
    {"UnknownColumnType", "name=\"monto\" type=\"number\"", "name=\"monto\" type=\"money\"", "<column name=\"monto\"", "debe ser 'text', 'number' o 'date' y dice 'money'"},
    {"UnknownTruth", "repeat=\"true\"", "repeat=\"1\"", "<groupHeader group=\"vendedor\"", "'true' o 'false'"},
    {"UnknownSpecial", "show=\"pages\"", "show=\"hojas\"", "show=\"hojas\"", "'page', 'pages', 'pageOfPages' o 'printDate'"},
    {"UnknownPeriod", "period=\"month\"", "period=\"week\"", "period=\"week\"", "'none', 'month' o 'year'"},
    {"UnknownTest", "is=\"negative\"", "is=\"odd\"", "is=\"odd\"", "'negative'"},
    {"UnknownAlignment", "align=\"center\"", "align=\"justify\"", "justify", "'left', 'center' o 'right'"},
    {"FormulaNameWithoutBraces", "<formula name=\"{@Titulo}\"", "<formula name=\"Titulo\"", "<formula name=\"Titulo\"", "un nombre de fórmula como {@CfgEmpresa}"},
    {"ImageInAnotherFolder", "<box left=\"0\" top=\"0\" width=\"180\" height=\"8\" style=\"figure\" stroke=\"0\"/>", "<image left=\"0\" top=\"0\" width=\"8\" height=\"8\" file=\"../x.png\"/>", "<image", "sin carpeta"},

    // Names.
    {"UnknownColumnOfField", "column=\"ambos\" decimals=\"3\"", "column=\"otra\" decimals=\"3\"", "column=\"otra\"", "la columna 'otra' no se conoce"},
    {"ColumnInOtherCase", "column=\"ambos\" decimals=\"3\"", "column=\"Ambos\" decimals=\"3\"", "column=\"Ambos\"", "la columna 'Ambos' no se conoce"},
    {"UnknownColumnOfSum", "column=\"monto\" group=\"vendedor\"", "column=\"otra\" group=\"vendedor\"", "column=\"otra\"", "la columna 'otra' no se conoce"},
    {"UnknownColumnOfGroup", "name=\"vendedor\" column=\"vendedor\"", "name=\"vendedor\" column=\"otra\"", "<group name=\"vendedor\"", "la columna 'otra' no se conoce"},
    {"UnknownCaptionColumn", "captionColumn=\"vendedor\"", "captionColumn=\"otra\"", "captionColumn", "la columna 'otra' no se conoce"},
    {"UnknownColumnOfKey", "<key column=\"monto\"/>", "<key column=\"otra\"/>", "<key column=\"otra\"", "la columna 'otra' no se conoce"},
    {"UnknownColumnOfCondition", "<when column=\"monto\"", "<when column=\"otra\"", "<when", "la columna 'otra' no se conoce"},
    {"UnknownColumnOfChart", "column=\"ambos\" title", "column=\"otra\" title", "<chart", "la columna 'otra' no se conoce"},
    {"UnknownTerm", "<term column=\"monto\"/>", "<term column=\"otra\"/>", "<term", "la columna 'otra' no se conoce"},
    {"ColumnTwice", "<column name=\"precio\"", "<column name=\"monto\"", "<column name=\"monto\" type=\"number\"/>\n    <sum", "la columna 'monto' está repetida"},
    {"UnknownStyle", "show=\"pageOfPages\" style=\"figure\"", "show=\"pageOfPages\" style=\"otro\"", "style=\"otro\"", "la apariencia 'otro' no se conoce"},
    {"UnknownStyleOfCondition", "is=\"negative\" style=\"figure\"", "is=\"negative\" style=\"otro\"", "<when", "la apariencia 'otro' no se conoce"},
    {"StyleTwice", "<style name=\"figure\"", "<style name=\"plain\"", "<style name=\"plain\" bold", "la apariencia 'plain' está repetida"},
    {"UnknownFormula", "formula=\"{@CfgEmpresa}\"", "formula=\"{@Otra}\"", "formula=\"{@Otra}\"", "la fórmula '{@Otra}' no se conoce"},
    {"FormulaTwice", "<formula name=\"{@Titulo}\"", "<formula name=\"{@CfgEmpresa}\"", "<formula name=\"{@CfgEmpresa}\" text", "la fórmula '{@CfgEmpresa}' está repetida"},
    {"UnknownGroupOfSection", "<groupHeader group=\"mes\"", "<groupHeader group=\"semana\"", "<groupHeader", "la agrupación 'semana' no se conoce"},
    {"UnknownGroupOfSum", "column=\"monto\" group=\"vendedor\"", "column=\"monto\" group=\"otra\"", "group=\"otra\"", "la agrupación 'otra' no se conoce"},
    {"GroupNamedTwice", "<group name=\"anno\"", "<group name=\"vendedor\"", "<group name=\"vendedor\" column=\"fecha\"", "la agrupación 'vendedor' está repetida"},
    {"GroupWithinItself", "<group name=\"anno\" column=\"fecha\" period=\"year\"", "<group name=\"anno\" column=\"vendedor\"", "<group name=\"anno\"", "ya se agrupa por la columna 'vendedor'"},
    {"PeriodWithinItself", "period=\"year\"", "period=\"month\"", "<group name=\"mes\"", "ya se agrupa por la columna 'fecha'"},
    {"HeaderTwiceForAGroup", "<groupHeader group=\"mes\"", "<groupHeader group=\"vendedor\"", "<groupHeader group=\"vendedor\" height=\"8\"", "la agrupación tiene más de un <groupHeader>"},
    {"FooterTwiceForAGroup", "<groupFooter group=\"anno\"", "<groupFooter group=\"mes\"", "<groupFooter group=\"mes\" height=\"3\"", "la agrupación tiene más de un <groupFooter>"},
    {"ObjectNamedTwice", "<field name=\"Field1\"", "<field name=\"Field8\"", "<field name=\"Field8\" left=\"50\"", "el objeto 'Field8' está repetido"},
    {"UnknownFormatOf", "decimals=\"3\" formatOf=\"Field8\"", "decimals=\"3\" formatOf=\"Field9\"", "formatOf=\"Field9\"", "el objeto 'Field9' no se conoce"},

    // What a schema cannot tell.
    {"DocumentType", "<!-- A comment. -->", "<!DOCTYPE report>", "<!DOCTYPE", "no se admiten declaraciones DOCTYPE", false},
    {"EntityBomb", "<!-- A comment. -->", "<!DOCTYPE report [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;\"><!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;\">]>", "<!DOCTYPE", "no se admiten declaraciones DOCTYPE", false},
    {"MarginsWithoutRoom", "left=\"15\" top=\"12.5\"", "left=\"190\" top=\"12.5\"", "<page", "los márgenes no dejan lugar en la página", false},
    {"LineWithoutLength", "<line left=\"0\" top=\"7\" width=\"180\"", "<line left=\"0\" top=\"7\" width=\"0\"", "<line", "la línea no tiene largo", false},
    {"ObjectPastTheRightEdge", "<box left=\"0\" top=\"0\" width=\"180\"", "<box left=\"1\" top=\"0\" width=\"180\"", "<box", "se sale de la página por la derecha", false},
    {"ObjectPastTheBottom", "<box left=\"0\" top=\"0\" width=\"180\" height=\"8\"", "<box left=\"0\" top=\"0\" width=\"180\" height=\"8.1\"", "<box", "se sale de su sección por abajo", false},
    {"SectionHigherThanThePage", "<reportFooter height=\"90\"", "<reportFooter height=\"250\"", "<reportFooter", "la sección <reportFooter> no cabe en la página", false},
    {"HeadersLeaveNoRoomForARow", "<groupHeader group=\"mes\" height=\"6\"", "<groupHeader group=\"mes\" height=\"235\"", "<details", "la sección <details> no cabe en la página", false},
    {"SumOfTexts", "column=\"monto\" group=\"vendedor\"", "column=\"vendedor\" group=\"vendedor\"", "<sum left=\"50\"", "la columna 'vendedor' no es de números", false},
    {"TermOfDates", "<term column=\"monto\"/>", "<term column=\"fecha\"/>", "<term", "la columna 'fecha' no es de números", false},
    {"ColumnWorkedOutFromItself", "<term column=\"monto\"/>", "<term column=\"ambos\"/>", "<term", "la columna 'ambos' no se conoce", false},
    {"ChartOfTexts", "column=\"ambos\" title", "column=\"vendedor\" title", "<chart", "no es de números", false},
    {"SignOfATest", "<when column=\"monto\" is=\"negative\"", "<when column=\"fecha\" is=\"negative\"", "<when", "no es de números", false},
    {"DecimalsOfADate", "column=\"fecha\" dateForm=\"month\"", "column=\"fecha\" decimals=\"2\"", "<field name=\"Field1\"", "la columna 'fecha' no es de números", false},
    {"MonthOfANumber", "column=\"fecha\" dateForm=\"month\"", "column=\"monto\" dateForm=\"month\"", "<field name=\"Field1\"", "la columna 'monto' no es de fechas", false},
    {"GroupByTheMonthOfAText", "<group name=\"mes\" column=\"fecha\"", "<group name=\"mes\" column=\"vendedor\"", "<group name=\"mes\"", "la columna 'vendedor' no es de fechas", false},
    {"ObjectNamedTwiceInOtherCase", "<field name=\"Field1\"", "<field name=\"FIELD8\"", "<field name=\"Field8\" left=\"50\"", "el objeto 'Field8' está repetido", false},
    {"FormatOfATextObject", "formatOf=\"Field8\"/>\n      <text left=\"110\" top=\"0\"", "formatOf=\"Nota\"/>\n      <text name=\"Nota\" left=\"110\" top=\"0\"", "formatOf=\"Nota\"", "el objeto 'Nota' no tiene un formato propio", false},
    {"FormatOfAFollower", "thousands=\".\" decimal=\",\"", "formatOf=\"Field8\"", "formatOf=\"Field8\"", "no tiene un formato propio", false},
    {"SortOfOrderedRows", "<columns>", "<columns sortedBySource=\"true\">", "<sort>", "no puede haber <sort>", false},
    {"MissingImage", "<box left=\"0\" top=\"0\" width=\"180\" height=\"8\" style=\"figure\" stroke=\"0\"/>", "<image left=\"0\" top=\"0\" width=\"8\" height=\"8\" file=\"nada.png\"/>", "<image", "la imagen 'nada.png' no se puede leer", false},
};
// clang-format on

} // namespace

const std::vector<DamageCase>& damageCases() {
    static const std::vector<DamageCase> cases(std::begin(table), std::end(table));
    return cases;
}

QByteArray damaged(const DamageCase& damage) {
    return with(fullDefinition(), damage.part, damage.replacement);
}

} // namespace quorvane::report::test
