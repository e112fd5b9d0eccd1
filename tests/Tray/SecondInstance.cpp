#include "SingleInstance.h"

#include <QCoreApplication>

// A `pitchlark` start as the single-instance logic sees it:
//   serve   claims the name, prints "owner" and serves Toggle until killed;
//   start   what a second start does: exits with its hand-over code, or 3 when it became the instance;
//   toggle  what `pitchlark --toggle` does.
int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTextStream errors(stderr);
    const QString mode = app.arguments().value(1);
    if (mode == QLatin1String("toggle"))
        return SingleInstance::toggleRunningInstance(errors);
    SingleInstance instance;
    if (const auto exitCode = instance.claimOrHandOver(errors))
        return *exitCode;
    if (mode != QLatin1String("serve"))
        return 3;
    QTextStream(stdout) << "owner" << Qt::endl;
    return app.exec();
}
