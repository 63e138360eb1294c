// Binding of controls other than text boxes.
#include "forms/ComboBoxList.h"
#include "tests/forms/MainFormTest.h"
#include <QComboBox>

using namespace dalvora;
using namespace dalvora::test;

namespace {

class BindTest : public MainFormTest {
protected:
    HeaderBinding& binding() { return form->header(); }
};

} // namespace

TEST_P(BindTest, AComboBoxIsSelectedAnewThroughItsList) {
    QComboBox combo;
    combo.setEditable(true);
    combo.addItems({u"ABC"_s, u"DEF"_s});
    combo.setCurrentIndex(1);
    combo.setEditText(u"  abc  "_s);
    binding().bind(2, combo);
    EXPECT_EQ(table().Codigo(), u"abc"_s);
    EXPECT_EQ(combo.currentIndex(), 0);
    EXPECT_EQ(combo.currentText(), u"ABC"_s);
    expectSilence();
}

TEST_P(BindTest, AComboBoxWithoutTheValueSaysSo) {
    QComboBox combo;
    combo.setEditable(true);
    combo.addItem(u"ABC"_s);
    combo.setEditText(u" x "_s);
    binding().bind(2, combo);
    expectTold({{u"Valor 'x' inválido para seleccionar lista en formulario"_s, 64}});
    EXPECT_EQ(combo.currentIndex(), -1);
}

TEST_P(BindTest, ACheckBoxIsYesOrNo) {
    QCheckBox check;
    check.setChecked(true);
    binding().bind(2, check);
    EXPECT_EQ(table().Codigo(), u"S"_s);
    EXPECT_TRUE(check.isChecked());
    check.setChecked(false);
    binding().bind(2, check);
    EXPECT_EQ(table().Codigo(), u"N"_s);
    EXPECT_FALSE(check.isChecked());
}

TEST_P(BindTest, ALockedControlChangesNothing) {
    QLineEdit locked(u"x"_s);
    locked.setEnabled(false);
    binding().bind(2, locked);
    EXPECT_EQ(table().Codigo(), QString());
}

INSTANTIATE_TEST_SUITE_P(Engines, BindTest, testing::ValuesIn(windowEngines), engineName);
