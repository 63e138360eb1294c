#include "common/ShowMessage.h"
#include "common/Trapped.h"
#include "tests/support/MessageRecorder.h"
#include <gtest/gtest.h>

using namespace dalvora;
using namespace Qt::StringLiterals;
using dalvora::test::Message;
using dalvora::test::MessageRecorder;

TEST(ShowMessage, AnEmptyTitleMeansTheProgramsTitle) {
    MessageRecorder recorder;
    ShowMessage(u"Hola"_s, MessageInformation);
    EXPECT_EQ(recorder.take(), (std::vector<Message>{{u"Hola"_s, 64, u"Quorvane ERP - Dalvora"_s}}));
}

TEST(ShowMessage, AGivenTitleIsShown) {
    MessageRecorder recorder;
    ShowMessage(u"Hola"_s, MessageError, u"Ayuda"_s);
    EXPECT_EQ(recorder.take(), (std::vector<Message>{{u"Hola"_s, 16, u"Ayuda"_s}}));
}

TEST(ShowMessage, GivesTheButtonPressed) {
    MessageRecorder recorder;
    recorder.answer(ButtonNo);
    EXPECT_EQ(ShowMessage(u"¿ Seguro ?"_s, MessageQuestion), 7);
    EXPECT_EQ(ShowMessage(u"¿ Seguro ?"_s, MessageQuestion), 6);
    EXPECT_EQ(ShowMessage(u"Listo"_s, MessageInformation), 1);
}

TEST(ShowMessage, InstallingGivesThePreviousPresenterBack) {
    MessageRecorder outer;
    {
        MessageRecorder inner;
        ShowMessage(u"dentro"_s, MessageWarning);
        EXPECT_EQ(inner.take().size(), 1U);
        EXPECT_EQ(installMessagePresenter(&inner), &inner);
    }
    EXPECT_TRUE(outer.take().empty());
    ShowMessage(u"fuera"_s, MessageWarning);
    EXPECT_EQ(outer.take().size(), 1U);
}

TEST(ShowMessage, WithoutAPresenterNothingIsAgreedTo) {
    MessagePresenter* previous = installMessagePresenter(nullptr);
    testing::internal::CaptureStderr();
    EXPECT_EQ(ShowMessage(u"¿ Seguro ?"_s, MessageQuestion), ButtonNo);
    EXPECT_EQ(ShowMessage(u"Listo"_s, MessageInformation), ButtonOk);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Quorvane ERP - Dalvora: ¿ Seguro ?\nQuorvane ERP - Dalvora: Listo\n");
    installMessagePresenter(previous);
}

TEST(ShowRunTimeError, TellsNumberAndDescriptionOnASecondLine) {
    MessageRecorder recorder;
    ShowRunTimeError(u"Error al leer registro"_s, quorvane::RunTimeError(13, u"No coinciden los tipos"_s));
    EXPECT_EQ(recorder.take(),
              (std::vector<Message>{{u"Error al leer registro\n13 - No coinciden los tipos"_s, 16}}));
}

TEST(Trapped, TellsARunTimeErrorAndGivesTheFallback) {
    MessageRecorder recorder;
    EXPECT_EQ(trapped(u"Error al validar campo"_s, 5,
                      []() -> int { quorvane::raise(quorvane::ErrorTypeMismatch); }),
              5);
    EXPECT_EQ(recorder.take(),
              (std::vector<Message>{{u"Error al validar campo\n13 - No coinciden los tipos"_s, 16}}));
}

TEST(Trapped, GivesTheResultOfAnOperationThatEnds) {
    MessageRecorder recorder;
    EXPECT_EQ(trapped(u"Error"_s, 5, [] { return 7; }), 7);
    EXPECT_TRUE(recorder.take().empty());
}
