// The manual as users get it: the compiled file, read through the library.

#include "platform/help/HelpFile.h"
#include "platform/help/HelpText.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

using help::HelpFile;
using help::SitemapNode;

const HelpFile& manual() {
    static const HelpFile file(QStringLiteral(DALVORA_HELP_FILE));
    return file;
}

QStringList allPages(const std::vector<SitemapNode>& nodes) {
    QStringList pages;
    for (const SitemapNode& node : nodes)
        pages += node.pages + allPages(node.children);
    return pages;
}

QStringList captures(const QString& text, const QString& pattern) {
    const QRegularExpression expression(pattern, QRegularExpression::DotMatchesEverythingOption);
    QStringList found;
    for (auto match = expression.globalMatch(text); match.hasNext();)
        found.append(match.next().captured(1));
    return found;
}

// Does the page exist and, when an anchor is asked for, hold it?
bool leadsSomewhere(const QString& link) {
    const auto html = manual().html(link);
    const QString anchor = link.section(u'#', 1);
    return html && (anchor.isEmpty() || html->contains(QStringLiteral("<a name=\"%1\">").arg(anchor)));
}

TEST(Manual, HasTitleAndHomePage) {
    EXPECT_EQ(manual().title(), u"Manual de Dalvora");
    EXPECT_EQ(manual().homePage(), u"inicio.html");
}

TEST(Manual, ContextOfTheMainWindowLeadsToItsPage) {
    EXPECT_EQ(manual().pageForContext(138), u"ventana.html");
    EXPECT_EQ(manual().titleOf(QStringLiteral("ventana.html")), u"La ventana principal");
    EXPECT_TRUE(manual().pageForContext(139).isEmpty());
}

TEST(Manual, ContentsNameEveryPageOnceUnderAChapter) {
    QStringList listed = allPages(manual().contents());
    QStringList pages = manual().pages();
    EXPECT_EQ(manual().contents().size(), 5U);
    listed.sort();
    pages.sort();
    EXPECT_EQ(listed, pages);
    EXPECT_GE(pages.size(), 20);
    for (const SitemapNode& chapter : manual().contents())
        EXPECT_FALSE(chapter.children.empty()) << qPrintable(chapter.title);
}

TEST(Manual, CompiledPagesAreTheSourcesInTheirLetters) {
    for (const QString& page : manual().pages()) {
        QFile source(QDir(QStringLiteral(DALVORA_HELP_SOURCES)).filePath(page));
        ASSERT_TRUE(source.open(QIODevice::ReadOnly)) << qPrintable(page);
        QString text = QString::fromUtf8(source.readAll());
        text.replace(QStringLiteral("charset=\"utf-8\""), QStringLiteral("charset=\"windows-1252\""));
        EXPECT_EQ(manual().html(page).value_or(QString()), text) << qPrintable(page);
    }
}

TEST(Manual, TitlesOfContentsAndPagesAgree) {
    for (const SitemapNode& chapter : manual().contents()) {
        for (const SitemapNode& page : chapter.children)
            EXPECT_EQ(page.title, manual().titleOf(page.pages.value(0)));
    }
}

TEST(Manual, IndexIsSortedAndLeadsSomewhere) {
    EXPECT_GE(manual().index().size(), 60U);
    QString previous;
    for (const SitemapNode& word : manual().index()) {
        EXPECT_FALSE(word.pages.isEmpty()) << qPrintable(word.title);
        for (const QString& page : word.pages)
            EXPECT_TRUE(leadsSomewhere(page)) << qPrintable(word.title) << " " << qPrintable(page);
        EXPECT_LE(previous, help::foldForSearch(word.title)) << qPrintable(word.title);
        previous = help::foldForSearch(word.title);
    }
}

TEST(Manual, EveryLinkResolves) {
    int links = 0;
    for (const QString& page : manual().pages()) {
        const QString html = manual().html(page).value_or(QString());
        for (const QString& link : captures(html, QStringLiteral("<a href=\"([^\"]*)\""))) {
            EXPECT_TRUE(leadsSomewhere(link.startsWith(u'#') ? page + link : link))
                << qPrintable(page) << " -> " << qPrintable(link);
            ++links;
        }
        for (const QString& sheet : captures(html, QStringLiteral("<link [^>]*href=\"([^\"]*)\"")))
            EXPECT_TRUE(manual().bytes(sheet).has_value()) << qPrintable(sheet);
    }
    EXPECT_GT(links, 50);
}

TEST(Manual, EveryMessageSaysWhatItMeansAndWhatToDo) {
    const QString html = manual().html(QStringLiteral("mensajes.html")).value_or(QString());
    int messages = 0;
    for (const QString& row : captures(html, QStringLiteral("<tr>(.*?)</tr>"))) {
        const QStringList cells = captures(row, QStringLiteral("<td>(.*?)</td>"));
        if (cells.isEmpty())
            continue; // the caption row
        ASSERT_EQ(cells.size(), 3) << qPrintable(row);
        for (const QString& cell : cells)
            EXPECT_GE(help::plainText(cell).size(), 8) << qPrintable(row);
        ++messages;
    }
    EXPECT_GE(messages, 60);
}

// The messages a user can meet, as the program shows them.
constexpr const char16_t* ShownMessages[] = {
    u"Debe ingresar al menos una comisión para poder Guardar",
    u"Debe ingresar Fecha Inicial y Fecha Final para poder guardar",
    u"Fecha no válida",
    u"¿ Seguro de eliminar registro ?",
    u"Registro Eliminado",
    u"Registro no existe",
    u"¿ Seguro de leer otro registro perdiendo las modificaciones ingresadas ?",
    u"¿ Seguro de iniciar otro registro perdiendo las modificaciones ingresadas ?",
    u"Error al abrir registro",
    u"El informe quedó incompleto",
    u"Se detuvo la preparación del informe",
    u"El informe está incompleto",
    u"No se puede mostrar la página",
    u"No hay impresoras instaladas en este equipo.",
    u"No encontrado",
    u"Error al leer la definición del reporte",
    u"No existen Comisiones para el código y rango de fechas indicado",
    u"Error al ejecutar ProcessReport (",
    u"Error al leer variables UnBound (",
    u"Error al dar formato al reporte (",
    u"Error al imprimir reporte",
    u"Usuario No Tiene Permiso de Lectura",
    u"No se pueden leer más CtasCtes",
    u"Debe integrar o filtrar para continuar leyendo",
    u"Debe seleccionar vendedores para asignarles la comisión",
    u"Cliente no válido",
    u"tiene una comilla y no se puede asignar",
    u"Botón no implementado ",
    u"¿ Seguro de salir perdiendo las modificaciones ingresadas ?",
    u"Error al iniciar aplicación",
    u"Error al terminar aplicación",
    u"Error al inicializar la aplicación",
    u"Error al terminar la aplicación",
    u"No existe la siguiente configuración.",
    u"Columna inválida",
    u"Procentaje inválido(a)",
    u"Fecha Final inválido(a)",
    u"Fecha Inicial no pude ser superior a Fecha Final",
    u"Fecha Final no pude ser anterior a Fecha Inical",
    u"Fecha de inicio ha sido modificada, esto puede provocar inconsistencias",
    u"Fecha final ha sido modificada, esto puede provocar inconsistencias",
    u"Error al asignar valor a campo<",
    u"Error al validar campo<",
    u"Error al obtener lista de valores",
    u"Valor inválido(a)",
    u"Inicio de Tramo debe ser menor que Fin de Tramo",
    u"Fin Tramo debe ser mayor que Inicio de Tramo",
    u"<td>Porcentaje inválido(a)",
    u"Precio inválido(a)",
    u"Familia '…' no existe",
    u"SubFamilia '…' no existe",
    u"TipoProducto '…' no existe",
    u"Producto '…' no existe",
    u"Lista de Precios '…' no existe",
    u"Debe ingresar Porcentaje",
    u"Debe ingresar Calculo",
    u"Debe ingresar Documento",
    u"Error al asignar valor a campo de detalle",
    u"Error al leer tabla de productos",
    u"Error al validar campo de detalle",
    u"Usuario no tiene permiso de lectura",
    u"Error al leer registro",
    u"Usuario no tiene permiso de escritura",
    u"No se grabó el registro porque ha sido modificado por otro usuario. Debe leer nuevamente.",
    u"Error al grabar registro",
    u"Ya existe un registro con esas características",
    u"Error al actualizar datos",
    u"Usuario no tiene permiso de eliminación",
    u"Antes de eliminar debe leer un registro",
    u"Registro aún no ha sido grabado",
    u"No se eliminó el registro porque ha sido modificado por otro usuario. Debe leer nuevamente.",
    u"Error al eliminar registro",
    u"Error al eliminar datos",
    u"Error al iniciar nuevo registro",
    u"Debe Ingresar Tipo",
    u"Se seleccionaron todos los productos",
    u"Debe Ingresar Fechas",
    u"¿ Seguro de eliminar fila ?",
    u"Error al procesar consulta ",
    u"Error al instanciar componente de consulta a base de datos (Quorvane32.QuorQuery)",
    u"Error al instanciar componente AcercaDe para Quorvane (Quorvane32.QuorAbout)",
    u"No se encuentran componentes de visualización de archivos de ayuda.",
    u"inválido para seleccionar lista en formulario",
};

TEST(Manual, EveryMessageOfTheProgramIsInTheTable) {
    const QString html = manual().html(QStringLiteral("mensajes.html")).value_or(QString());
    for (const char16_t* message : ShownMessages)
        EXPECT_TRUE(html.contains(QString::fromUtf16(message))) << qPrintable(QString::fromUtf16(message));
}

} // namespace
