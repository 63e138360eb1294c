#include "platform/skin/StyleFile.h"

#include "platform/quorvane32/base/RunTimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QStringDecoder>
#include <QStringTokenizer>

#include <algorithm>
#include <optional>

namespace skin {

namespace {

using namespace Qt::StringLiterals;

constexpr qint64 largestFile = 256LL * 1024;
constexpr int knownFormat = 1;
constexpr int mostStops = 8;

/// A key's value and the line it stands on, counted from 1.
struct Entry {
    QString value;
    int line;
};

using Section = QHash<QString, Entry>;

[[noreturn]] void damaged(const QString& path, const QString& reason, int line = 0) {
    QString place = u"El archivo de estilo \"%1\" está dañado"_s.arg(QDir::toNativeSeparators(path));
    if (line > 0)
        place += u", línea %1"_s.arg(line);
    throw quorvane::RunTimeError(quorvane::ErrorInvalidCall, place + u": "_s + reason);
}

/// Text from the file, shortened so that a message stays readable.
QString quoted(QStringView text) {
    constexpr qsizetype longest = 40;
    QString shown = text.left(longest).toString();
    if (text.size() > longest)
        shown += u"..."_s;
    return u'"' + shown + u'"';
}

QString readText(const QString& path) {
    const QFileInfo info(path);
    if (!info.isFile()) {
        throw quorvane::RunTimeError(
            quorvane::ErrorFileNotFound,
            u"No se encontró el archivo de estilo \"%1\""_s.arg(QDir::toNativeSeparators(path)));
    }
    if (info.size() > largestFile)
        damaged(path, u"es demasiado grande"_s);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw quorvane::RunTimeError(
            quorvane::ErrorPathAccess,
            u"No se puede leer el archivo de estilo \"%1\""_s.arg(QDir::toNativeSeparators(path)));
    }
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder(file.read(largestFile));
    const bool control = std::any_of(text.cbegin(), text.cend(), [](QChar c) {
        return c.unicode() < 0x20 && c != u'\n' && c != u'\r' && c != u'\t';
    });
    if (decoder.hasError() || control)
        damaged(path, u"no es un archivo de texto"_s);
    return text;
}

/// One pass over the lines: hands each "key = value" with its section to the sink.
template<typename Sink> void walkLines(const QString& path, const QString& text, Sink sink) {
    QString section;
    int number = 0;
    for (QStringView line : qTokenize(text, u'\n')) {
        ++number;
        line = line.trimmed();
        if (line.isEmpty() || line.startsWith(u';'))
            continue;
        if (line.startsWith(u'[')) {
            if (!line.endsWith(u']') || line.size() < 3)
                damaged(path, u"sección mal escrita %1"_s.arg(quoted(line)), number);
            section = line.sliced(1, line.size() - 2).trimmed().toString();
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (equals <= 0)
            damaged(path, u"se esperaba clave = valor y se encontró %1"_s.arg(quoted(line)), number);
        if (section.isEmpty())
            damaged(path, u"hay un valor antes de la primera sección"_s, number);
        sink(section, line.first(equals).trimmed(),
             Entry{line.sliced(equals + 1).trimmed().toString(), number});
    }
}

std::optional<QColor> parseColour(QStringView text) {
    if (text.size() != 7 || text.front() != u'#')
        return std::nullopt;
    uint rgb = 0;
    for (const QChar c : text.sliced(1)) {
        const int digit = QByteArrayView("0123456789abcdef").indexOf(c.toLower().toLatin1());
        if (digit < 0)
            return std::nullopt;
        rgb = rgb * 16 + static_cast<uint>(digit);
    }
    return QColor::fromRgb(rgb);
}

/// "#rrggbb, #rrggbb" or "#rrggbb 0%, #rrggbb 40%, ...": two to eight stops, evenly spread without per cents.
std::optional<QGradientStops> parseShade(QStringView text) {
    const QList<QStringView> parts = text.split(u',');
    if (parts.size() < 2 || parts.size() > mostStops)
        return std::nullopt;
    QGradientStops stops;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const QStringView part = parts[i].trimmed();
        const auto colour = parseColour(part.left(7));
        qreal at = qreal(i) / qreal(parts.size() - 1);
        if (part.size() > 7) {
            bool valid = false;
            if (part.endsWith(u'%'))
                at = part.sliced(7).chopped(1).trimmed().toInt(&valid) / 100.0;
            if (!valid)
                return std::nullopt;
        }
        if (!colour || at < 0 || at > 1 || (!stops.isEmpty() && at < stops.last().first))
            return std::nullopt;
        stops.append({at, *colour});
    }
    return stops;
}

/// Takes the values of one section out of it, so that what is left are unknown keys.
class SectionReader {
public:
    SectionReader(const QString& path, QString name, Section section)
        : m_path(path), m_name(std::move(name)), m_section(std::move(section)) {}

    SkinValues read() {
        SkinValues values;
        for (int i = 0; i < static_cast<int>(Colour::Count); ++i)
            values.setColour(Colour(i), colour(keyOf(Colour(i))));
        for (int i = 0; i < static_cast<int>(Shade::Count); ++i)
            values.setShade(Shade(i), shade(keyOf(Shade(i))));
        for (int i = 0; i < static_cast<int>(Measure::Count); ++i)
            values.setMeasure(Measure(i), measure(keyOf(Measure(i)), rangeOf(Measure(i))));
        return values;
    }

    /// Complains about the first key, by line, that nothing has taken.
    void refuseRest() const {
        const auto first =
            std::min_element(m_section.begin(), m_section.end(),
                             [](const Entry& one, const Entry& other) { return one.line < other.line; });
        if (first != m_section.end())
            damaged(m_path, u"clave desconocida %1"_s.arg(quoted(first.key())), first->line);
    }

    int measure(QLatin1StringView key, MeasureRange range) {
        const Entry entry = take(key);
        bool valid = false;
        const int value = entry.value.toInt(&valid);
        if (!valid || value < range.least || value > range.most) {
            damaged(m_path,
                    u"la clave \"%1\" debe ser un número entre %2 y %3 y es %4"_s.arg(key)
                        .arg(range.least)
                        .arg(range.most)
                        .arg(quoted(entry.value)),
                    entry.line);
        }
        return value;
    }

private:
    Entry take(QLatin1StringView key) {
        const auto found = m_section.constFind(QString(key));
        if (found == m_section.constEnd())
            damaged(m_path, u"falta la clave \"%1\" en la sección \"%2\""_s.arg(key, m_name));
        Entry entry = *found;
        m_section.erase(found);
        return entry;
    }

    QColor colour(QLatin1StringView key) {
        const Entry entry = take(key);
        const auto value = parseColour(entry.value);
        if (!value) {
            damaged(m_path,
                    u"la clave \"%1\" debe ser un color #rrggbb y es %2"_s.arg(key, quoted(entry.value)),
                    entry.line);
        }
        return *value;
    }

    QGradientStops shade(QLatin1StringView key) {
        const Entry entry = take(key);
        auto value = parseShade(entry.value);
        if (!value) {
            damaged(m_path,
                    u"la clave \"%1\" debe ser un degradado \"#rrggbb 0%, #rrggbb 100%\" y es %2"_s.arg(
                        key, quoted(entry.value)),
                    entry.line);
        }
        return *std::move(value);
    }

    const QString& m_path;
    QString m_name;
    Section m_section;
};

} // namespace

SkinValues readStyleFile(const QString& path, const QString& section) {
    const QString text = readText(path);
    const QString head = u"Style"_s;
    Section headEntries;
    Section entries;
    walkLines(path, text, [&](const QString& name, QStringView key, const Entry& entry) {
        const bool wanted = name.compare(section, Qt::CaseInsensitive) == 0;
        if (!wanted && name != head)
            return;
        Section& into = wanted ? entries : headEntries;
        if (into.contains(key.toString()))
            damaged(path, u"clave repetida %1"_s.arg(quoted(key)), entry.line);
        into.insert(key.toString(), entry);
    });
    SectionReader(path, head, std::move(headEntries)).measure("Format"_L1, {knownFormat, knownFormat});
    if (entries.isEmpty())
        damaged(path, u"no tiene la sección %1"_s.arg(quoted(section)));
    SectionReader reader(path, section, std::move(entries));
    SkinValues values = reader.read();
    reader.refuseRest();
    return values;
}

} // namespace skin
