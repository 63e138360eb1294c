#include "app/HostCommand.h"
#include "app/CommandLine.h"
#include "common/SqlText.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QStringList>
#include <algorithm>

namespace dalvora {

using namespace Qt::StringLiterals;
using quorvane::Date;

namespace {

constexpr int longestCode = 20;

constexpr QStringView keyAction = u"ACCION";
constexpr QStringView keyCompany = u"EMPRESA";
constexpr QStringView keyRecord = u"CLAVE";
constexpr QStringView keyStart = u"FECHAINICIO";
constexpr QStringView keyEnd = u"FECHAFINAL";
constexpr QStringView keyEnabled = u"HABILITADO";
constexpr QStringView keys[] = {keyAction, keyCompany, keyRecord, keyStart, keyEnd, keyEnabled};

struct NamedAction {
    QStringView name;
    HostCommand::Action action;
};

constexpr NamedAction actions[] = {
    {u"MOSTRAR", HostCommand::Action::Show},
    {u"NUEVO", HostCommand::Action::Add},
    {u"ABRIR", HostCommand::Action::Open},
};

bool same(QStringView one, QStringView other) {
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

[[noreturn]] void refuse(const QString& why) {
    throw quorvane::RunTimeError(quorvane::ErrorInvalidCall, why);
}

/// What was sent, short enough to be read in a reason.
QString quoted(QStringView text) {
    constexpr qsizetype longest = 40;
    return u'«' + text.left(longest).toString() + (text.size() > longest ? u"…»"_s : u"»"_s);
}

// A code may hold a ";", which no value can: taken apart, it would name another record. So everything between
// two ";" has to be a pair that is known, and each of them once.
void checkPairs(const QString& command) {
    QStringList seen;
    for (const QString& pair : command.split(u';', Qt::SkipEmptyParts)) {
        const QString key = pair.left(pair.indexOf(u'='));
        const bool known =
            std::any_of(std::begin(keys), std::end(keys), [&](QStringView k) { return same(k, key); });
        if (!known || !pair.contains(u'=') || seen.contains(key, Qt::CaseInsensitive))
            refuse(u"No se entiende %1 en el requerimiento"_s.arg(quoted(pair)));
        seen << key;
    }
}

HostCommand::Action actionOf(const QString& name) {
    if (name.isEmpty())
        refuse(u"El requerimiento no dice qué hacer (ACCION)"_s);
    for (const NamedAction& known : actions)
        if (same(known.name, name))
            return known.action;
    refuse(u"Dalvora no conoce la acción %1"_s.arg(quoted(name)));
}

QString recordKey(const QString& value) {
    quorvane::Value key;
    TextToValue(value, quorvane::Kind::String, key, 0, {});
    QString code = key.toText({});
    if (code.isEmpty())
        refuse(u"El requerimiento no indica la clave del registro (CLAVE)"_s);
    // The record would cut it, and open what it was not asked for.
    if (code.size() > longestCode)
        refuse(u"La clave %1 tiene más de %2 caracteres"_s.arg(quoted(code), QString::number(longestCode)));
    return code;
}

Date dateOf(const QString& value) {
    if (value.isEmpty())
        return {};
    const QDate day = QDate::fromString(value, u"dd/MM/yyyy"_s);
    if (!day.isValid())
        refuse(u"%1 no es una fecha dd/mm/aaaa"_s.arg(quoted(value)));
    return Date::fromQDate(day);
}

bool yesOrNo(const QString& value) {
    if (!value.isEmpty() && !same(value, u"S") && !same(value, u"N"))
        refuse(u"HABILITADO debe ser S o N"_s);
    return !same(value, u"N");
}

} // namespace

HostCommand readHostCommand(const QString& command) {
    const auto value = [&command](QStringView key) { return ParseKeyValues(command, key.toString()); };
    HostCommand read;
    const QString action = value(keyAction).trimmed();
    checkPairs(command);
    read.action = actionOf(action);
    read.company = value(keyCompany).trimmed();
    if (read.action != HostCommand::Action::Open)
        return read;
    read.key = recordKey(value(keyRecord));
    read.start = dateOf(value(keyStart).trimmed());
    read.end = dateOf(value(keyEnd).trimmed());
    // A record is looked up by both or by its code alone.
    if (read.start.isEmpty() != read.end.isEmpty())
        refuse(u"El requerimiento debe indicar ambas fechas o ninguna"_s);
    if (read.end < read.start)
        refuse(u"La fecha final del requerimiento es anterior a la inicial"_s);
    read.enabled = yesOrNo(value(keyEnabled).trimmed());
    return read;
}

} // namespace dalvora
