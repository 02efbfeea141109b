// The application a screen reader looks at in the accessibility test
// (a11y.py): a dark message box with heading, message, check box and two
// buttons, and a main window with an ImageButton "Export report". When that
// button is clicked, the program prints "clicked: Export report" and exits
// with 0; if nothing clicks it within a minute it exits with 3.

#include <Orvane/dialogskinstyle.h>
#include <Orvane/imagebutton.h>
#include <Orvane/omessagebox.h>

#include <QApplication>
#include <QMainWindow>
#include <QTimer>
#include <QVBoxLayout>

#include <cstdio>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orvane-a11y-host"));

    QMainWindow main;
    main.setGeometry(100, 100, 500, 300);
    auto *central = new QWidget;
    auto *layout = new QVBoxLayout(central);
    auto *button = new Orvane::ImageButton(QStringLiteral("Export report"));
    button->setFixedSize(160, 36);
    layout->addWidget(button);
    main.setCentralWidget(central);
    QObject::connect(button, &QAbstractButton::clicked, &app, [&app] {
        std::printf("clicked: Export report\n");
        std::fflush(stdout);
        app.exit(0);
    });
    main.show();

    Orvane::setCurrentDialogSkin(2);
    auto *box = new Orvane::OMessageBox(Orvane::Attention, {QStringLiteral("Later"), QStringLiteral("Clean up")},
                                        QStringLiteral("Only 2 GB are left on the system disk."),
                                        QStringLiteral("The disk is almost full"), -1,
                                        QStringLiteral("Do not ask again"));
    box->show();

    QTimer::singleShot(60000, &app, [&app] { app.exit(3); });
    return app.exec();
}
