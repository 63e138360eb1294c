#include "platform/reportengine/definition/Damage.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include <QDir>
#include <algorithm>

namespace quorvane::report {

using namespace Qt::StringLiterals;

void Damage::raise(qint64 line, const QString& reason) const {
    throw RunTimeError(ErrorFileFormat,
                       u"%1, línea %2: %3"_s.arg(QDir::toNativeSeparators(m_file),
                                                 QString::number(std::max<qint64>(line, 1)), reason));
}

QString quoted(const QString& text) {
    constexpr qsizetype longest = 40;
    QString shown = text.left(longest).simplified();
    const auto unprintable = [](QChar character) { return !character.isPrint(); };
    std::replace_if(shown.begin(), shown.end(), unprintable, u'?');
    if (text.size() > longest)
        shown += u"…"_s;
    return u"'%1'"_s.arg(shown);
}

} // namespace quorvane::report
