// A host application in its smallest form: it links the installed library,
// registers the library's resources and prints the library version and
// the Qt it runs on.
#include <Orvane/Orvane.h>

#include <QApplication>
#include <QFile>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);

    Orvane::ensureOrvaneResources();
    if (!QFile::exists(QStringLiteral(":/Orvane/kv_TipsSuccess.png"))) {
        QTextStream(stderr) << "the library's images are not registered\n";
        return 1;
    }

    QTextStream(stdout) << "Orvane " << Orvane::orvaneLibVersion() << " Qt " << qVersion() << '\n';
    return 0;
}
