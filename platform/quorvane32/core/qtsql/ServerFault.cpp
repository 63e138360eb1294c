#include "platform/quorvane32/core/qtsql/ServerFault.h"
#include "platform/quorvane32/base/RunTimeError.h"

namespace quorvane::qtsql {

namespace {

struct Sentence {
    int number;
    const char* text;
};

// What a user can act on.
constexpr Sentence sentences[] = {
    {ErrorDuplicateKey, "Clave duplicada"},
    {ErrorNullNotAllowed, "Falta un dato obligatorio"},
    {ErrorForeignKey, "Otros datos de la base de datos dependen de este"},
    {ErrorLockTimeout, "Otro programa está usando estos datos; inténtelo de nuevo"},
    {ErrorDeadlock, "Otro programa estaba usando los mismos datos; inténtelo de nuevo"},
    {ErrorStatementTimeout, "La base de datos tardó demasiado en responder"},
    {ErrorDiskFull, "No queda espacio en el disco de la base de datos"},
    {ErrorOutOfMemory, "La base de datos se quedó sin memoria"},
    {ErrorPermissionDenied, "No tiene permiso sobre una tabla de la base de datos"},
    {ErrorObjectExists, "La tabla ya está en la base de datos"},
    {ErrorNoSuchTable, "Falta una tabla en la base de datos"},
    {ErrorNoSuchColumn, "Falta una columna en la base de datos"},
    {ErrorSyntax, "La base de datos no entiende la instrucción"},
    {ErrorDateLiteral, "La fecha no es válida para la base de datos"},
    {ErrorNumberTooLarge, "El número es demasiado grande para la base de datos"},
    {ErrorTextTooLong, "El texto es demasiado largo para la base de datos"},
    {ErrorTransactionFailed, "La transacción falló y debe deshacerse"},
    {ErrorConnectionLost, "Se perdió la conexión con la base de datos"},
};

QString usualSentence(int number) {
    for (const Sentence& sentence : sentences)
        if (sentence.number == number)
            return QString::fromUtf8(sentence.text);
    return QStringLiteral("Error de la base de datos");
}

} // namespace

QString sentenceOf(const QString& message) {
    QString line = message.trimmed().section(u'\n', 0, 0).trimmed();
    while (line.startsWith(u'[') && line.contains(u']'))
        line = line.mid(line.indexOf(u']') + 1).trimmed();
    if (line.endsWith(u';'))
        line.chop(1);
    const qsizetype severity = line.indexOf(QLatin1String(":  "));
    if (severity >= 0)
        return line.mid(severity + 3);
    for (const QLatin1String word : {QLatin1String("ERROR: "), QLatin1String("FATAL: ")})
        if (line.startsWith(word))
            return line.mid(word.size());
    return line;
}

RunTimeError serverError(int number, const QString& said, const char* sentence) {
    return RunTimeError(number, QStringLiteral("%1 [%2]").arg(
                                    sentence ? QString::fromUtf8(sentence) : usualSentence(number), said));
}

RunTimeError unknownError(const QString& code, const QString& said) {
    return RunTimeError(ErrorCommandFailed,
                        QStringLiteral("Error de la base de datos [%1: %2]").arg(code, said));
}

std::optional<RunTimeError> missingDriver(const ServerFaults& faults, const QString& place) {
    // The managers of Linux and of Windows, in the languages that the users' machines speak.
    static constexpr const char* words[] = {
        "can't open lib", "data source name not found", "driver could not be loaded",
        "no se encuentra el nombre del origen de datos", "controlador especificado no se"};
    for (const ServerFault& fault : faults)
        for (const char* word : words)
            if (fault.text.contains(QLatin1String(word), Qt::CaseInsensitive))
                return unreachableError(ErrorCannotCreateObject,
                                        QStringLiteral("Falta el controlador ODBC que nombra el perfil:"),
                                        place, sentenceOf(fault.text));
    return std::nullopt;
}

RunTimeError unreachableError(int number, const QString& sentence, const QString& place,
                              const QString& said) {
    return RunTimeError(number, QStringLiteral("%1 %2 [%3]").arg(sentence, place, said));
}

} // namespace quorvane::qtsql
