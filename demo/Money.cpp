#include "demo/Money.h"

#include "platform/quorvane32/base/Decimal.h"

namespace dalvora::demo {

Hundredths hundredthsOf(QStringView text) {
    const quorvane::Decimal number = quorvane::Decimal::fromText(text).rounded(2);
    qint64 hundredths = number.unscaled();
    for (int scale = number.scale(); scale < 2; ++scale)
        hundredths *= 10;
    return hundredths;
}

} // namespace dalvora::demo
