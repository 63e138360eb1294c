#include "common/Help.h"
#include "platform/help/HelpSystem.h"
#include "tests/support/MessageRecorder.h"
#include <gtest/gtest.h>

using namespace dalvora;
using namespace Qt::StringLiterals;
using dalvora::test::Message;
using dalvora::test::MessageRecorder;

namespace {

/// A help system that notes the last call, or fails.
struct FakeHelp final : help::HelpSystem {
    void htmlHelp(const QString& name, int asked, const QVariant& given) override {
        file = name;
        command = asked;
        data = given;
        if (error)
            throw quorvane::RunTimeError(error, u"No se puede abrir"_s);
    }

    int error = 0;
    QString file;
    int command = -1;
    QVariant data;
};

class HelpTest : public testing::Test {
protected:
    void open(const QString& topic) { Help(system, u"C:\\p\\dalvora.chm"_s, topic); }

    FakeHelp system;
    MessageRecorder messages;
};

} // namespace

TEST_F(HelpTest, ZeroOrNothingShowsTheContents) {
    for (const QString& topic : {u"0"_s, u""_s}) {
        system.command = -1;
        open(topic);
        EXPECT_EQ(system.command, 1);
        EXPECT_EQ(system.file, u"C:\\p\\dalvora.chm"_s);
    }
}

TEST_F(HelpTest, MinusOneShowsTheIndex) {
    open(u"-1"_s);
    EXPECT_EQ(system.command, 2);
}

TEST_F(HelpTest, AnotherNumberIsAContext) {
    open(u"138"_s);
    EXPECT_EQ(system.command, 15);
    EXPECT_EQ(system.data, QVariant(138));
    open(u"00"_s);
    EXPECT_EQ(system.command, 15);
    EXPECT_EQ(system.data, QVariant(0));
}

TEST_F(HelpTest, ATextIsATopic) {
    for (const QString& topic : {u"grabar.html"_s, u"138a"_s, u"nan"_s, u"inf"_s}) {
        open(topic);
        EXPECT_EQ(system.command, 0);
        EXPECT_EQ(system.data, QVariant(topic));
    }
}

TEST_F(HelpTest, AViewerThatCannotBeUsedIsTold) {
    system.error = help::ErrorViewerNotUsable;
    open(u"138"_s);
    EXPECT_EQ(messages.take(),
              (std::vector<Message>{{u"No se encuentran componentes de visualización de archivos de ayuda.\n"
                                     "Debe instalar Microsoft HTMLHelp."_s,
                                     16, u"Ayuda"_s}}));
}

TEST_F(HelpTest, AnyOtherErrorShowsItsDescription) {
    system.error = 53;
    open(u"138"_s);
    EXPECT_EQ(messages.take(), (std::vector<Message>{{u"No se puede abrir"_s, 16, u"Ayuda"_s}}));
}

TEST_F(HelpTest, AContextBeyondThirtyTwoBitsIsTold) {
    open(u"1e300"_s);
    EXPECT_EQ(system.command, -1);
    EXPECT_EQ(messages.take(), (std::vector<Message>{{u"Desbordamiento"_s, 16, u"Ayuda"_s}}));
}
