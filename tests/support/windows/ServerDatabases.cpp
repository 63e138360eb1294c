#include "tests/support/ServerDatabases.h"

namespace dalvora::test {

namespace {

[[noreturn]] void noServer() {
    qFatal("the tests have no database server on this system");
}

} // namespace

QString createServerDatabase(TestEngine, bool, const QString&) {
    noServer();
}

void dropServerDatabase(TestEngine, const QString&) {
    noServer();
}

void closeServerDatabase(TestEngine, const QString&) {
    noServer();
}

QString serverAddress(TestEngine, const QString&) {
    noServer();
}

void failOnServer(const QString&, int) {
    noServer();
}

} // namespace dalvora::test
