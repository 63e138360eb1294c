#include "platform/dde/SystemRequestAnswerer.h"
#include "platform/dde/SystemRequestLink.h"
#include "tests/dde/Channel.h"
#include <QScopeGuard>

using namespace quorvane;
using namespace quorvane::test;

namespace {

/// Looks for modules there only.
auto lookingIn(const QString& folder) {
    const QStringList before = QCoreApplication::libraryPaths();
    QCoreApplication::setLibraryPaths({folder});
    return qScopeGuard([before] { QCoreApplication::setLibraryPaths(before); });
}

class SystemRequestChannel : public testing::Test {
protected:
    int errorOfOpening() {
        return errorOf([this] {
            link.setLinkTopic(u"Canal de pruebas|Único"_s);
            link.setLinkMode(LinkManual);
        });
    }

    RuntimeFolder folder;
    SystemRequestLink link;
};

const auto nothing = [](const QString&) { return ChannelAnswer{}; };

TEST_F(SystemRequestChannel, WithoutItsModuleTheFirstUseSaysSo) {
    const auto none = lookingIn(folder.path());
    EXPECT_EQ(link.linkMode(), LinkNone);
    EXPECT_EQ(errorOfOpening(), ErrorCannotCreateObject);
    EXPECT_EQ(errorOf([] { makeRequestAnswerer(u"A|B"_s, nothing); }), ErrorCannotCreateObject);
}

TEST_F(SystemRequestChannel, BothEndsOfItsModuleMeet) {
    const auto modules = lookingIn(QCoreApplication::applicationDirPath() + u"/../../bin"_s);
    EXPECT_EQ(errorOfOpening(), ErrorLinkNoAnswer);
    QStringList commands;
    const auto answerer = makeRequestAnswerer(u"Canal de pruebas|Único"_s, [&](const QString& command) {
        commands << command;
        return ChannelAnswer{command != u"mala"_s, {}};
    });
    ASSERT_TRUE(answerer->listen());
    EXPECT_TRUE(answerer->listen());
    EXPECT_FALSE(makeRequestAnswerer(u"canal de pruebas|único"_s, nothing)->listen());
    ASSERT_EQ(errorOfOpening(), 0);
    link.LinkExecute(u"Ñandú"_s);
    EXPECT_EQ(errorOf([this] { link.LinkExecute(u"mala"_s); }), ErrorLinkRefused);
    EXPECT_EQ(commands, (QStringList{u"Ñandú"_s, u"mala"_s}));
    answerer->close();
    EXPECT_EQ(errorOfOpening(), ErrorLinkNoAnswer);
}

} // namespace
