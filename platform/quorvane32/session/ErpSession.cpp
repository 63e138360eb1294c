#include "platform/quorvane32/session/ErpSession.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/base/SpanishText.h"
#include "platform/quorvane32/core/ConnectString.h"
#include <QDir>

namespace quorvane {

namespace {

const QString noRights = QStringLiteral("----");
constexpr std::chrono::seconds rightsAge{1};
/// How long the session's own statements wait for another program's lock.
constexpr int ownTimeout = 250;

/// The profile's connect string for the session's own connection: it waits shortly, and its entries need not
/// survive a power cut by themselves (the program's next commit takes them to the disk).
QString ownConnectString(const QString& connectString) {
    ConnectString options = ConnectString::parse(connectString);
    options.setValue(QStringLiteral("timeout"), QString::number(ownTimeout));
    options.setValue(QStringLiteral("synchronous"), QStringLiteral("normal"));
    return options.toString();
}

/// True for the embedded database, which is a file in a folder.
bool isFile(const QString& connectString) {
    return ConnectString::parse(connectString)
               .value(QStringLiteral("driver"))
               .compare(u"sqlite", Qt::CaseInsensitive) == 0;
}

/// As messages name it.
QString databaseName(const QString& connectString) {
    const QString name = ConnectString::parse(connectString).value(QStringLiteral("database"));
    return isFile(connectString) ? QDir::toNativeSeparators(name) : name;
}

/// The error with the name of the database that it is about.
RunTimeError withDatabase(const RunTimeError& error, const QString& database) {
    if (database.isEmpty() || error.description().contains(database))
        return error;
    return {error.number(), QStringLiteral("%1 (%2)").arg(error.description(), database)};
}

QString unknownCompany(const QString& company) {
    return QStringLiteral("La empresa «%1» no existe o no está en el perfil.").arg(company);
}

QString noAccess(const QString& user, const QString& program) {
    return QStringLiteral("El usuario «%1» no tiene acceso al programa %2.").arg(user, program);
}

[[noreturn]] void refuse(const QString& text) {
    throw RunTimeError(ErrorInvalidCall, text);
}

} // namespace

ErpSession::ErpSession(QString profileFolder, LoginPrompt* prompt)
    : ErpSession(std::move(profileFolder), prompt, Clock()) {}

ErpSession::ErpSession(QString profileFolder, LoginPrompt* prompt, Clock clock)
    : m_folder(std::move(profileFolder)), m_prompt(prompt), m_clock(std::move(clock)) {}

void ErpSession::Initialize(Connection& connection, const QString&, const QString& program, const QString&,
                            const QString& company, bool& cancel) {
    cancel = false;
    m_program = program;
    m_profile = Profile::load(m_folder);
    const QString connectString = m_profile.resolvedConnectString(m_folder);
    openOwn(connectString);
    m_accounts.checkLayout(databaseName(connectString));
    m_companies = m_accounts.companies(m_profile.companies);
    if (m_companies.empty())
        refuse(QStringLiteral("El perfil %1 no nombra ninguna empresa de la base de datos.")
                   .arg(Profile::fileName(m_folder)));
    if (!signIn(company)) {
        m_own.close();
        cancel = true;
        return;
    }
    m_rightsRead.reset();
    noticeReadOnly();
    connection.open(connectString);
    m_programs = &connection;
}

void ErpSession::openOwn(const QString& connectString) {
    try {
        m_own.open(ownConnectString(connectString));
    } catch (const RunTimeError& error) {
        if (error.number() != ErrorPermissionDenied || !isFile(connectString))
            throw withDatabase(error, databaseName(connectString));
        // A read-only file can be read; in a read-only folder the programs cannot agree on who writes.
        throw RunTimeError(
            ErrorPermissionDenied,
            QStringLiteral("No se puede usar la base de datos %1: no tiene permiso sobre ella o su carpeta "
                           "es de sólo lectura [%2]")
                .arg(databaseName(connectString), error.description()));
    }
}

bool ErpSession::signIn(const QString& company) {
    if (!m_profile.automatic)
        return askWhoSignsIn(company);
    signInAutomatically(company);
    return true;
}

void ErpSession::signInAutomatically(const QString& company) {
    const QString wanted = company.trimmed().isEmpty() ? m_profile.defaultCompany : company;
    const Company* found = findCompany(wanted);
    if (!found)
        refuse(unknownCompany(wanted));
    const std::optional<QString> user = m_accounts.userCode(m_profile.user);
    if (!user)
        refuse(QStringLiteral("El usuario «%1» del perfil %2 no existe.")
                   .arg(m_profile.user, Profile::fileName(m_folder)));
    if (m_accounts.isLockedForGood(*user))
        refuse(QStringLiteral("El usuario «%1» está bloqueado por el administrador.").arg(*user));
    if (!m_accounts.rights(*user, m_program))
        refuse(noAccess(*user, m_program));
    m_company = *found;
    m_user = *user;
}

bool ErpSession::askWhoSignsIn(const QString& company) {
    if (!m_prompt)
        refuse(QStringLiteral("El perfil %1 pide iniciar sesión y no hay ventana en que hacerlo.")
                   .arg(Profile::fileName(m_folder)));
    LoginQuestion question;
    question.companies = m_companies;
    question.company = m_profile.defaultCompany;
    question.user = m_profile.user;
    if (!company.trimmed().isEmpty()) {
        if (const Company* found = findCompany(company)) {
            question.company = found->code;
            question.askCompany = false;
        } else {
            question.message = unknownCompany(company);
        }
    }
    return m_prompt->ask(question, [this](const LoginAnswer& answer) { return attempt(answer); });
}

QString ErpSession::attempt(const LoginAnswer& answer) {
    try {
        const Company* found = findCompany(answer.company);
        if (!found)
            return unknownCompany(answer.company);
        const QString user = answer.user.trimmed();
        QString refusal = m_accounts.refusal(user, answer.password, m_clock.wall());
        if (!refusal.isEmpty())
            return refusal;
        const QString stored = m_accounts.userCode(user).value_or(user);
        if (!m_accounts.rights(stored, m_program))
            return noAccess(stored, m_program);
        m_company = *found;
        m_user = stored;
        return {};
    } catch (const RunTimeError& error) {
        // The window stays open: the database may be there again at the next attempt.
        return QString::number(error.number()) + QStringLiteral(" - ") + error.description();
    }
}

const Company* ErpSession::findCompany(const QString& code) const {
    const QString wanted = foldText(code.trimmed());
    for (const Company& company : m_companies)
        if (foldText(company.code) == wanted)
            return &company;
    return nullptr;
}

void ErpSession::noticeReadOnly() {
    m_readOnly = false;
    m_warning.clear();
    try {
        m_own.execute(QStringLiteral("UPDATE ses_esquema SET Version = Version WHERE 1 = 0"));
    } catch (const RunTimeError& error) {
        if (error.number() != ErrorPermissionDenied)
            return; // locked for the moment, say: that is told by whoever wants to write
        m_readOnly = true;
        m_warning =
            QStringLiteral("La base de datos %1 es de sólo lectura: puede consultar e imprimir, pero no "
                           "grabar ni eliminar. Tampoco queda registro de auditoría.")
                .arg(databaseName(m_own.connectString()));
    }
}

QString ErpSession::readRights() const {
    QString rights = m_accounts.rights(m_user, m_program).value_or(noRights);
    if (m_readOnly) {
        rights[1] = u'-';
        rights[3] = u'-';
    }
    return rights;
}

QString ErpSession::AccessRights() const {
    if (m_programs)
        m_programs->beginReading();
    if (!m_own.isOpen())
        return noRights;
    const auto now = m_clock.steady();
    if (m_rightsRead && now - *m_rightsRead < rightsAge)
        return m_rights;
    try {
        m_rights = readRights();
    } catch (const RunTimeError&) {
        // Whatever the rights allow fails as well while the database cannot be read.
        if (m_rights.isEmpty())
            m_rights = noRights;
    }
    m_rightsRead = now;
    return m_rights;
}

void ErpSession::Audit(int code, const QString& text) {
    // The operation that is told of is over.
    if (m_programs)
        m_programs->endReading();
    m_audit.add({m_clock.wall().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz")), m_user, m_company.code,
                 m_program, code, text, m_client});
    if (m_own.isOpen())
        m_audit.store();
}

} // namespace quorvane
