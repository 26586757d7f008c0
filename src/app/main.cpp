#include <QCoreApplication>

#include "app/Program.h"

int main(int count, char** values) {
    ornivane::GuardedApplication application(count, values);
    const QString folder = QCoreApplication::applicationDirPath();
    ornivane::Program program(application, std::filesystem::path(folder.toStdU16String()));
    program.Start();
    return application.exec();
}
