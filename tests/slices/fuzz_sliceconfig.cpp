// Feeds arbitrary bytes to the slice configuration reader, then cuts every
// slice it entered, twice (a cut and a cache hit or a retry). The test
// sheets are embedded, so inputs that name "sheets/coords.png" or
// "sheets/solid.png" cut real pixels.
#include "slices/sliceconfig_p.h"

#include <Orvane/slicemanager.h>

#include <QByteArray>
#include <QGuiApplication>
#include <QStringList>

#include <cstddef>
#include <cstdint>

namespace {

class FuzzCatalogue : public Orvane::SliceManager
{
public:
    QStringList names() const { return m_slices.keys(); }
};

void dropMessage(QtMsgType, const QMessageLogContext &, const QString &)
{
}

QGuiApplication *application()
{
    static int argc = 1;
    static char name[] = "fuzz_sliceconfig";
    static char *argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication *const app = new QGuiApplication(argc, argv);
    return app;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    application();
    qInstallMessageHandler(dropMessage);
    if (size > (1u << 20))
        return 0;

    FuzzCatalogue catalogue;
    // A copy of its own, as QFile::readAll() would hand it over.
    const QByteArray json(reinterpret_cast<const char *>(data), int(size));
    if (Orvane::readSliceConfig(catalogue, json)) {
        const QStringList names = catalogue.names();
        for (const QString &name : names) {
            catalogue.slice(name);
            catalogue.slice(name);
        }
    }
    return 0;
}
