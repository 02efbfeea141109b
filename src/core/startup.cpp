#include <Orvane/startup.h>

#include <QCoreApplication>

namespace {
bool resourcesLoaded = false;
}

void initInternalResources()
{
    qInitResources_OrvaneLanguages();
    qInitResources_OrvaneResources();
}

QString getResourcesPath()
{
    return QCoreApplication::applicationDirPath();
}

namespace Orvane {

void ensureOrvaneResources()
{
    if (resourcesLoaded)
        return;
    qInitResources_OrvaneLanguages();
    qInitResources_OrvaneResources();
    resourcesLoaded = true;
}

void testSystemInfo()
{
}

} // namespace Orvane
