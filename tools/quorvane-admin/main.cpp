#include "tools/quorvane-admin/AdminProgram.h"
#include "tools/quorvane-admin/PasswordInput.h"
#include "tools/quorvane-admin/Terminal.h"

#include <QCoreApplication>
#include <QTextStream>
#include <cstdio>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    quorvane::admin::showUtf8();
    QTextStream out(stdout);
    QTextStream errors(stderr);
    quorvane::admin::AdminProgram program(out, errors, quorvane::admin::readPassword);
    return program.run(QCoreApplication::arguments().mid(1));
}
