#include "ui/toolbar/WindowSubclass.h"
#include "tests/toolbar/FailureRecorder.h"
#include "tests/toolbar/FakeWindows.h"
#include <gtest/gtest.h>

namespace toolbar_test {

using namespace Qt::StringLiterals;

namespace {

constexpr NativeHandle window = 10;

class WindowSubclassTest : public testing::Test {
protected:
    WindowSubclassTest() { windows.create(window, 1, u"Toolbar"_s); }

    MessageCallback callback() {
        return [this](quint32 message, MessageTime time, quintptr, qintptr) {
            calls.emplace_back(message, time);
            return answer;
        };
    }

    /// The text that was reported last, without program and routine.
    QString failure() const {
        return recorder.shown.isEmpty() ? QString() : recorder.shown.back().section(u'\n', -1);
    }

    FakeWindows windows;
    FailureRecorder recorder;
    std::vector<std::pair<quint32, MessageTime>> calls;
    std::optional<qintptr> answer;
    WindowSubclass subclass{windows, recorder};
};

} // namespace

TEST_F(WindowSubclassTest, ListedMessagesReachTheCallbackBeforeOrAfterThePreviousProcedure) {
    ASSERT_TRUE(subclass.subclass(window, callback()));
    subclass.addMessage(15, MessageTime::Before);
    subclass.addMessage(20, MessageTime::After);
    windows.windows[window].answers = {{15, 100}, {20, 200}, {30, 300}};
    EXPECT_EQ(windows.deliver(window, 15, 1, 2), 100);
    EXPECT_EQ(windows.deliver(window, 20, 3, 4), 200);
    EXPECT_EQ(windows.deliver(window, 30, 5, 6), 300);
    using Call = std::pair<quint32, MessageTime>;
    EXPECT_EQ(calls, (std::vector{Call(15, MessageTime::Before), Call(20, MessageTime::After)}));
    EXPECT_EQ(windows.windows[window].received,
              (std::vector<FakeWindows::Sent>{{15, 1, 2}, {20, 3, 4}, {30, 5, 6}}));
}

TEST_F(WindowSubclassTest, AMessageThatComesWhileTheWindowIsTakenGoesOn) {
    qintptr result = 0;
    windows.windows[window].answers = {{30, 300}};
    windows.onIntercept = [&] { result = windows.deliver(window, 30, 5, 6); };
    EXPECT_TRUE(subclass.subclass(window, callback()));
    EXPECT_EQ(result, 300);
}

TEST_F(WindowSubclassTest, AWindowThatEndsWhileItIsTakenIsTakenNoMore) {
    windows.onIntercept = [&] { windows.deliver(window, message::WindowDestroyed, 0, 0); };
    subclass.subclass(window, callback());
    EXPECT_EQ(subclass.window(), 0U);
    EXPECT_FALSE(subclass.addMessage(15, MessageTime::Before));
}

TEST_F(WindowSubclassTest, AnAnswerBeforeKeepsTheMessageFromThePreviousProcedure) {
    subclass.subclass(window, callback());
    subclass.addMessage(15, MessageTime::Before);
    answer = 7;
    EXPECT_EQ(windows.deliver(window, 15, 0, 0), 7);
    EXPECT_TRUE(windows.windows[window].received.empty());
}

TEST_F(WindowSubclassTest, AnAnswerAfterReplacesThePreviousProceduresAnswer) {
    subclass.subclass(window, callback());
    subclass.addMessage(15, MessageTime::After);
    answer = 7;
    EXPECT_EQ(windows.deliver(window, 15, 0, 0), 7);
    EXPECT_EQ(windows.windows[window].received.size(), 1U);
}

TEST_F(WindowSubclassTest, ARemovedMessageGoesItsOldWay) {
    subclass.subclass(window, callback());
    subclass.addMessage(15, MessageTime::Before);
    EXPECT_TRUE(subclass.removeMessage(15, MessageTime::Before));
    windows.deliver(window, 15, 0, 0);
    EXPECT_TRUE(calls.empty());
}

TEST_F(WindowSubclassTest, UnsubclassingGivesTheMessagesBack) {
    subclass.subclass(window, callback());
    subclass.addMessage(ALL_MESSAGES, MessageTime::Before);
    subclass.unsubclass();
    windows.deliver(window, 15, 0, 0);
    EXPECT_TRUE(calls.empty());
    EXPECT_FALSE(windows.isIntercepted(window));
    EXPECT_TRUE(recorder.log.isEmpty());
}

TEST_F(WindowSubclassTest, ADeadHandleIsRefused) {
    EXPECT_FALSE(subclass.subclass(99, callback()));
    EXPECT_EQ(failure(), u"Invalid window handle"_s);
}

TEST_F(WindowSubclassTest, AWindowOfAnotherProcessIsRefused) {
    windows.windows[window].ownProcess = false;
    EXPECT_FALSE(subclass.subclass(window, callback()));
    EXPECT_EQ(failure(), u"Window handle belongs to another process"_s);
}

TEST_F(WindowSubclassTest, ASecondInterceptionIsRefused) {
    subclass.subclass(window, callback());
    WindowSubclass second(windows, recorder);
    EXPECT_FALSE(second.subclass(window, callback()));
    EXPECT_EQ(failure(), u"Window handle is already subclassed"_s);
    EXPECT_EQ(subclass.window(), window) << "the first one stays";
}

TEST_F(WindowSubclassTest, ARefusalOfTheSystemIsToldWithItsNumber) {
    windows.refusal = 5;
    EXPECT_FALSE(subclass.subclass(window, callback()));
    EXPECT_EQ(failure(), u"SetWindowLong failed, error #5"_s);
    EXPECT_EQ(subclass.window(), 0U);
}

TEST_F(WindowSubclassTest, ACallbackMustBeThere) {
    EXPECT_FALSE(subclass.subclass(window, {}));
    EXPECT_EQ(failure(), u"Callback method not found"_s);
}

TEST_F(WindowSubclassTest, MessagesNeedAnInterception) {
    EXPECT_FALSE(subclass.addMessage(15, MessageTime::Before));
    EXPECT_EQ(failure(), u"Thunk hasn't been initialized"_s);
    EXPECT_FALSE(subclass.removeMessage(15, MessageTime::Before));
    EXPECT_EQ(recorder.log.size(), 2);
}

TEST_F(WindowSubclassTest, RemovingAnUnknownMessageTellsItsNumber) {
    subclass.subclass(window, callback());
    EXPECT_FALSE(subclass.removeMessage(0x2A3, MessageTime::Before));
    EXPECT_EQ(failure(), u"Message &H2A3 not found in table"_s);
}

TEST_F(WindowSubclassTest, AFullTableIsTold) {
    subclass.subclass(window, callback());
    for (quint32 message = 1; message <= MSG_ENTRIES; ++message)
        EXPECT_TRUE(subclass.addMessage(message, MessageTime::After));
    EXPECT_FALSE(subclass.addMessage(1000, MessageTime::After));
    EXPECT_EQ(failure(), tableOverflowText());
}

TEST_F(WindowSubclassTest, TheEndOfTheWindowEndsTheInterception) {
    subclass.subclass(window, callback());
    subclass.addMessage(ALL_MESSAGES, MessageTime::Before);
    windows.destroy(window);
    EXPECT_EQ(subclass.window(), 0U);
    EXPECT_FALSE(subclass.addMessage(15, MessageTime::Before));
    subclass.unsubclass();
    EXPECT_FALSE(subclass.subclass(window, callback()));
    EXPECT_EQ(failure(), u"Invalid window handle"_s);
}

TEST_F(WindowSubclassTest, ACallbackMayEndTheInterception) {
    windows.windows[window].answers = {{15, 100}};
    subclass.subclass(window, [this](quint32, MessageTime, quintptr, qintptr) {
        subclass.unsubclass();
        return std::nullopt;
    });
    subclass.addMessage(15, MessageTime::Before);
    subclass.addMessage(15, MessageTime::After);
    EXPECT_EQ(windows.deliver(window, 15, 0, 0), 100);
    EXPECT_EQ(windows.windows[window].received.size(), 1U);
}

TEST_F(WindowSubclassTest, ACallbackMayDestroyTheWindow) {
    subclass.subclass(window, [this](quint32, MessageTime, quintptr, qintptr) {
        windows.destroy(window);
        return std::nullopt;
    });
    subclass.addMessage(15, MessageTime::Before);
    EXPECT_EQ(windows.deliver(window, 15, 0, 0), 0);
    EXPECT_EQ(subclass.window(), 0U);
}

} // namespace toolbar_test
