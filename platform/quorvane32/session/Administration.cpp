#include "platform/quorvane32/session/Administration.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/session/Accounts.h"
#include "platform/quorvane32/session/Passwords.h"
#include "platform/quorvane32/session/SessionSql.h"

namespace quorvane {

namespace {

const RegionalSettings plain{};

/// Undoes what was begun unless it was committed.
class Transaction {
public:
    explicit Transaction(Connection& connection) : m_connection(connection) { m_connection.beginTrans(); }
    ~Transaction() { m_connection.rollbackTrans(); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit() { m_connection.commitTrans(); }

private:
    Connection& m_connection;
};

[[noreturn]] void refuse(const QString& text) {
    throw RunTimeError(ErrorInvalidCall, text);
}

[[noreturn]] void raiseUnknown(const QString& code) {
    throw RunTimeError(ErrorItemNotFound, QStringLiteral("El usuario «%1» no existe").arg(code));
}

QString checkedPassword(const QString& password) {
    if (password.size() < Administration::shortestPassword)
        refuse(QStringLiteral("La contraseña debe tener al menos %1 caracteres")
                   .arg(Administration::shortestPassword));
    return password;
}

QString checkedRights(const QString& letters) {
    static constexpr QStringView all = u"RWXD";
    QString upper = letters.toUpper();
    bool valid = upper.size() == all.size();
    for (qsizetype i = 0; valid && i < all.size(); ++i)
        valid = upper[i] == all[i] || upper[i] == u'-';
    if (!valid)
        refuse(QStringLiteral(
                   "Derechos inválidos «%1»: se esperan cuatro letras RWXD, con «-» en lugar de las que no "
                   "se otorgan")
                   .arg(letters));
    return upper;
}

QString text(const Recordset& row, QStringView field) {
    return row.value(field).toText(plain);
}

} // namespace

std::vector<UserRecord> Administration::users(const QDateTime& now) {
    std::vector<UserRecord> users;
    Recordset rows = m_connection.openRecordset(
        QStringLiteral("SELECT u.Usuario, u.Nombre, u.BloqueadoHasta, coalesce(d.Programa, '') Programa, "
                       "coalesce(d.Derechos, '') Derechos FROM ses_usuario u LEFT JOIN ses_derecho d ON "
                       "d.Usuario = u.Usuario ORDER BY u.Usuario, d.Programa"));
    for (; !rows.eof(); rows.moveNext()) {
        if (users.empty() || users.back().code != text(rows, u"Usuario")) {
            const auto lock = static_cast<qint64>(rows.value(u"BloqueadoHasta").toNumber(plain));
            const bool forGood = lock >= Accounts::lockedForGood;
            const QDateTime end = QDateTime::fromSecsSinceEpoch(lock);
            users.push_back({text(rows, u"Usuario"),
                             text(rows, u"Nombre"),
                             !forGood && end > now ? end : QDateTime(),
                             forGood,
                             {}});
        }
        if (!text(rows, u"Programa").isEmpty())
            users.back().rights.emplace_back(text(rows, u"Programa"), text(rows, u"Derechos"));
    }
    return users;
}

void Administration::addUser(const QString& code, const QString& name, const QString& password) {
    if (code.trimmed().isEmpty())
        refuse(QStringLiteral("Debe indicar el usuario"));
    const QString hash = hashPassword(checkedPassword(password));
    m_connection.execute(QStringLiteral("INSERT INTO ses_usuario (Usuario, Nombre, Clave) VALUES (") +
                         sqlText(code.trimmed()) + u',' + sqlText(name.trimmed()) + u',' + sqlText(hash) +
                         u')');
}

void Administration::removeUser(const QString& code) {
    Transaction transaction(m_connection);
    if (m_connection.execute(QStringLiteral("DELETE FROM ses_usuario WHERE Usuario = ") + sqlText(code)) == 0)
        raiseUnknown(code);
    m_connection.execute(QStringLiteral("DELETE FROM ses_derecho WHERE Usuario = ") + sqlText(code));
    transaction.commit();
}

void Administration::requireUser(const QString& code) {
    const Recordset user = m_connection.openRecordset(
        QStringLiteral("SELECT Usuario FROM ses_usuario WHERE Usuario = ") + sqlText(code));
    if (user.eof())
        raiseUnknown(code);
}

void Administration::setPassword(const QString& code, const QString& password) {
    const QString hash = hashPassword(checkedPassword(password));
    update(code, QStringLiteral("Fallidos = 0, BloqueadoHasta = CASE WHEN BloqueadoHasta < %1 THEN 0 ELSE "
                                "BloqueadoHasta END, Clave = ")
                         .arg(Accounts::lockedForGood) +
                     sqlText(hash));
}

void Administration::setRights(const QString& code, const QString& program, const QString& letters) {
    const QString rights = checkedRights(letters);
    if (program.trimmed().isEmpty())
        refuse(QStringLiteral("Debe indicar el programa"));
    Transaction transaction(m_connection);
    const QString key = sqlText(program.trimmed().toUpper());
    requireUser(code);
    if (m_connection.execute(QStringLiteral("UPDATE ses_derecho SET Derechos = ") + sqlText(rights) +
                             QStringLiteral(" WHERE Usuario = ") + sqlText(code) +
                             QStringLiteral(" AND Programa = ") + key) == 0)
        m_connection.execute(
            QStringLiteral("INSERT INTO ses_derecho (Usuario, Programa, Derechos) VALUES (") + sqlText(code) +
            u',' + key + u',' + sqlText(rights) + u')');
    transaction.commit();
}

void Administration::lock(const QString& code) {
    update(code, QStringLiteral("BloqueadoHasta = %1").arg(Accounts::lockedForGood));
}

void Administration::unlock(const QString& code) {
    update(code, QStringLiteral("Fallidos = 0, BloqueadoHasta = 0"));
}

void Administration::update(const QString& code, const QString& assignments) {
    if (m_connection.execute(QStringLiteral("UPDATE ses_usuario SET ") + assignments +
                             QStringLiteral(" WHERE Usuario = ") + sqlText(code)) == 0)
        raiseUnknown(code);
}

std::vector<Company> Administration::companies() {
    std::vector<Company> companies;
    Recordset rows = m_connection.openRecordset(
        QStringLiteral("SELECT Empresa, Nombre FROM ses_empresa ORDER BY Empresa"));
    for (; !rows.eof(); rows.moveNext())
        companies.push_back({text(rows, u"Empresa"), text(rows, u"Nombre")});
    return companies;
}

void Administration::addCompany(const QString& code, const QString& name) {
    if (code.trimmed().isEmpty() || name.trimmed().isEmpty())
        refuse(QStringLiteral("Debe indicar el código y el nombre de la empresa"));
    m_connection.execute(QStringLiteral("INSERT INTO ses_empresa (Empresa, Nombre) VALUES (") +
                         sqlText(code.trimmed()) + u',' + sqlText(name.trimmed()) + u')');
}

} // namespace quorvane
