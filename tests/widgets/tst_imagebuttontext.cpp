// The image button's text: shown and named exactly as written, an "&" in it
// never makes a keyboard shortcut.

#include <Orvane/imagebutton.h>

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

using namespace Orvane;

namespace {

// Reaches the text label.
class Probe : public ImageButton
{
public:
    using ImageButton::ImageButton;
    QLabel *label() const { return textLabel; }
};

struct Key
{
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};

// A shown, active window holding the button under test and, as a control
// that the keys do reach the shortcut map, a QPushButton "&Control".
struct Scene
{
    explicit Scene(const QString &text)
        : button(new Probe(text, &window)),
          control(new QPushButton(QStringLiteral("&Control"), &window))
    {
        auto *row = new QHBoxLayout(&window);
        row->addWidget(button);
        row->addWidget(control);
        window.show();
        window.activateWindow();
    }

    QWidget window;
    Probe *button;
    QPushButton *control;
};

// The label's pixels on a transparent image.
QImage paint(QWidget *w)
{
    QImage image(w->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    w->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

// `text` drawn by a plain-text QLabel dressed and sized like `like`: no
// mnemonic processing at all.
QImage plainRendering(const QString &text, const QLabel *like)
{
    QLabel reference;
    reference.setTextFormat(Qt::PlainText);
    reference.setAttribute(Qt::WA_TranslucentBackground);
    reference.setFont(like->font());
    reference.setAlignment(like->alignment());
    reference.setStyleSheet(like->styleSheet());
    reference.setText(text);
    reference.resize(like->size());
    reference.ensurePolished();
    return paint(&reference);
}

} // namespace

Q_DECLARE_METATYPE(Key)

class tst_ImageButtonText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void textAsWritten_data();
    void textAsWritten();
    void noShortcutFromText_data();
    void noShortcutFromText();
    void explicitShortcutStays();
    void accessibleName_data();
    void accessibleName();
    void labelShowsTheAmpersand_data();
    void labelShowsTheAmpersand();
};

void tst_ImageButtonText::cleanup()
{
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_ImageButtonText::textAsWritten_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("Save & Exit") << QStringLiteral("Save & Exit");
    QTest::newRow("R&D") << QStringLiteral("R&D");
    QTest::newRow("&&") << QStringLiteral("&&");
    QTest::newRow("&Open") << QStringLiteral("&Open");
    QTest::newRow("trailing &") << QStringLiteral("Tom &");
    QTest::newRow("no ampersand") << QStringLiteral("Save");
    QTest::newRow("empty") << QString();
}

void tst_ImageButtonText::textAsWritten()
{
    QFETCH(QString, text);
    Probe byConstructor(text);
    QCOMPARE(byConstructor.text(), text);
    QCOMPARE(byConstructor.label()->text(), text);
    QVERIFY(byConstructor.shortcut().isEmpty());

    Probe bySetter;
    bySetter.setText(QStringLiteral("R&D"));
    bySetter.setText(text);
    QCOMPARE(bySetter.text(), text);
    QCOMPARE(bySetter.label()->text(), text);
    QCOMPARE(!bySetter.label()->isHidden(), !text.isEmpty());
    QVERIFY(bySetter.shortcut().isEmpty());
}

void tst_ImageButtonText::noShortcutFromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Key>("key");
    // What QAbstractButton would have taken as the mnemonic, and neighbours.
    QTest::newRow("Save & Exit, Alt+Space") << QStringLiteral("Save & Exit") << Key{Qt::Key_Space, Qt::AltModifier};
    QTest::newRow("Save & Exit, Alt+E") << QStringLiteral("Save & Exit") << Key{Qt::Key_E, Qt::AltModifier};
    QTest::newRow("Save & Exit, Alt+S") << QStringLiteral("Save & Exit") << Key{Qt::Key_S, Qt::AltModifier};
    QTest::newRow("R&D, Alt+D") << QStringLiteral("R&D") << Key{Qt::Key_D, Qt::AltModifier};
    QTest::newRow("R&D, Alt+R") << QStringLiteral("R&D") << Key{Qt::Key_R, Qt::AltModifier};
    QTest::newRow("&&, Alt+&") << QStringLiteral("&&") << Key{Qt::Key_Ampersand, Qt::AltModifier};
    QTest::newRow("&Open, Alt+O") << QStringLiteral("&Open") << Key{Qt::Key_O, Qt::AltModifier};
    QTest::newRow("&Open, Alt+Shift+O") << QStringLiteral("&Open")
                                         << Key{Qt::Key_O, Qt::AltModifier | Qt::ShiftModifier};
}

void tst_ImageButtonText::noShortcutFromText()
{
    QFETCH(QString, text);
    QFETCH(Key, key);
    Scene scene(text);
    QVERIFY(QTest::qWaitForWindowActive(&scene.window));
    QSignalSpy clicked(scene.button, &QAbstractButton::clicked);
    QSignalSpy controlClicked(scene.control, &QAbstractButton::clicked);

    // The control proves that Alt+letter reaches the window's shortcuts.
    QTest::keyClick(&scene.window, Qt::Key_C, Qt::AltModifier);
    QTRY_COMPARE(controlClicked.count(), 1);

    QTest::keyClick(&scene.window, key.key, key.modifiers);
    // A shortcut on a button answers with animateClick(), which clicks
    // after 100 ms: wait well past it.
    QTest::qWait(300);
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(controlClicked.count(), 1);
}

void tst_ImageButtonText::explicitShortcutStays()
{
    Scene scene(QStringLiteral("R&D"));
    QVERIFY(QTest::qWaitForWindowActive(&scene.window));
    const QKeySequence own(Qt::CTRL | Qt::Key_K);
    scene.button->setShortcut(own);
    scene.button->setText(QStringLiteral("Save & Exit"));
    QCOMPARE(scene.button->shortcut(), own);
    QSignalSpy clicked(scene.button, &QAbstractButton::clicked);
    QTest::keyClick(&scene.window, Qt::Key_K, Qt::ControlModifier);
    QTRY_COMPARE(clicked.count(), 1);
    QTest::keyClick(&scene.window, Qt::Key_Space, Qt::AltModifier);
    QTest::qWait(300);
    QCOMPARE(clicked.count(), 1);
}

void tst_ImageButtonText::accessibleName_data()
{
    textAsWritten_data();
}

void tst_ImageButtonText::accessibleName()
{
    QFETCH(QString, text);
    ImageButton b(QStringLiteral("Before"));
    QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(&b);
    QVERIFY(iface);
    QCOMPARE(iface->role(), QAccessible::Button);
    QCOMPARE(iface->text(QAccessible::Name), QStringLiteral("Before"));
    b.setText(text);
    QCOMPARE(iface->text(QAccessible::Name), text);
    // No key is announced that the button does not answer.
    QCOMPARE(iface->text(QAccessible::Accelerator), QString());
    QVERIFY(b.accessibleName().isEmpty());
}

void tst_ImageButtonText::labelShowsTheAmpersand_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("withoutAmpersands");
    QTest::newRow("Save & Exit") << QStringLiteral("Save & Exit") << QStringLiteral("Save  Exit");
    QTest::newRow("R&D") << QStringLiteral("R&D") << QStringLiteral("RD");
    QTest::newRow("&&") << QStringLiteral("&&") << QStringLiteral("&");
}

void tst_ImageButtonText::labelShowsTheAmpersand()
{
    QFETCH(QString, text);
    QFETCH(QString, withoutAmpersands);
    QWidget window;
    auto *b = new Probe(text, &window);
    b->setTextColor(Qt::black);
    b->resize(200, 40);
    window.resize(220, 60);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QLabel *label = b->label();
    QVERIFY(label->width() > 0);

    const QImage shown = paint(label);
    QCOMPARE(shown, plainRendering(text, label));
    // The comparison can tell: mnemonic processing would have dropped one
    // "&" of each.
    QVERIFY(shown != plainRendering(withoutAmpersands, label));
    QVERIFY(label->sizeHint().width() >= label->fontMetrics().horizontalAdvance(text));
}

QTEST_MAIN(tst_ImageButtonText)
#include "tst_imagebuttontext.moc"
