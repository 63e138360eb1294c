#include "data/CodeCheck.h"
#include "common/ShowMessage.h"
#include "common/SqlTemplate.h"
#include "common/SqlText.h"
#include "data/DBTable.h"
#include "platform/quorvane32/core/Connection.h"

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::Kind;

std::optional<FoundCode> findCode(const CodeCheck& check, const DBTable& table, const QString& code) {
    const SqlTemplate form(check.statement, Qt::CaseSensitive);
    const QString sql = SqlStatement(form, table.regional())
                            .fillText(u"Empresa", table.SysEmpresa)
                            .fill(check.placeholder, code, Kind::String)
                            .text();
    quorvane::Recordset row = table.connection().openRecordset(sql);
    if (row.eof())
        return std::nullopt;
    const auto field = [&](QStringView name) {
        return name.isEmpty()
                   ? QString()
                   : FieldValue(row.value(name), Kind::String, table.regional()).toText(table.regional());
    };
    return FoundCode{field(check.codeField), field(check.textField)};
}

bool tellNotFound(const CodeCheck& check, const QString& code) {
    ShowMessage(check.notFound.toString() + code + u"' no existe "_s, MessageInformation);
    return false;
}

} // namespace dalvora
