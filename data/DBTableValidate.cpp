#include "common/Trapped.h"
#include "data/DBTable.h"

namespace dalvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int startColumn = 5;
constexpr int endColumn = 6;

} // namespace

bool DBTable::Validate(bool ValidateRows) {
    return trapped(u"Error al validar campo"_s, false, [&] {
        SysErrorCol = 0;
        SysErrorTable = 0;
        SysErrorRow = 0;
        Grilla = 0;
        if (!assignEveryColumn())
            return false;
        if (!m_save_FechaInicio.isEmpty() && m_save_FechaInicio != m_FECHAINICIO &&
            !confirmChangedDate(startColumn,
                                u"Fecha de inicio ha sido modificada, esto puede provocar inconsistencias"_s))
            return false;
        if (!m_save_FechaFinal.isEmpty() && m_save_FechaFinal != m_FechaFinal &&
            !confirmChangedDate(endColumn,
                                u"Fecha final ha sido modificada, esto puede provocar inconsistencias"_s))
            return false;
        if (!ValidateRows)
            return true;
        if (!validateLines(m_details, LineKind::Producto) || !validateLines(m_montos, LineKind::Monto) ||
            !validateLines(m_precios, LineKind::Precio))
            return false;
        SysErrorTable = -1;
        SysErrorRow = 0;
        SysErrorCol = 0;
        return true;
    });
}

bool DBTable::confirmChangedDate(int column, const QString& question) {
    SysRecordModified = true;
    SysErrorCol = column;
    return ShowMessage(question + u"\nen los movimientos de documentos.  ¿Desea Continuar?"_s,
                       MessageQuestion) == ButtonYes;
}

template<class Line> bool DBTable::validateLines(LineCollection<Line>& lines, LineKind kind) {
    SysErrorTable = 1;
    SysErrorRow = 0;
    SysErrorCol = 0;
    for (const auto& line : lines.lines()) {
        ++SysErrorRow;
        if (line->SysRecordNull() || line->Validate())
            continue;
        SysErrorCol = line->SysErrorCol;
        Grilla = static_cast<int>(kind);
        return false;
    }
    return true;
}

} // namespace dalvora
