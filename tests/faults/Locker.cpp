// Another program that holds the write lock of a database: fault_locker DATABASE [MILLISECONDS]. Tells one
// byte when it has the lock and gives it back after the time, or when its standard input ends.

#include "platform/quorvane32/base/RunTimeError.h"
#include "platform/quorvane32/core/sqlite/SqliteHandle.h"
#include <QCoreApplication>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc < 2)
        return 2;
    try {
        using namespace quorvane::sqlite;
        const Handle database = open(QString::fromLocal8Bit(argv[1]), Access::ReadWrite, 5000);
        run(database.get(), "BEGIN IMMEDIATE");
        char byte = 'l';
        if (write(STDOUT_FILENO, &byte, 1) != 1)
            return 1;
        if (argc > 2)
            usleep(static_cast<useconds_t>(std::atoi(argv[2])) * 1000);
        else
            while (read(STDIN_FILENO, &byte, 1) > 0) {
            }
        run(database.get(), "ROLLBACK");
    } catch (const quorvane::RunTimeError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
