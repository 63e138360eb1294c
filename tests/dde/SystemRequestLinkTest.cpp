#include "platform/dde/SystemRequestLink.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <QCoreApplication>
#include <QScopeGuard>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

int errorOfOpening(RequestLink& link) {
    try {
        link.setLinkTopic(u"NadieResponde|NadieResponde"_s);
        link.setLinkMode(LinkManual);
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return 0;
}

/// Looks for modules there only.
auto lookingIn(const QString& folder) {
    const QStringList before = QCoreApplication::libraryPaths();
    QCoreApplication::setLibraryPaths({folder});
    return qScopeGuard([before] { QCoreApplication::setLibraryPaths(before); });
}

} // namespace

TEST(SystemRequestLinkTest, WithoutItsModuleTheFirstRequestSaysSo) {
    const auto folder = lookingIn(u"/proc"_s);
    SystemRequestLink link;
    EXPECT_EQ(link.linkMode(), LinkNone);
    EXPECT_EQ(errorOfOpening(link), ErrorCannotCreateObject);
}

TEST(SystemRequestLinkTest, TalksOverTheChannelOfItsModule) {
    const auto folder = lookingIn(QCoreApplication::applicationDirPath() + u"/../../bin"_s);
    SystemRequestLink link;
    link.setLinkTimeout(1);
    EXPECT_EQ(errorOfOpening(link), 282);
    EXPECT_EQ(link.linkMode(), LinkNone);
}

} // namespace quorvane
