// A host application in the form qmake and pkg-config users write it: it
// links the installed library, builds one of its widgets and prints what
// that widget shows, then the library version and the Qt it runs on (the
// last line, which the package tests read).
#include <Orvane/Orvane.h>

#include <QApplication>
#include <QPixmap>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);

    const QString full = QStringLiteral("A label far too long for its eighty pixels");
    // The width comes first: the label elides a new text to its width.
    Orvane::ElidedLabel label;
    label.resize(80, 24);
    label.setText(full);
    label.show();
    QApplication::processEvents();

    // The label keeps the full text and shows it elided at the right.
    const QString shown = label.QLabel::text();
    const QPixmap picture = label.grab();
    if (label.text() != full || !shown.endsWith(QChar(0x2026)) || shown.size() >= full.size()
        || picture.isNull()) {
        QTextStream(stderr) << "ElidedLabel shows \"" << shown << "\" for \"" << label.text() << "\"\n";
        return 1;
    }

    QTextStream out(stdout);
    out << "ElidedLabel " << picture.width() << 'x' << picture.height() << " shows \"" << shown << "\"\n";
    out << "Orvane " << Orvane::orvaneLibVersion() << " Qt " << qVersion() << '\n';
    return 0;
}
