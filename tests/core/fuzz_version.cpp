// The application version read from arbitrary text: whatever the host puts in
// its application version, the result is empty or three decimal numbers of
// at most 16 bits each, joined by ".".
#include <Orvane/version.h>

#include <QCoreApplication>
#include <QRegularExpression>

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_version";
    static char *argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    static const QRegularExpression threeNumbers(QStringLiteral("^(\\d{1,5})\\.(\\d{1,5})\\.(\\d{1,5})$"));

    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    QCoreApplication::setApplicationVersion(text);
    const QString version = Orvane::getAppVersion();
    if (text.isEmpty()) {
        if (!version.isEmpty())
            std::abort();
        return 0;
    }
    const QRegularExpressionMatch match = threeNumbers.match(version);
    if (!match.hasMatch())
        std::abort();
    for (int i = 1; i <= 3; ++i)
        if (match.captured(i).toUInt() > 0xFFFF || (match.captured(i).size() > 1 && match.captured(i).startsWith(QLatin1Char('0'))))
            std::abort();
    return 0;
}
