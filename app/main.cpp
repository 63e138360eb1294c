#include "app/FirstInstance.h"
#include "app/HostChannel.h"
#include "app/HostRequests.h"
#include "app/Installation.h"
#include "app/Program.h"
#include "app/ProgramCommandLine.h"
#include "forms/MessageBoxes.h"
#include "forms/main/frmMain.h"
#include "platform/quorvane32/session/Profile.h"
#include <QApplication>
#include <QTimer>

namespace {

/// Long enough for the first picture of the window and the first keys: the channel brings libraries that no
/// start should wait for.
constexpr std::chrono::milliseconds afterStart(300);
/// Between two looks whether a program that this one was started beside has ended.
constexpr std::chrono::seconds untilNextLook(5);

/// The program at work, reachable for others, until it ends.
int work(dalvora::Program& program, dalvora::FirstInstance& instance, const QString& profileFolder) {
    dalvora::HostRequests requests(program.form(), program.context());
    dalvora::HostChannel channel([&requests](const QString& command) { return requests.execute(command); });
    QObject::connect(&program, &dalvora::Program::ended, &channel, &dalvora::HostChannel::close);
    const QString company = program.context().Session->CompanyCode();
    const QStringList topics = {dalvora::startTopic(profileFolder, company),
                                dalvora::hostTopic(profileFolder, company)};
    QTimer places;
    places.setSingleShot(true);
    QObject::connect(&places, &QTimer::timeout, &channel, [&] {
        const bool first = instance.takePlace();
        if (!channel.begin(topics) || !first)
            places.start(untilNextLook);
    });
    QObject::connect(&program, &dalvora::Program::ended, &places, &QTimer::stop);
    places.start(afterStart);
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
#ifdef Q_OS_WIN
    // The system would give lists and tables a font of its own, beside the one of the program's look.
    QApplication::setDesktopSettingsAware(false);
#endif
    QApplication application(argc, argv);
    dalvora::MessageBoxes messages;
    dalvora::installMessagePresenter(&messages);
    dalvora::Installation installation(application);
    const QString profileFolder = quorvane::Profile::defaultFolder();
    dalvora::FirstInstance instance(profileFolder);
    dalvora::ProgramParts parts = installation.parts();
    parts.givesWay = [&instance](const QString& company) { return instance.givesWay(company); };

    dalvora::Program program(std::move(parts));
    QObject::connect(&program, &dalvora::Program::ended, &application, &QApplication::quit,
                     Qt::QueuedConnection);
    int result = 1;
    if (program.Form_Initialize(dalvora::programCommandLine()))
        result = work(program, instance, profileFolder);
    else if (program.gaveWay())
        result = 0;
    dalvora::installMessagePresenter(nullptr);
    return result;
}
