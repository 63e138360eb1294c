#include "tools/quorvane-admin/CommandLine.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane::admin {

namespace {

bool isOption(const QString& argument) {
    constexpr qsizetype rightsLength = 4;
    const bool rights = argument.size() == rightsLength && std::ranges::all_of(argument, [](QChar letter) {
                            return u"RWXD-"_s.contains(letter, Qt::CaseInsensitive);
                        });
    return argument.startsWith(u"--"_s) && !rights;
}

QString unknown(const QString& name) {
    if (name.startsWith(u"clave"_s) || name.startsWith(u"contra"_s) || name.startsWith(u"pass"_s))
        return u"las contraseñas no se escriben en la línea de órdenes: el programa las pide"_s;
    return u"opción desconocida «--%1»"_s.arg(name);
}

} // namespace

CommandLine parseCommandLine(const QStringList& arguments, std::span<const Option> known, QString& mistake) {
    CommandLine line;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (!isOption(*argument)) {
            line.words.append(*argument);
            continue;
        }
        const qsizetype equals = argument->indexOf(u'=');
        const QString name = argument->mid(2, equals < 0 ? -1 : equals - 2);
        const auto option = std::ranges::find_if(
            known, [&](const Option& candidate) { return name == QStringView(candidate.name); });
        const bool wantsValue = option != known.end() && *option->value != '\0';
        if (option == known.end())
            mistake = unknown(name);
        else if (line.has(name))
            mistake = u"la opción --%1 está dos veces"_s.arg(name);
        else if (!wantsValue && equals >= 0)
            mistake = u"la opción --%1 no lleva valor"_s.arg(name);
        else if (wantsValue && equals < 0 && argument + 1 == arguments.end())
            mistake = u"falta el valor de la opción --%1 %2"_s.arg(name, QString::fromUtf8(option->value));
        if (!mistake.isEmpty())
            return line;
        QString value = equals < 0 ? QString() : argument->mid(equals + 1);
        if (wantsValue && equals < 0)
            value = *++argument;
        line.options.insert(name, value);
    }
    return line;
}

} // namespace quorvane::admin
