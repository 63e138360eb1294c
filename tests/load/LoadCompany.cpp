#include "tests/load/LoadCompany.h"

#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/Profile.h"
#include <QDir>

namespace dalvora::test {

using namespace Qt::StringLiterals;

namespace {

const QString seed = uR"(
INSERT INTO ses_empresa (Empresa, Nombre) VALUES ('001', 'Empresa de prueba');
INSERT INTO gen_tabcod (Empresa, Tipo, Codigo, Texto, Valor1, Valor2) VALUES
 ('001', 'GEN_MONEDA', 'PESO', '', 0, 2), ('001', 'CONFIG.EMPRESA', 'MONEDA', 'PESO', 0, 0),
 ('001', 'config.dalvora', 'DECIMALES.CANTIDAD', '', 2, 0);
)"_s;

/// "head (a1), (a2), ...;" with %1 in the row replaced by a number.
QString numbered(const QString& head, const QString& row, int first, int last) {
    QStringList rows;
    for (int i = first; i <= last; ++i)
        rows << QString(row).replace(u"%1"_s, QString::number(i));
    return head + u" VALUES "_s + rows.join(u',') + u";\n"_s;
}

} // namespace

LoadCompany::LoadCompany(TestEngine engine, int users, int timeout) : m_database(engine) {
    QString script = seed;
    script += numbered(u"INSERT INTO producto (Empresa, Producto, Glosa)"_s,
                       u"('001', 'P%1', 'Producto %1')"_s, 1, codesOfAKind);
    script += numbered(u"INSERT INTO tipodocumento (Empresa, TipoDocto, Sistema, Valorizado, Vendedor)"_s,
                       u"('001', 'D%1', 'ventas', 'S', 'S')"_s, 1, codesOfAKind);
    script += numbered(u"INSERT INTO ListaPrecio (Empresa, LisPrecio, Descripcion)"_s,
                       u"('001', 'L%1', 'Lista %1')"_s, 1, codesOfAKind);
    script += numbered(u"INSERT INTO gen_tabcod (Empresa, Tipo, Codigo, Texto)"_s,
                       u"('001', 'gen_vendedor', 'V%1', 'inicio')"_s, 1, salespeople);
    script += numbered(u"INSERT INTO Comisiones (Empresa, Codigo, Descripcion, FechaInicio, FechaFinal)"_s,
                       u"('001', 'S%1', 'inicio', '01/01/2006', '31/12/2006')"_s, 1, sharedSchemes);
    script += numbered(u"INSERT INTO ses_usuario (Usuario)"_s, u"('u%1')"_s, 0, users - 1);
    script += numbered(u"INSERT INTO ses_derecho (Usuario, Programa, Derechos)"_s,
                       u"('u%1', 'VELTRANO', 'RWXD')"_s, 0, users - 1);
    m_database.run(script);
    for (int user = 0; user < users; ++user)
        writeProfile(user, timeout);
}

void LoadCompany::writeProfile(int user, int timeout) const {
    QDir().mkpath(profileFolder(user));
    quorvane::Profile profile;
    profile.connectString = m_database.connectString(timeout);
    profile.companies = {u"001"_s};
    profile.defaultCompany = u"001"_s;
    profile.user = u"u%1"_s.arg(user);
    profile.automatic = true;
    profile.save(profileFolder(user));
}

LoadProgram::LoadProgram(const QString& profileFolder, const LoadParts& parts) {
    m_context.Connection = std::make_unique<quorvane::Connection>([parts](const QString& connectString) {
        auto engine = quorvane::openEngine(connectString);
        return parts.engine ? parts.engine(std::move(engine)) : std::move(engine);
    });
    auto erp = std::make_unique<quorvane::ErpSession>(profileFolder, nullptr);
    m_erp = erp.get();
    m_context.Session = std::move(erp);
    if (parts.session)
        m_context.Session = parts.session(std::move(m_context.Session));
    bool cancel = false;
    m_context.Session->Initialize(connection(), u"DALVORA"_s, u"VELTRANO"_s, u"1.0.01"_s, u"001"_s, cancel);
    m_context.Table = std::make_unique<DBTable>(connection(), session(), m_context.Regional);
    if (!table().DBInitialize())
        throw quorvane::RunTimeError(quorvane::ErrorInvalidCall, u"DBInitialize"_s);
    table().carga_inicio();
}

bool LoadProgram::read(const QString& code) {
    DBTable& record = table();
    record.DBClear();
    record.carga_inicio();
    record.ClearDates();
    record.setTextValue(2, code);
    if (!record.DBRead())
        return false;
    record.SaveDates();
    if (!record.SysRecordFound)
        record.carga_inicio();
    return true;
}

} // namespace dalvora::test
