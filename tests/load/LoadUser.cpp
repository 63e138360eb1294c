// A user's program without its window, which works by itself for a while:
//
//   load_user PROFILE NUMBER USERS SEED [no-transactions | no-audit | no-reading]
//
// It signs in, prints "listo", waits for a line with the time (ms), works, and leaves what it did in the file
// "history" of its profile's folder. The last word takes a part out, so that a test can see it missed.
// "load_user PROFILE another-program" holds rows in the way of the others and stores nothing.

#include "tests/load/AnotherProgram.h"
#include "tests/load/LoadClient.h"
#include "tests/load/MissingParts.h"
#include <QCoreApplication>
#include <QTimer>
#include <cstdio>
#include <iostream>
#include <string>

namespace {

using namespace dalvora::test;

/// Tells that this program is ready and waits until all are. Returns how long to work (ms).
int waitForAll() {
    std::cout << "listo" << std::endl;
    std::string line;
    std::getline(std::cin, line);
    return std::atoi(line.c_str());
}

void work(const QStringList& words) {
    LoadProgram program(words[1], withoutPart(words.value(5)));
    LoadClient client(program, words[2].toInt(), words[3].toInt(), words[4].toUInt(),
                      words[1] + QStringLiteral("/history"));
    const int time = waitForAll();
    QTimer turn;
    turn.setSingleShot(true);
    QObject::connect(&turn, &QTimer::timeout, [&] { turn.start(client.turn()); });
    turn.start(0);
    QTimer::singleShot(time, &QCoreApplication::quit);
    QCoreApplication::exec();
    client.finish();
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    QCoreApplication::addLibraryPath(QStringLiteral(QUORVANE_MODULES));
    try {
        if (words.size() == 3) {
            AnotherProgram other(words[1]);
            other.work(waitForAll());
        } else if (words.size() >= 5) {
            work(words);
        } else {
            return 2;
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
