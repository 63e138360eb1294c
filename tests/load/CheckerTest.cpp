// The checker finds what it is there for, in histories made by hand.
#include "tests/load/LoadChecker.h"
#include "tests/load/SchemeImage.h"
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace dalvora;
using namespace dalvora::test;
using namespace Qt::StringLiterals;

const Message refusedSave{u"No se grabó el registro porque ha sido modificado por otro usuario. "
                          u"Debe leer nuevamente."_s,
                          MessageInformation};
const Message duplicate{u"Error al grabar registro\nYa existe un registro con esas características"_s,
                        MessageError};

/// A history that is added to step by step; time goes on with each.
class CheckerTest : public testing::Test {
protected:
    CheckerTest() { history.before = {{u"M0"_s, u"a"_s}, {u"S1"_s, u"s"_s}, {u"V1"_s, u"v"_s}}; }

    LoadOperation& add(int client, LoadKind kind, const QString& scheme, const QString& value) {
        LoadOperation operation;
        operation.client = client;
        operation.kind = kind;
        operation.scheme = scheme;
        operation.start = time;
        operation.end = time + 10;
        operation.done = true;
        operation.cells = {{scheme, value}};
        time += 20;
        history.operations.push_back(operation);
        return history.operations.back();
    }
    void reads(int client, const QString& scheme, const QString& value) {
        LoadOperation& operation = add(client, LoadKind::Read, scheme, value);
        if (value != absentValue)
            audited(operation, 7);
    }
    void writes(int client, LoadKind kind, const QString& scheme, const QString& based,
                const QString& value) {
        LoadOperation& operation = add(client, kind, scheme, value);
        operation.based = based;
        audited(operation, kind == LoadKind::Create ? 6 : kind == LoadKind::Change ? 5 : 4);
    }
    LoadOperation& fails(int client, LoadKind kind, const QString& scheme, const QString& based,
                         std::vector<Message> messages) {
        LoadOperation& operation = add(client, kind, scheme, u"lost"_s);
        operation.done = false;
        operation.based = based;
        operation.messages = std::move(messages);
        return operation;
    }
    /// The entry that an operation makes is there.
    void audited(LoadOperation& operation, int code) {
        operation.audit = u"001:COMISION:"_s + operation.scheme;
        ++history.audit[{u"u%1"_s.arg(operation.client), code, *operation.audit}];
    }
    void ends(const std::vector<LoadCell>& cells) { history.after = cells; }

    std::vector<std::string> problems() {
        std::vector<std::string> found;
        for (const QString& problem : checkHistory(history, summary))
            found.push_back(problem.toStdString());
        return found;
    }
    void expect(const char* words) {
        EXPECT_THAT(problems(), testing::ElementsAre(testing::HasSubstr(words)));
    }

    LoadHistory history;
    LoadSummary summary;
    qint64 time = 0;
};

} // namespace

TEST_F(CheckerTest, AHistoryThatKeepsEveryPromiseIsQuiet) {
    reads(1, u"M0"_s, u"a"_s);
    reads(2, u"M0"_s, u"a"_s);
    writes(1, LoadKind::Change, u"M0"_s, u"a"_s, u"b"_s);
    fails(2, LoadKind::Change, u"M0"_s, u"a"_s, {refusedSave});
    reads(2, u"M0"_s, u"b"_s);
    writes(2, LoadKind::Delete, u"M0"_s, u"b"_s, absentValue);
    reads(1, u"M0"_s, absentValue);
    writes(1, LoadKind::Create, u"M0"_s, absentValue, u"c"_s);
    fails(2, LoadKind::Create, u"M0"_s, absentValue, {duplicate});
    add(2, LoadKind::Assign, u"V1"_s, u"w"_s);
    add(1, LoadKind::List, u"V1"_s, u"w"_s);
    ends({{u"M0"_s, u"c"_s}, {u"S1"_s, u"s"_s}, {u"V1"_s, u"w"_s}});
    EXPECT_THAT(problems(), testing::IsEmpty());
    EXPECT_EQ(summary.refused, 1);
    EXPECT_EQ(summary.duplicates, 1);
    EXPECT_EQ(summary.done[LoadKind::Read], 4);
    EXPECT_EQ(summary.cells, 3);
    EXPECT_EQ(summary.auditEntries, 6);
}

TEST_F(CheckerTest, WritesAtTheSameTimeMayHaveHappenedInEitherOrder) {
    for (const QString& value : {u"x"_s, u"y"_s}) {
        LoadOperation& operation = add(1, LoadKind::Assign, u"V1"_s, value);
        operation.start = 0;
        operation.end = 100;
    }
    time = 200;
    for (const QString& value : {u"x"_s, u"y"_s}) {
        ends({{u"M0"_s, u"a"_s}, {u"S1"_s, u"s"_s}, {u"V1"_s, value}});
        EXPECT_THAT(problems(), testing::IsEmpty());
    }
}

TEST_F(CheckerTest, ALostUpdateIsFound) {
    writes(1, LoadKind::Change, u"M0"_s, u"a"_s, u"b"_s);
    writes(2, LoadKind::Change, u"M0"_s, u"a"_s, u"c"_s);
    ends({{u"M0"_s, u"c"_s}, {u"S1"_s, u"s"_s}, {u"V1"_s, u"v"_s}});
    expect("both succeeded from a: a lost update");
}

TEST_F(CheckerTest, WhatWasOverwrittenIsNotSeenAgain) {
    writes(1, LoadKind::Change, u"M0"_s, u"a"_s, u"b"_s);
    reads(2, u"M0"_s, u"a"_s);
    ends({{u"M0"_s, u"b"_s}, {u"S1"_s, u"s"_s}, {u"V1"_s, u"v"_s}});
    expect("saw M0 = a: it had been overwritten before");
}

TEST_F(CheckerTest, WhatIsWrittenLaterIsNotSeenYet) {
    reads(2, u"M0"_s, u"b"_s);
    writes(1, LoadKind::Change, u"M0"_s, u"a"_s, u"b"_s);
    ends({{u"M0"_s, u"b"_s}, {u"S1"_s, u"s"_s}, {u"V1"_s, u"v"_s}});
    expect("saw M0 = b: it was written later");
}

TEST_F(CheckerTest, WhatAFailedSaveWroteIsNotSeen) {
    fails(1, LoadKind::Change, u"M0"_s, u"a"_s,
          {{u"Error al grabar registro (Línea 2)\n1222 - Otro programa está usando estos datos"_s,
            MessageError}});
    reads(2, u"M0"_s, u"lost"_s);
    ends({{u"M0"_s, u"a"_s}, {u"S1"_s, u"s"_s}, {u"V1"_s, u"v"_s}});
    expect("saw M0 = lost: nobody wrote that");
    EXPECT_EQ(summary.lockTimeouts, 1);
}

TEST_F(CheckerTest, TheEndIsAStateThatASaveWrote) {
    writes(1, LoadKind::Change, u"M0"_s, u"a"_s, u"b"_s);
    ends({{u"M0"_s, u"b"_s}, {u"V1"_s, u"v"_s}, {u"X"_s, u"b"_s}});
    EXPECT_THAT(problems(), testing::ElementsAre(testing::HasSubstr("at the end S1 = -"),
                                                 testing::HasSubstr("at the end X = b: nobody wrote that")));
}

TEST_F(CheckerTest, ARefusalNeedsAReason) {
    fails(2, LoadKind::Change, u"M0"_s, u"a"_s, {refusedSave});
    ends(history.before);
    expect("was refused, and nobody else had saved a");
}

TEST_F(CheckerTest, ADuplicateNeedsAReason) {
    fails(2, LoadKind::Create, u"N1"_s, absentValue, {duplicate});
    ends(history.before);
    expect("was told a duplicate, and nobody else had made it");
}

TEST_F(CheckerTest, AFailureTellsOneMessageThatTheProgramHas) {
    ends(history.before);
    fails(1, LoadKind::Change, u"S1"_s, u"s"_s, {});
    expect("failed with 0 messages");
    history.operations[0].messages = {refusedSave, refusedSave};
    expect("failed with 2 messages");
    history.operations[0].messages = {
        {u"Error al grabar registro\n3604 - Error de la base de datos"_s, MessageError}};
    expect("told: Error al grabar registro\n3604");
    history.operations[0].messages = {{refusedSave.text, MessageError}};
    expect("told: No se grabó");
}

TEST_F(CheckerTest, ASuccessTellsNothing) {
    ends({{u"M0"_s, u"b"_s}, {u"S1"_s, u"s"_s}, {u"V1"_s, u"v"_s}});
    writes(1, LoadKind::Change, u"M0"_s, u"a"_s, u"b"_s);
    history.operations[0].messages = {refusedSave};
    expect("succeeded and told: No se grabó");
}

TEST_F(CheckerTest, TheAuditTrailIsEqualToWhatWasDone) {
    ends({{u"M0"_s, u"b"_s}, {u"S1"_s, u"s"_s}, {u"V1"_s, u"v"_s}});
    writes(1, LoadKind::Change, u"M0"_s, u"a"_s, u"b"_s);
    const auto kept = history.audit;
    history.audit.clear();
    expect("has 0 entries of u1, code 5, \"001:COMISION:M0\" for 1 operations");
    history.audit = kept;
    ++history.audit.begin()->second;
    expect("has 2 entries of u1, code 5, \"001:COMISION:M0\" for 1 operations");
    history.audit = kept;
    history.audit[{u"u1"_s, 4, u"001:COMISION:M0"_s}] = 1;
    expect("has 1 entries of u1, code 4, \"001:COMISION:M0\" for 0 operations");
}

TEST_F(CheckerTest, WhatAUsersProgramFoundWrongIsPassedOn) {
    ends(history.before);
    reads(1, u"M0"_s, u"a"_s);
    history.operations[0].faults = {u"M0 of 1.1 has line P1 of 2.1"_s};
    expect("M0 of 1.1 has line P1 of 2.1");
}

TEST_F(CheckerTest, AnOperationComesBackFromItsLine) {
    fails(3, LoadKind::Create, u"N1"_s, absentValue, {duplicate, refusedSave});
    LoadOperation& operation = history.operations[0];
    operation.audit = u""_s;
    operation.cells = {{u"N1"_s, u"3.1:abc"_s}, {u"S1#3"_s, u"3.1"_s}};
    operation.faults = {u"one"_s, u"two"_s};
    operation.repeated = true;
    const LoadOperation back = fromLine(toLine(operation));
    EXPECT_EQ(back.client, 3);
    EXPECT_EQ(back.kind, LoadKind::Create);
    EXPECT_EQ(back.scheme, u"N1");
    EXPECT_EQ(back.start, operation.start);
    EXPECT_EQ(back.end, operation.end);
    EXPECT_FALSE(back.done);
    EXPECT_TRUE(back.repeated);
    EXPECT_EQ(back.based, absentValue);
    EXPECT_EQ(back.audit, u""_s);
    EXPECT_EQ(back.cells, operation.cells);
    EXPECT_EQ(back.messages, operation.messages);
    EXPECT_EQ(back.faults, operation.faults);
    operation.audit.reset();
    EXPECT_EQ(fromLine(toLine(operation)).audit, std::nullopt);
}

TEST(SchemeImageTest, ASchemeThatNoSaveCanHaveWrittenIsTold) {
    const auto faultsOf = [](const SchemeImage& image) {
        QStringList faults;
        cellsOf(image, faults);
        return faults.size();
    };
    const LineImage product{1, u"P2"_s, u"1.5"_s, {}};
    const LineImage amount{2, u"D2"_s, u"1.5"_s, {}};
    const LineImage list{3, u"L2"_s, u"1.5"_s, {}};
    EXPECT_EQ(faultsOf({u"M0"_s, u"1.5 1 1 0"_s, {}, {product, amount}}), 0);
    EXPECT_EQ(faultsOf({u"M0"_s, u"1.5 1 1 1"_s, {}, {product, amount}}), 1) << "a line too few";
    EXPECT_EQ(faultsOf({u"M0"_s, u"1.5 1 0 0"_s, {}, {product, amount}}), 1) << "a line too many";
    EXPECT_EQ(faultsOf({u"M0"_s, u"1.6 1 1 0"_s, {}, {product, amount}}), 2) << "lines of another save";
    EXPECT_EQ(faultsOf({u"S1"_s, u"inicio"_s, {}, {}}), 0);
    EXPECT_EQ(faultsOf({u"S1"_s, u"7.1"_s, {}, {}}), 1) << "a save without its lines";
    EXPECT_EQ(faultsOf({u"S1"_s, u"1.5"_s, {}, {product, amount, list}}), 0);
    EXPECT_EQ(faultsOf({u"S1"_s, u"1.4"_s, {}, {product, amount, list}}), 1) << "the header of another save";
    EXPECT_EQ(faultsOf({u"S1"_s, u"1.5"_s, {}, {product, amount}}), 1) << "a line too few";
    EXPECT_EQ(faultsOf({u"S1"_s, u"1.5"_s, {}, {product, amount, {3, u"L2"_s, u"1.4"_s, {}}}}), 1)
        << "lines of two saves";
}

TEST(SchemeImageTest, EveryValueCounts) {
    const auto valueOf = [](const SchemeImage& image) {
        QStringList faults;
        return cellsOf(image, faults).front().value;
    };
    const SchemeImage image{u"M0"_s, u"1.5 1 0 0"_s, u"S|1"_s, {{1, u"P2"_s, u"1.5"_s, u"3"_s}}};
    SchemeImage other = image;
    EXPECT_EQ(valueOf(other), valueOf(image));
    other.rest = u"N|1"_s;
    EXPECT_NE(valueOf(other), valueOf(image));
    other = image;
    other.lines[0].rest = u"4"_s;
    EXPECT_NE(valueOf(other), valueOf(image));
    other = image;
    other.lines[0].code = u"P3"_s;
    EXPECT_NE(valueOf(other), valueOf(image));
}
