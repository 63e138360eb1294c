#include "platform/quorvane32/session/Profile.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/ConnectString.h"
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringDecoder>

namespace quorvane {

namespace {

constexpr qint64 largestProfile = 65536;

/// One line of the file that says something, with its place for error messages.
struct Place {
    QString file;
    int line = 0;

    [[noreturn]] void damaged(const QString& why) const {
        throw RunTimeError(
            ErrorFileFormat,
            QStringLiteral("El perfil %1 está dañado (línea %2): %3").arg(file).arg(line).arg(why));
    }
};

/// Text from the file between quotes, shortened so that a message box can hold it.
QString quoted(const QString& text) {
    constexpr qsizetype longest = 40;
    return u'«' + (text.size() > longest ? text.left(longest) + u'…' : text) + u'»';
}

bool yesOrNo(const QString& value, const Place& place) {
    if (value.compare(u"S", Qt::CaseInsensitive) == 0)
        return true;
    if (value.compare(u"N", Qt::CaseInsensitive) == 0)
        return false;
    place.damaged(QStringLiteral("se esperaba S o N y dice ") + quoted(value));
}

QStringList codes(const QString& value) {
    QStringList result;
    for (const QString& part : value.split(u',', Qt::SkipEmptyParts))
        if (!part.trimmed().isEmpty())
            result.append(part.trimmed());
    return result;
}

using Setter = void (*)(Profile& profile, const QString& value, const Place& place);

struct Key {
    const char16_t* section;
    const char16_t* name;
    Setter set;
};

/// Every key that a profile may hold: a misspelt one is told instead of being passed over.
constexpr Key keys[] = {
    {u"Base", u"Conexion", [](Profile& p, const QString& value, const Place&) { p.connectString = value; }},
    {u"Empresas", u"Codigos",
     [](Profile& p, const QString& value, const Place&) { p.companies = codes(value); }},
    {u"Empresas", u"Predeterminada",
     [](Profile& p, const QString& value, const Place&) { p.defaultCompany = value; }},
    {u"Ingreso", u"Usuario", [](Profile& p, const QString& value, const Place&) { p.user = value; }},
    {u"Ingreso", u"Automatico",
     [](Profile& p, const QString& value, const Place& place) { p.automatic = yesOrNo(value, place); }},
};

bool sameName(const QString& text, const char16_t* name) {
    return text.compare(QStringView(name), Qt::CaseInsensitive) == 0;
}

void setKey(Profile& profile, const QString& section, const QString& name, const QString& value,
            const Place& place) {
    for (const Key& key : keys) {
        if (sameName(section, key.section) && sameName(name, key.name)) {
            key.set(profile, value, place);
            return;
        }
    }
    place.damaged(QStringLiteral("clave desconocida %1 en la sección %2").arg(quoted(name), quoted(section)));
}

void checkSection(const QString& section, const Place& place) {
    for (const Key& key : keys)
        if (sameName(section, key.section))
            return;
    place.damaged(QStringLiteral("sección desconocida ") + quoted(section));
}

QString readText(const QString& path) {
    QFile file(path);
    if (!file.exists())
        throw RunTimeError(ErrorFileNotFound, QStringLiteral("No se encontró el perfil %1").arg(path));
    if (!file.open(QIODevice::ReadOnly))
        throw RunTimeError(
            ErrorPermissionDenied,
            QStringLiteral("No se puede leer el perfil %1 (%2)").arg(path, file.errorString()));
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder(file.read(largestProfile));
    if (decoder.hasError() || text.contains(QChar(u'\0')) || !file.atEnd())
        Place{path, 1}.damaged(QStringLiteral("el archivo no es un perfil de texto UTF-8"));
    return text;
}

Profile parse(const QString& text, const QString& path) {
    Profile profile;
    QString section;
    Place place{path, 0};
    for (const QString& raw : text.split(u'\n')) {
        ++place.line;
        const QString line = raw.trimmed();
        if (line.isEmpty() || line.startsWith(u';') || line.startsWith(u'#'))
            continue;
        if (line.startsWith(u'[') && line.endsWith(u']')) {
            section = line.mid(1, line.size() - 2).trimmed();
            checkSection(section, place);
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (equals <= 0)
            place.damaged(QStringLiteral("se esperaba clave=valor y dice ") + quoted(line));
        if (section.isEmpty())
            place.damaged(QStringLiteral("falta la sección antes de ") + quoted(line));
        setKey(profile, section, line.left(equals).trimmed(), line.mid(equals + 1).trimmed(), place);
    }
    if (profile.connectString.isEmpty())
        place.damaged(QStringLiteral("falta la clave Conexion de la sección [Base]"));
    if (profile.companies.isEmpty())
        place.damaged(QStringLiteral("falta la clave Codigos de la sección [Empresas]"));
    if (profile.automatic && profile.user.isEmpty())
        place.damaged(
            QStringLiteral("el ingreso automático necesita la clave Usuario de la sección [Ingreso]"));
    if (profile.defaultCompany.isEmpty())
        profile.defaultCompany = profile.companies.front();
    return profile;
}

} // namespace

QString Profile::defaultFolder() {
    const QString home = qEnvironmentVariable("QUORVANE_HOME");
    if (!home.isEmpty())
        return QDir::cleanPath(home);
    return usualFolder();
}

QString Profile::usualFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/quorvane");
}

QString Profile::fileName(const QString& folder) {
    return QDir::toNativeSeparators(folder + QStringLiteral("/quorvane.ini"));
}

bool Profile::exists(const QString& folder) {
    return QFile::exists(fileName(folder));
}

Profile Profile::load(const QString& folder) {
    const QString path = fileName(folder);
    return parse(readText(path), path);
}

void Profile::save(const QString& folder) const {
    QSaveFile file(fileName(folder));
    const QString text = QStringLiteral("; Perfil de Quorvane ERP\n"
                                        "[Base]\nConexion=%1\n\n"
                                        "[Empresas]\nCodigos=%2\nPredeterminada=%3\n\n"
                                        "[Ingreso]\nUsuario=%4\nAutomatico=%5\n")
                             .arg(connectString, companies.join(u','), defaultCompany, user,
                                  automatic ? QStringLiteral("S") : QStringLiteral("N"));
    if (file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0 && file.commit())
        return;
    if (file.error() == QFileDevice::ResourceError)
        throw RunTimeError(
            ErrorDiskFull,
            QStringLiteral("No queda espacio en el disco para el perfil %1").arg(file.fileName()));
    throw RunTimeError(
        ErrorPathAccess,
        QStringLiteral("No se puede grabar el perfil %1 (%2)").arg(file.fileName(), file.errorString()));
}

QString Profile::resolvedConnectString(const QString& folder) const {
    ConnectString options = ConnectString::parse(connectString);
    const QString file = options.value(QStringLiteral("database"));
    const bool embedded =
        options.value(QStringLiteral("driver")).compare(u"sqlite", Qt::CaseInsensitive) == 0;
    if (embedded && !file.isEmpty() && QDir::isRelativePath(file))
        options.setValue(QStringLiteral("database"), QDir::cleanPath(folder + u'/' + file));
    return options.toString();
}

} // namespace quorvane
