#pragma once

#include "platform/dde/RequestLink.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include "reports/drilldown/PrintTopic.h"
#include "reports/drilldown/ProgramStarter.h"
#include "tests/support/QtPrinters.h"
#include <QStringList>
#include <functional>
#include <utility>

namespace dalvora::test {

/// A link, a shell and a pointer that write down what they are told, in order, and fail as planned.
struct FakeSurroundings final : quorvane::RequestLink, ProgramStarter {
    void setLinkTimeout(int tenths) override { say(QStringLiteral("LinkTimeout=%1").arg(tenths)); }
    void setLinkTopic(const QString& text) override { say(QStringLiteral("LinkTopic=") + text); }
    void setLinkMode(int mode) override {
        say(QStringLiteral("LinkMode=%1").arg(mode));
        if (mode == quorvane::LinkManual)
            fail(onConnect ? onConnect(++attempts) : 0);
    }
    int linkMode() const override { return quorvane::LinkNone; }
    void LinkExecute(const QString& command) override {
        say(QStringLiteral("LinkExecute=") + command);
        fail(onExecute);
    }
    int open(const QString& file, const QString& workingFolder, int showState) override {
        say(QStringLiteral("open %1 in %2 as %3").arg(file, workingFolder).arg(showState));
        return onOpen ? onOpen(file) : 33;
    }

    TopicSurroundings surroundings() {
        return {*this, QStringLiteral("D:\\Quorvane"), [this] { ++yields; },
                [this](int shape) { say(QStringLiteral("pointer %1").arg(shape)); }};
    }

    /// What was told since the last call; the yields between two of them as one entry.
    QStringList take() {
        noteYields();
        return std::exchange(m_told, {});
    }

    std::function<int(int attempt)> onConnect; ///< the error of an attempt, counted from 1; 0 for none
    int onExecute = 0;
    std::function<int(const QString& file)> onOpen;
    int attempts = 0;
    int yields = 0;

private:
    static void fail(int number) {
        if (number != 0)
            throw quorvane::RunTimeError(number, QStringLiteral("fallo"));
    }
    void say(const QString& text) {
        noteYields();
        m_told << text;
    }
    void noteYields() {
        if (yields > 0)
            m_told << QStringLiteral("%1 yields").arg(yields);
        yields = 0;
    }

    QStringList m_told;
};

} // namespace dalvora::test
