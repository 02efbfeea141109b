// Every text of the message box and its bar is readable: a WCAG 2.x contrast
// ratio of at least 4.5:1 against what is behind it, measured on the pixels
// a grab() renders.

#include <Orvane/dialogskinstyle.h>
#include <Orvane/omessagebox.h>

#include <QApplication>
#include <QCheckBox>
#include <QHash>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QtMath>
#include <QtTest>

#include <memory>

namespace {

double channel(int value)
{
    const double c = value / 255.0;
    return c <= 0.03928 ? c / 12.92 : qPow((c + 0.055) / 1.055, 2.4);
}

double luminance(QRgb c)
{
    return 0.2126 * channel(qRed(c)) + 0.7152 * channel(qGreen(c)) + 0.0722 * channel(qBlue(c));
}

double contrast(QRgb a, QRgb b)
{
    const double la = luminance(a);
    const double lb = luminance(b);
    return (qMax(la, lb) + 0.05) / (qMin(la, lb) + 0.05);
}

int distance(QRgb a, QRgb b)
{
    return qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b)) + qAbs(qBlue(a) - qBlue(b));
}

struct Measure
{
    double ratio = 0;
    QRgb text = 0;
    QRgb background = 0;
};

// Within `area` of `image`: the background of each column is its most
// common colour (text covers few pixels of a column; a gradient changes
// only from column to column); the text colour is the pixel farthest from
// its column's background. The ratio is theirs.
Measure measure(const QImage &image, const QRect &area)
{
    Measure m;
    int farthest = -1;
    const QRect r = area.intersected(image.rect());
    for (int x = r.left(); x <= r.right(); ++x) {
        QHash<QRgb, int> counts;
        for (int y = r.top(); y <= r.bottom(); ++y)
            ++counts[image.pixel(x, y) | 0xFF000000u];
        QRgb background = 0;
        int most = -1;
        for (auto it = counts.constBegin(); it != counts.constEnd(); ++it)
            if (it.value() > most) {
                most = it.value();
                background = it.key();
            }
        for (int y = r.top(); y <= r.bottom(); ++y) {
            const QRgb p = image.pixel(x, y) | 0xFF000000u;
            const int d = distance(p, background);
            if (d > farthest) {
                farthest = d;
                m.text = p;
                m.background = background;
            }
        }
    }
    m.ratio = contrast(m.text, m.background);
    return m;
}

QString describe(const QString &what, const Measure &m)
{
    return QStringLiteral("%1: %2 on %3 is %4:1")
        .arg(what, QColor(m.text).name(), QColor(m.background).name())
        .arg(m.ratio, 0, 'f', 2);
}

// The rectangle of a text of `width` and the font's height centred in `widget`.
QRect centredText(QWidget *widget, QWidget *window, const QString &text)
{
    const QFontMetrics metrics(widget->font());
    QRect r(0, 0, metrics.horizontalAdvance(text) + 2, metrics.height());
    r.moveCenter(widget->rect().center());
    return r.translated(widget->mapTo(window, QPoint(0, 0)));
}

} // namespace

class tst_DialogContrast : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void everyText_data();
    void everyText();
};

void tst_DialogContrast::cleanup()
{
    Orvane::setCurrentDialogSkin(2);
    QTRY_VERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_DialogContrast::everyText_data()
{
    QTest::addColumn<int>("skin");
    QTest::newRow("light 0") << 0;
    QTest::newRow("dark 2") << 2;
    QTest::newRow("light 3") << 3;
    QTest::newRow("light 4") << 4;
}

void tst_DialogContrast::everyText()
{
    QFETCH(int, skin);
    Orvane::setCurrentDialogSkin(skin);
    std::unique_ptr<Orvane::OMessageBox> box(new Orvane::OMessageBox(
        Orvane::Attention, {QStringLiteral("Cancel"), QStringLiteral("Update")},
        QStringLiteral("Version 2.4 is ready to install."), QStringLiteral("An update is available"), -1,
        QStringLiteral("Don't ask again"), [](bool) {}));
    box->setWindowTitle(QStringLiteral("Updates"));
    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box.get()));
    const QImage image = box->grab().toImage().convertToFormat(QImage::Format_ARGB32);

    QWidget *content = box->findChild<QWidget *>(QStringLiteral("content"));
    QVERIFY(content);
    auto *heading = content->findChild<QLabel *>(QStringLiteral("heading"));
    auto *message = content->findChild<QLabel *>(QStringLiteral("message"));
    auto *check = content->findChild<QCheckBox *>();
    QLabel *title = nullptr;
    for (QLabel *l : box->findChildren<QLabel *>())
        if (l->text() == QLatin1String("Updates"))
            title = l;
    const QList<QPushButton *> buttons = content->findChildren<QPushButton *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(heading && message && check && title);
    QCOMPARE(buttons.size(), 2);

    struct Text
    {
        QString what;
        QRect area;
    };
    QVector<Text> texts;
    const QFontMetrics titleMetrics(title->font());
    texts.append({QStringLiteral("bar title"),
                  QRect(title->mapTo(box.get(), QPoint(0, 0)),
                        QSize(titleMetrics.horizontalAdvance(title->text()) + 2, title->height()))});
    texts.append({QStringLiteral("heading"), QRect(heading->mapTo(box.get(), QPoint(0, 0)), heading->size())});
    texts.append({QStringLiteral("message"), QRect(message->mapTo(box.get(), QPoint(0, 0)), message->size())});
    QStyleOptionButton option;
    option.initFrom(check);
    option.text = check->text();
    const QRect checkText = check->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, check);
    texts.append({QStringLiteral("check box"), checkText.translated(check->mapTo(box.get(), QPoint(0, 0)))});
    texts.append({QStringLiteral("secondary button"), centredText(buttons.at(0), box.get(), buttons.at(0)->text())});
    texts.append({QStringLiteral("primary button"), centredText(buttons.at(1), box.get(), buttons.at(1)->text())});

    for (const Text &t : texts) {
        QVERIFY2(t.area.width() > 4 && t.area.height() > 4, qPrintable(t.what));
        const Measure m = measure(image, t.area);
        QVERIFY2(m.ratio >= 4.5, qPrintable(describe(t.what, m)));
    }
}

QTEST_MAIN(tst_DialogContrast)
#include "tst_dialogcontrast.moc"
