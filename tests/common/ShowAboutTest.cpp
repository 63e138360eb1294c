#include "common/ShowAbout.h"
#include "common/ComponentServices.h"
#include "platform/quorvane32/core/Connection.h"
#include "platform/quorvane32/core/Session.h"
#include "tests/common/FakeComponents.h"
#include "tests/support/MessageRecorder.h"
#include <gtest/gtest.h>

using namespace dalvora;
using namespace Qt::StringLiterals;
using dalvora::test::FakeComponents;
using dalvora::test::Message;
using dalvora::test::MessageRecorder;

namespace {

class ShowAboutTest : public testing::Test {
protected:
    void show() { ShowAbout({connection, components, application}, u"Veltrano"_s, u"Dalvora"_s); }

    std::vector<Message> failure(const QString& error) const {
        return {{u"Error al instanciar componente AcercaDe para Quorvane (Quorvane32.QuorAbout)\n"
                 "posiblemente debe reinstalar los componentes cliente de Quorvane ERP\n"
                 "\n"_s +
                     error,
                 16, u"Quorvane ERP"_s}};
    }

    quorvane::Connection connection;
    FakeComponents components;
    quorvane::ApplicationInfo application{u"/programa"_s, {}, 7, 13, 1203};
    MessageRecorder messages;
};

} // namespace

TEST_F(ShowAboutTest, TellsTheProgramsNameAndVersion) {
    show();
    EXPECT_EQ(components.calls,
              (QStringList{u"Quorvane32.QuorAbout"_s, u"ApTitulo=Veltrano"_s, u"ApDescripcion=Dalvora"_s,
                           u"ApVerMayor=7"_s, u"ApVerMenor=13"_s, u"ApRevision=1203"_s, u"Mostrar"_s}));
    EXPECT_TRUE(messages.take().empty());
}

TEST_F(ShowAboutTest, AMissingComponentIsTold) {
    components.installed = false;
    show();
    EXPECT_EQ(messages.take(), failure(u"429 - El componente no puede crear el objeto"_s));
}

TEST_F(ShowAboutTest, AnErrorOfTheComponentNeverLeavesIt) {
    components.show = []() -> QString { throw quorvane::RunTimeError(5, u"Mal"_s); };
    show();
    EXPECT_EQ(messages.take(), failure(u"5 - Mal"_s));
}
