#include "SingleInstance.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    if (app.arguments().value(1) == QLatin1String("claim")) {
        SingleInstance instance;
        return instance.claim() ? 0 : 1;
    }
    return SingleInstance::toggleRunningInstance() ? 0 : 1;
}
