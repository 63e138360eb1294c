#include "platform/reportengine/definition/Grammar.h"

namespace quorvane::report {

namespace {

using Kind = ValueRule::Kind;

constexpr ValueRule anyText{Kind::Text, 0, 0, nullptr, u"un texto de 1000 caracteres a lo más"};
constexpr ValueRule name{Kind::Name, 0, 0, nullptr, u"un nombre de 1 a 100 caracteres"};
constexpr ValueRule formulaName{Kind::FormulaName, 0, 0, nullptr, u"un nombre de fórmula como {@CfgEmpresa}"};
constexpr ValueRule fileName{Kind::FileName, 0, 0, nullptr,
                             u"el nombre, sin carpeta, de un archivo png, jpg o svg"};
constexpr ValueRule place{Kind::Decimal, 0, 2000, nullptr, u"una medida de 0 a 2000 milímetros"};
constexpr ValueRule extent{Kind::Decimal, 0.1, 2000, nullptr, u"una medida de 0.1 a 2000 milímetros"};
constexpr ValueRule paper{Kind::Decimal, 20, 2000, nullptr, u"una medida de 20 a 2000 milímetros"};
constexpr ValueRule fontSize{Kind::Decimal, 4, 144, nullptr, u"un tamaño de 4 a 144 puntos"};
constexpr ValueRule penWidth{Kind::Decimal, 0, 20, nullptr, u"un grosor de 0 a 20 puntos"};
constexpr ValueRule digits{Kind::Whole, 0, 9, nullptr, u"un número entero de 0 a 9"};
constexpr ValueRule colour{Kind::Colour, 0, 0, nullptr, u"un color como #1F3864"};
constexpr ValueRule separator{Kind::Symbol, 1, 0, nullptr, u"un solo carácter"};
constexpr ValueRule optionalSeparator{Kind::Symbol, 0, 0, nullptr, u"un solo carácter o ninguno"};
constexpr ValueRule truth{Kind::Choice, 0, 0, u"true|false", nullptr};
constexpr ValueRule columnType{Kind::Choice, 0, 0, u"text|number|date", nullptr};
constexpr ValueRule period{Kind::Choice, 0, 0, u"none|month|year", nullptr};
constexpr ValueRule horizontal{Kind::Choice, 0, 0, u"left|center|right", nullptr};
constexpr ValueRule vertical{Kind::Choice, 0, 0, u"top|middle|bottom", nullptr};
constexpr ValueRule dateForm{Kind::Choice, 0, 0, u"short|month|year", nullptr};
constexpr ValueRule special{Kind::Choice, 0, 0, u"page|pages|pageOfPages|printDate", nullptr};
constexpr ValueRule test{Kind::Choice, 0, 0, u"negative|positive|zero|empty|filled", nullptr};

constexpr AttributeRule reportAttributes[] = {{u"title", &name, true}};
constexpr AttributeRule pageAttributes[] = {{u"width", &paper, true}, {u"height", &paper, true},
                                            {u"left", &place, true},  {u"top", &place, true},
                                            {u"right", &place, true}, {u"bottom", &place, true}};
constexpr AttributeRule styleAttributes[] = {
    {u"name", &name, true},          {u"font", &name, false},        {u"size", &fontSize, false},
    {u"bold", &truth, false},        {u"italic", &truth, false},     {u"colour", &colour, false},
    {u"background", &colour, false}, {u"align", &horizontal, false}, {u"valign", &vertical, false}};
constexpr AttributeRule columnsAttributes[] = {{u"sortedBySource", &truth, false}};
constexpr AttributeRule columnAttributes[] = {{u"name", &name, true}, {u"type", &columnType, true}};
constexpr AttributeRule nameAttributes[] = {{u"name", &name, true}};
constexpr AttributeRule countColumnAttributes[] = {
    {u"name", &name, true}, {u"column", &name, true}, {u"equals", &anyText, true}};
constexpr AttributeRule termAttributes[] = {{u"column", &name, true}};
constexpr AttributeRule formulaAttributes[] = {{u"name", &formulaName, true}, {u"text", &anyText, false}};
constexpr AttributeRule groupAttributes[] = {{u"name", &name, true},
                                             {u"column", &name, true},
                                             {u"period", &period, false},
                                             {u"caption", &anyText, false},
                                             {u"captionColumn", &name, false}};
constexpr AttributeRule keyAttributes[] = {{u"column", &name, true}, {u"descending", &truth, false}};

constexpr AttributeRule bandAttributes[] = {{u"height", &place, true}, {u"name", &name, false}};
constexpr AttributeRule ofGroupAttributes[] = {{u"group", &name, true}};
constexpr AttributeRule groupHeaderAttributes[] = {
    {u"group", &name, true}, {u"repeat", &truth, false}, {u"newPage", &truth, false}};
constexpr AttributeRule detailsAttributes[] = {{u"shaded", &truth, false}};
constexpr AttributeRule newPageAttributes[] = {{u"newPage", &truth, false}};

constexpr AttributeRule objectAttributes[] = {{u"name", &name, false},    {u"left", &place, true},
                                              {u"top", &place, true},     {u"width", &extent, true},
                                              {u"height", &extent, true}, {u"style", &name, false}};
constexpr AttributeRule lineAttributes[] = {{u"name", &name, false},      {u"left", &place, true},
                                            {u"top", &place, true},       {u"width", &place, true},
                                            {u"height", &place, true},    {u"style", &name, false},
                                            {u"stroke", &penWidth, false}};
constexpr AttributeRule formatAttributes[] = {{u"decimals", &digits, false},
                                              {u"thousands", &optionalSeparator, false},
                                              {u"decimal", &separator, false},
                                              {u"formatOf", &name, false}};
constexpr AttributeRule fieldAttributes[] = {{u"column", &name, true}, {u"dateForm", &dateForm, false}};
constexpr AttributeRule formulaFieldAttributes[] = {{u"formula", &formulaName, true}};
constexpr AttributeRule sumAttributes[] = {{u"column", &name, true}, {u"group", &name, false}};
constexpr AttributeRule countAttributes[] = {{u"group", &name, false}};
constexpr AttributeRule specialAttributes[] = {{u"show", &special, true}};
constexpr AttributeRule textAttributes[] = {{u"text", &anyText, true}};
constexpr AttributeRule boxAttributes[] = {{u"stroke", &penWidth, false}};
constexpr AttributeRule imageAttributes[] = {{u"file", &fileName, true}};
constexpr AttributeRule chartAttributes[] = {
    {u"group", &name, true}, {u"column", &name, true}, {u"title", &anyText, false}};
constexpr AttributeRule whenAttributes[] = {
    {u"column", &name, true}, {u"is", &test, true}, {u"style", &name, true}};
constexpr AttributeRule showWhenAttributes[] = {{u"column", &name, true}, {u"is", &test, true}};

constexpr int many = ElementRule::unlimited;
constexpr const char16_t* pageName[] = {u"page"};
constexpr const char16_t* stylesName[] = {u"styles"};
constexpr const char16_t* styleName[] = {u"style"};
constexpr const char16_t* columnsName[] = {u"columns"};
constexpr const char16_t* columnNames[] = {u"column", u"sumColumn", u"countColumn"};
constexpr const char16_t* termName[] = {u"term"};
constexpr const char16_t* formulasName[] = {u"formulas"};
constexpr const char16_t* formulaElement[] = {u"formula"};
constexpr const char16_t* groupsName[] = {u"groups"};
constexpr const char16_t* groupName[] = {u"group"};
constexpr const char16_t* sortName[] = {u"sort"};
constexpr const char16_t* keyName[] = {u"key"};
constexpr const char16_t* sectionsName[] = {u"sections"};
constexpr const char16_t* reportHeader[] = {u"reportHeader"};
constexpr const char16_t* pageHeader[] = {u"pageHeader"};
constexpr const char16_t* groupHeader[] = {u"groupHeader"};
constexpr const char16_t* details[] = {u"details"};
constexpr const char16_t* groupFooter[] = {u"groupFooter"};
constexpr const char16_t* reportFooter[] = {u"reportFooter"};
constexpr const char16_t* pageFooter[] = {u"pageFooter"};
constexpr const char16_t* objects[] = {u"field", u"formulaField", u"sum", u"count", u"special",
                                       u"text",  u"line",         u"box", u"image", u"chart"};
constexpr const char16_t* conditions[] = {u"when", u"showWhen"};

constexpr Step reportContent[] = {{pageName, 1, 1},     {stylesName, 1, 1}, {columnsName, 1, 1},
                                  {formulasName, 0, 1}, {groupsName, 0, 1}, {sortName, 0, 1},
                                  {sectionsName, 1, 1}};
constexpr Step stylesContent[] = {{styleName, 1, many}};
constexpr Step columnsContent[] = {{columnNames, 1, many}};
constexpr Step sumColumnContent[] = {{termName, 1, many}};
constexpr Step formulasContent[] = {{formulaElement, 1, many}};
/// Each group makes the walk over the rows a little longer; nobody reads a report with more levels.
constexpr Step groupsContent[] = {{groupName, 1, 8}};
constexpr Step sortContent[] = {{keyName, 1, many}};
constexpr Step sectionsContent[] = {{reportHeader, 0, 1}, {pageHeader, 0, 1},  {groupHeader, 0, 8},
                                    {details, 1, 1},      {groupFooter, 0, 8}, {reportFooter, 0, 1},
                                    {pageFooter, 0, 1}};
constexpr Step bandContent[] = {{objects, 0, many}};
constexpr Step objectContent[] = {{conditions, 0, 1}};

constexpr ElementRule rules[] = {
    {u"report", {reportAttributes}, reportContent},
    {u"page", {pageAttributes}, {}},
    {u"styles", {}, stylesContent},
    {u"style", {styleAttributes}, {}},
    {u"columns", {columnsAttributes}, columnsContent},
    {u"column", {columnAttributes}, {}},
    {u"sumColumn", {nameAttributes}, sumColumnContent},
    {u"term", {termAttributes}, {}},
    {u"countColumn", {countColumnAttributes}, {}},
    {u"formulas", {}, formulasContent},
    {u"formula", {formulaAttributes}, {}},
    {u"groups", {}, groupsContent},
    {u"group", {groupAttributes}, {}},
    {u"sort", {}, sortContent},
    {u"key", {keyAttributes}, {}},
    {u"sections", {}, sectionsContent},
    {u"reportHeader", {bandAttributes}, bandContent},
    {u"pageHeader", {bandAttributes}, bandContent},
    {u"groupHeader", {bandAttributes, groupHeaderAttributes}, bandContent},
    {u"details", {bandAttributes, detailsAttributes}, bandContent},
    {u"groupFooter", {bandAttributes, ofGroupAttributes}, bandContent},
    {u"reportFooter", {bandAttributes, newPageAttributes}, bandContent},
    {u"pageFooter", {bandAttributes}, bandContent},
    {u"field", {objectAttributes, formatAttributes, fieldAttributes}, objectContent},
    {u"formulaField", {objectAttributes, formulaFieldAttributes}, objectContent},
    {u"sum", {objectAttributes, formatAttributes, sumAttributes}, objectContent},
    {u"count", {objectAttributes, formatAttributes, countAttributes}, objectContent},
    {u"special", {objectAttributes, specialAttributes}, objectContent},
    {u"text", {objectAttributes, textAttributes}, objectContent},
    {u"line", {lineAttributes}, objectContent},
    {u"box", {objectAttributes, boxAttributes}, objectContent},
    {u"image", {objectAttributes, imageAttributes}, objectContent},
    {u"chart", {objectAttributes, chartAttributes}, objectContent},
    {u"when", {whenAttributes}, {}},
    {u"showWhen", {showWhenAttributes}, {}},
};

} // namespace

const AttributeRule* ElementRule::attribute(QStringView wanted) const {
    for (const std::span<const AttributeRule>& set : attributes)
        for (const AttributeRule& candidate : set)
            if (wanted == QStringView(candidate.name))
                return &candidate;
    return nullptr;
}

const ElementRule* elementRule(QStringView name) {
    for (const ElementRule& rule : rules)
        if (name == QStringView(rule.name))
            return &rule;
    return nullptr;
}

} // namespace quorvane::report
