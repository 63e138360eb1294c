#include "tests/report_output/ReferenceImage.h"
#include <QCoreApplication>
#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace quorvane::report::test {

namespace {

constexpr int sameChannel = 64; ///< a difference below this is one of smoothing
#ifdef Q_OS_WIN
/// Of all: the references were drawn elsewhere, and each system has its own way with the edges of letters.
constexpr double differingPixels = 0.025;
#else
constexpr double differingPixels = 0.004; ///< of all: a line of text that moved or is missing is more
#endif

int channelDifference(QRgb left, QRgb right) {
    return std::max({std::abs(qRed(left) - qRed(right)), std::abs(qGreen(left) - qGreen(right)),
                     std::abs(qBlue(left) - qBlue(right))});
}

/// The part of the pixels that a person would see as different; 1 when the sizes differ.
double difference(const QImage& picture, const QImage& reference) {
    if (picture.size() != reference.size())
        return 1;
    qint64 differing = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            differing += channelDifference(picture.pixel(x, y), reference.pixel(x, y)) > sameChannel ? 1 : 0;
    return static_cast<double>(differing) / (static_cast<double>(picture.width()) * picture.height());
}

} // namespace

testing::AssertionResult looksLikeReference(const QImage& picture, const QString& name) {
    const QString path = QStringLiteral(REPORT_REFERENCES "/") + name + u".png"_s;
    const QImage plain = picture.convertToFormat(QImage::Format_RGB32);
    if (qEnvironmentVariable("REPORT_REFERENCES") == u"renew"_s)
        return plain.save(path) ? testing::AssertionSuccess()
                                : testing::AssertionFailure() << "cannot write " << path.toStdString();
    const QImage reference = QImage(path).convertToFormat(QImage::Format_RGB32);
    const double found = difference(plain, reference);
    if (found <= differingPixels)
        return testing::AssertionSuccess();
    const QString kept = QCoreApplication::applicationDirPath() + u'/' + name + u"-differs.png"_s;
    plain.save(kept);
    return testing::AssertionFailure() << found * 100 << " per cent of the pixels differ from "
                                       << path.toStdString() << "; the picture is " << kept.toStdString();
}

} // namespace quorvane::report::test
