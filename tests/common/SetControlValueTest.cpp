#include "common/SetControlValue.h"
#include "tests/support/MessageRecorder.h"
#include <QStringList>
#include <gtest/gtest.h>

using namespace dalvora;
using namespace Qt::StringLiterals;
using dalvora::test::Message;
using dalvora::test::MessageRecorder;

namespace {

struct FakeList final : ListControl {
    QString Text() const override { return text; }
    void setText(const QString& value) override {
        text = value;
        calls += u"Text="_s + value;
    }
    bool isPureDropDown() const override { return pure; }
    QString List(int index) const override { return entries[index]; }
    int ListCount() const override { return static_cast<int>(entries.size()); }
    void setListIndex(int index) override { calls += u"ListIndex="_s + QString::number(index); }

    QString text = u"otro"_s;
    bool pure = true;
    QStringList entries{u"Neto"_s, u"ABC"_s, u"abc"_s};
    QStringList calls;
};

class SetControlValueTest : public testing::Test {
protected:
    FakeList list;
    MessageRecorder messages;
};

} // namespace

TEST_F(SetControlValueTest, SelectsTheFirstEntryThatIsEqualWithoutCase) {
    SetControlValue(list, u"abc"_s, true);
    EXPECT_EQ(list.calls, QStringList{u"ListIndex=1"_s});
    EXPECT_TRUE(messages.take().empty());
}

TEST_F(SetControlValueTest, DoesNothingWhenTheTextIsThereAlready) {
    list.text = u"abc"_s;
    SetControlValue(list, u"abc"_s, true);
    EXPECT_TRUE(list.calls.isEmpty());
    list.text = u"ABC"_s;
    SetControlValue(list, u"abc"_s, true);
    EXPECT_EQ(list.calls, QStringList{u"ListIndex=1"_s});
}

TEST_F(SetControlValueTest, AListWithAnEditTakesTheTextFirst) {
    list.pure = false;
    SetControlValue(list, u"neto"_s, true);
    EXPECT_EQ(list.calls, (QStringList{u"Text=neto"_s, u"ListIndex=0"_s}));
}

TEST_F(SetControlValueTest, AnUnknownValueSelectsNothingAndIsTold) {
    SetControlValue(list, u"Bruto"_s, true);
    EXPECT_EQ(list.calls, QStringList{u"ListIndex=-1"_s});
    EXPECT_EQ(messages.take(),
              (std::vector<Message>{{u"Valor 'Bruto' inválido para seleccionar lista en formulario"_s, 64}}));
}

TEST_F(SetControlValueTest, WithoutAReportOrAValueNothingIsTold) {
    SetControlValue(list, u"Bruto"_s, false);
    SetControlValue(list, u""_s, true);
    EXPECT_EQ(list.calls, (QStringList{u"ListIndex=-1"_s, u"ListIndex=-1"_s}));
    EXPECT_TRUE(messages.take().empty());
}

TEST_F(SetControlValueTest, AnEmptyListSelectsNothing) {
    list.entries.clear();
    SetControlValue(list, u"abc"_s, false);
    EXPECT_EQ(list.calls, QStringList{u"ListIndex=-1"_s});
}
