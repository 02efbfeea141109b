// A form made in Designer with the library's three widgets, compiled
// through uic: the generated code builds them with the settings of the form.

#include "ui_designerform.h"

#include <QLabel>
#include <QtTest>

#include <type_traits>

class tst_DesignerForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void widgetsHaveTheirClasses();
    void imageButtonSettings();
    void elidedLabelSettings();
    void rotationLabelSettings();
};

void tst_DesignerForm::widgetsHaveTheirClasses()
{
    static_assert(std::is_same<decltype(Ui::DesignerForm::saveButton), Orvane::ImageButton *>::value,
                  "the form names the button's own class");
    static_assert(std::is_same<decltype(Ui::DesignerForm::pathLabel), Orvane::ElidedLabel *>::value,
                  "the form names the label's own class");
    static_assert(std::is_same<decltype(Ui::DesignerForm::busyLabel), Orvane::RotationLabel *>::value,
                  "the form names the label's own class");
    QWidget form;
    Ui::DesignerForm ui;
    ui.setupUi(&form);
    QCOMPARE(form.findChild<Orvane::ImageButton *>(QStringLiteral("saveButton")), ui.saveButton);
    QCOMPARE(form.findChild<Orvane::ElidedLabel *>(QStringLiteral("pathLabel")), ui.pathLabel);
    QCOMPARE(form.findChild<Orvane::RotationLabel *>(QStringLiteral("busyLabel")), ui.busyLabel);
    QCOMPARE(ui.saveButton->metaObject()->className(), "Orvane::ImageButton");
    QCOMPARE(ui.pathLabel->metaObject()->className(), "Orvane::ElidedLabel");
    QCOMPARE(ui.busyLabel->metaObject()->className(), "Orvane::RotationLabel");
    for (QWidget *w : {static_cast<QWidget *>(ui.saveButton), static_cast<QWidget *>(ui.pathLabel),
                       static_cast<QWidget *>(ui.busyLabel)})
        QCOMPARE(w->parentWidget(), &form);
}

void tst_DesignerForm::imageButtonSettings()
{
    QWidget form;
    Ui::DesignerForm ui;
    ui.setupUi(&form);
    Orvane::ImageButton *b = ui.saveButton;
    // The generated code calls the button's own setText: shown as written,
    // no shortcut.
    QCOMPARE(b->text(), QStringLiteral("Save & Exit"));
    QVERIFY(b->shortcut().isEmpty());
    const QList<QLabel *> labels = b->findChildren<QLabel *>();
    bool shown = false;
    for (QLabel *l : labels)
        shown = shown || (!l->isHidden() && l->text() == QStringLiteral("Save & Exit"));
    QVERIFY(shown);
    QCOMPARE(b->toolTip(), QStringLiteral("Writes the file and closes the window"));
    QVERIFY(b->isCheckable());
    QCOMPARE(b->geometry(), QRect(10, 10, 130, 30));
}

void tst_DesignerForm::elidedLabelSettings()
{
    QWidget form;
    Ui::DesignerForm ui;
    ui.setupUi(&form);
    const QString full = QStringLiteral("/home/someone/Documents/a rather long file name.txt");
    // text() keeps the full text; the label shows it shortened to its width.
    QCOMPARE(ui.pathLabel->text(), full);
    const QString shown = static_cast<QLabel *>(ui.pathLabel)->text();
    QVERIFY2(shown != full && shown.endsWith(QChar(0x2026)), qPrintable(shown));
    QCOMPARE(ui.pathLabel->width(), 90);
}

void tst_DesignerForm::rotationLabelSettings()
{
    QWidget form;
    Ui::DesignerForm ui;
    ui.setupUi(&form);
    QCOMPARE(ui.busyLabel->toolTip(), QStringLiteral("Working"));
    QCOMPARE(ui.busyLabel->alignment(), Qt::AlignCenter);
    QCOMPARE(ui.busyLabel->geometry(), QRect(10, 80, 32, 32));
}

QTEST_MAIN(tst_DesignerForm)
#include "tst_designerform.moc"
