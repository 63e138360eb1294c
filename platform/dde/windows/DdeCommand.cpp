#include "platform/dde/windows/DdeCommand.h"
#include <algorithm>
#include <cstring>

namespace quorvane {

QString ddeCommandText(const QByteArray& bytes) {
    QString wide(bytes.size() / qsizetype(sizeof(char16_t)), Qt::Uninitialized);
    std::memcpy(wide.data(), bytes.constData(), wide.size() * sizeof(char16_t));
    if (const qsizetype end = wide.indexOf(QChar(u'\0')); end >= 0)
        wide.truncate(end);
    constexpr char16_t firstBeyondOneByte = 0x100;
    const auto western = std::count_if(wide.cbegin(), wide.cend(),
                                       [](QChar letter) { return letter.unicode() < firstBeyondOneByte; });
    if (2 * western > wide.size())
        return wide;
    const qsizetype end = bytes.indexOf('\0');
    return QString::fromLocal8Bit(end < 0 ? bytes : bytes.left(end));
}

} // namespace quorvane
