#pragma once

#include <QKeySequence>
#include <QStringView>
#include <array>

namespace dalvora {

/// A toolbar button: its key, its tool tip with its blanks, the key of its image, and a key combination for
/// commands that no menu shows.
struct ToolbarCommand {
    QStringView key;
    QStringView toolTip;
    QStringView image;
    const char* shortcut;
};

/// A menu item: object name, caption ("-" is a separator), the command that it gives ("" for one that opens a
/// form by itself) and its key combination.
struct MenuCommand {
    QStringView menu;
    QStringView name;
    QStringView caption;
    QStringView key;
    const char* shortcut;
};

struct MenuTitle {
    QStringView name;
    QStringView caption;
};

inline constexpr std::array toolbarCommands{
    ToolbarCommand{u"limpiar", u" Nuevo Registro ", u"limpiar", ""},
    ToolbarCommand{u"leer", u" Leer Registro", u"leer", ""},
    ToolbarCommand{u"eliminar", u" Eliminar Registro ", u"eliminar", ""},
    ToolbarCommand{u"grabar", u" Grabar Registro ", u"grabar", ""},
    ToolbarCommand{u"vprevia", u"Vista Previa", u"vprevia", "Ctrl+Shift+P"},
    ToolbarCommand{u"imprimir", u"Imprimir", u"imprimir", "Ctrl+P"},
    ToolbarCommand{u"cliente", u"Asignación de comisiones a vendedores", u"Vendedores", ""},
    ToolbarCommand{u"ayuda", u"Ayuda", u"ayuda", ""},
};

inline constexpr std::array menuTitles{
    MenuTitle{u"mnuEditar", u"&Editar"},
    MenuTitle{u"mnuVer", u"&Ver"},
    MenuTitle{u"mnuOpciones", u"&Opciones"},
    MenuTitle{u"mnuAyuda", u"&Ayuda"},
};

// Alt+F4 stays with the window system: closing the window asks before it loses an entry, "salir" does not.
inline constexpr std::array menuCommands{
    MenuCommand{u"mnuEditar", u"mnuLimpiar", u"Limpiar", u"limpiar", "Ctrl+N"},
    MenuCommand{u"mnuEditar", u"mnuLeer", u"&Leer", u"leer", "Ctrl+L"},
    MenuCommand{u"mnuEditar", u"mnuEliminar", u"&Eliminar", u"eliminar", "Ctrl+E"},
    MenuCommand{u"mnuEditar", u"mnuGrabar", u"&Grabar", u"grabar", "Ctrl+G"},
    MenuCommand{u"mnuEditar", u"mnu_Raya1", u"-", u"", ""},
    MenuCommand{u"mnuEditar", u"mnuCerrar", u"&Cerrar", u"cerrar", "Ctrl+F4"},
    MenuCommand{u"mnuEditar", u"mnuSalir", u"&Salir", u"salir", "Ctrl+Q"},
    MenuCommand{u"mnuVer", u"mnuLeerPrimero", u"&Primer Registro", u"leerprimero", "Alt+Home"},
    MenuCommand{u"mnuVer", u"mnuLeerSiguiente", u"&Siguiente Registro", u"leersiguiente", "Alt+PgDown"},
    MenuCommand{u"mnuVer", u"mnu_Raya2", u"-", u"", ""},
    MenuCommand{u"mnuVer", u"mnuBrowser", u"&Ver Lista de Registros", u"browser", "Ctrl+B"},
    MenuCommand{u"mnuOpciones", u"mnuAsignar", u"&Asignar Comision", u"", "Ctrl+M"},
    MenuCommand{u"mnuOpciones", u"mnuModif", u"&Modificación de Fechas", u"", "Ctrl+D"},
    MenuCommand{u"mnuAyuda", u"mnuAyudaTopico", u"&Tópico", u"ayuda", "F1"},
    MenuCommand{u"mnuAyuda", u"mnuAyudaBuscar", u"&Buscar ayuda sobre", u"ayudabuscar", "Shift+F1"},
    MenuCommand{u"mnuAyuda", u"mnuAyudaUso", u"&Uso de la ayuda", u"ayudauso", "Ctrl+F1"},
    MenuCommand{u"mnuAyuda", u"mnu_raya4", u"-", u"", ""},
    MenuCommand{u"mnuAyuda", u"mnuAcercaDe", u"&Acerca de ...", u"acercade", "Ctrl+Shift+F1"},
};

} // namespace dalvora
