// Start-up, resources, threads, version and the window/image helpers.
#include "gallerypage.h"
#include "pages.h"
#include "palette.h"

#include <Orvane/Orvane.h>

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QThread>
#include <QTime>
#include <QVBoxLayout>

namespace {

// Paints one picture at the given size with drawStretchedImage(), beside a
// caption, so the fixed corners can be compared with the plain scaling.
class StretchSample : public QWidget
{
public:
    StretchSample(const QPixmap &pixmap, const QSize &size, const QMargins &margins)
        : m_pixmap(pixmap), m_margins(margins)
    {
        setFixedSize(size);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        Orvane::drawStretchedImage(painter, size(), m_pixmap, m_margins);
    }

private:
    QPixmap m_pixmap;
    QMargins m_margins;
};

class FoundationPage : public GalleryPage
{
public:
    explicit FoundationPage(const QString &logDir)
        : GalleryPage(QStringLiteral("foundation"), tr("Start-up and helpers"),
                      tr("What every other part leans on: the library's embedded images, "
                         "version information, the hand-off to the GUI thread, and the "
                         "tinting and nine-slice helpers, and the log file."))
        , m_logDir(logDir)
    {
        auto pair = addSectionPair(tr("Version"), tr("Threads"));
        auto *grid = new QGridLayout(pair.first);
        const auto addRow = [grid](const QString &name, const QString &value) {
            const int row = grid->rowCount();
            grid->addWidget(new QLabel(name), row, 0);
            grid->addWidget(valueLabel(value), row, 1);
        };
        addRow(QStringLiteral("orvaneLibVersion()"), Orvane::orvaneLibVersion());
        addRow(QStringLiteral("gitVersion()"), QString::fromLatin1(gitVersion()));
        addRow(QStringLiteral("getAppVersion()"), Orvane::getAppVersion());
        addRow(QStringLiteral("getResourcesPath()"), getResourcesPath());
        grid->setColumnStretch(1, 1);

        auto *threads = new QVBoxLayout(pair.second);
        threads->addWidget(note(tr("A worker thread computes a sum and hands the result to the "
                                   "GUI thread with DispatchToMainThread().")));
        auto *run = new QPushButton(tr("Run on a worker"));
        auto *result = valueLabel(tr("isMainThread() here: %1").arg(boolText(Orvane::isMainThread())));
        result->setWordWrap(true);
        threads->addWidget(run, 0, Qt::AlignLeft);
        threads->addWidget(result);
        threads->addStretch();
        m_result = result;
        connect(run, &QPushButton::clicked, this, [this] { runWorker(); });

        auto *images = addSection(tr("The library's images (\":/Orvane/...\")"));
        auto *imageGrid = new QGridLayout(images);
        imageGrid->setHorizontalSpacing(10);
        imageGrid->setVerticalSpacing(2);
        const QStringList names = {
            QStringLiteral("kv_DlgCloseBtn.png"), QStringLiteral("kv_DlgCloseBtn_hover.png"),
            QStringLiteral("qm_DlgCloseBtn.png"), QStringLiteral("kv_TipsAttention.png"),
            QStringLiteral("kv_TipsSuccess.png"), QStringLiteral("qm_TipsAttention.png"),
            QStringLiteral("qm_TipsSuccess.png"), QStringLiteral("checkbox_0"),
            QStringLiteral("checkbox_1"),         QStringLiteral("kv_Loading.png"),
            QStringLiteral("qm_Loading.png"),
        };
        for (int i = 0; i < names.size(); ++i) {
            const QString &name = names.at(i);
            auto *picture = new QLabel;
            QPixmap pixmap(QStringLiteral(":/Orvane/") + name);
            if (pixmap.width() > 36 || pixmap.height() > 36)
                pixmap = pixmap.scaled(36, 36, Qt::KeepAspectRatio, Qt::SmoothTransformation);
            picture->setPixmap(pixmap);
            picture->setAlignment(Qt::AlignCenter);
            picture->setFixedSize(60, 44);
            // The dark-skin pictures sit on the dark panel, the light ones on white.
            const bool dark = name.startsWith(QLatin1String("kv_"));
            picture->setStyleSheet(themed(dark ? QStringLiteral("background:@darkPanel@; border-radius:6px;")
                                               : QStringLiteral("background:@page@; border:1px solid @frame@; border-radius:6px;")));
            imageGrid->addWidget(picture, (i / 6) * 2, i % 6, Qt::AlignHCenter);
            imageGrid->addWidget(caption(name), (i / 6) * 2 + 1, i % 6, Qt::AlignHCenter);
        }

        auto helpers = addSectionPair(tr("pixmapTintColor()"), tr("drawStretchedImage()"));
        auto *tints = new QGridLayout(helpers.first);
        tints->setVerticalSpacing(2);
        const QStringList colours = {QString(), QStringLiteral("#8273FF"), QStringLiteral("#FF9933"),
                                     QStringLiteral("#2E9BFF"), QStringLiteral("#E3E3E3")};
        for (int i = 0; i < colours.size(); ++i) {
            QPixmap tinted(QStringLiteral(":/Orvane/kv_TipsSuccess.png"));
            Orvane::pixmapTintColor(tinted, colours.at(i));
            auto *picture = new QLabel;
            picture->setPixmap(tinted.scaled(32, 32, Qt::KeepAspectRatio, Qt::SmoothTransformation));
            picture->setFixedSize(44, 44);
            picture->setAlignment(Qt::AlignCenter);
            picture->setStyleSheet(themed(QStringLiteral("background:@darkPanel@; border-radius:6px;")));
            tints->addWidget(picture, 0, i, Qt::AlignHCenter);
            tints->addWidget(caption(colours.at(i).isEmpty() ? tr("(none)") : colours.at(i)), 1, i,
                             Qt::AlignHCenter);
        }
        tints->setRowStretch(2, 1);

        auto *stretch = new QVBoxLayout(helpers.second);
        const QPixmap tile = QPixmap(QStringLiteral(":/sheets/buttons.png")).copy(0, 0, 120, 40);
        auto *samples = new QHBoxLayout;
        samples->addWidget(new StretchSample(tile, QSize(64, 40), QMargins(12, 12, 12, 12)), 0, Qt::AlignBottom);
        samples->addWidget(new StretchSample(tile, QSize(180, 50), QMargins(12, 12, 12, 12)), 0, Qt::AlignBottom);
        samples->addWidget(new StretchSample(tile, QSize(180, 50), QMargins()), 0, Qt::AlignBottom);
        samples->addStretch();
        stretch->addLayout(samples);
        helpers.second->setToolTip(tr("One 120 x 40 picture: with 12-pixel margins its rounded corners keep "
                                      "their shape at any size; without margins (right) it is simply scaled."));
        stretch->addWidget(note(tr("12-pixel margins keep the corners; the right one has none.")));
        auto *log = addSection(tr("The log file (initMiniLogger)"));
        auto *logLayout = new QVBoxLayout(log);
        m_logFile = note(QString());
        m_logTail = valueLabel();
        m_logTail->setStyleSheet(themed(QStringLiteral("background:@darkPanel@; color:@onDark@; border-radius:6px; padding:8px;")));
        auto *write = new QPushButton(tr("qDebug() a line"));
        auto *logRow = new QHBoxLayout;
        logRow->addWidget(m_logFile, 1);
        logRow->addWidget(write);
        logLayout->addLayout(logRow);
        logLayout->addWidget(m_logTail);
        connect(write, &QPushButton::clicked, this, [this] {
            qDebug() << "the gallery says hello at" << QTime::currentTime().toString(QStringLiteral("hh:mm:ss"));
            showLog();
        });
        body()->addStretch();
    }

protected:
    void showEvent(QShowEvent *event) override
    {
        GalleryPage::showEvent(event);
        showLog();
    }

private:
    // The newest log file of the folder and its last lines, which every Qt
    // message of the process reaches at once.
    void showLog()
    {
        const QFileInfoList files = QDir(m_logDir).entryInfoList({QStringLiteral("gallery_*.txt")}, QDir::Files,
                                                                 QDir::Time);
        if (files.isEmpty()) {
            m_logFile->setText(tr("No log file in %1").arg(QDir::toNativeSeparators(m_logDir)));
            return;
        }
        QFile file(files.first().absoluteFilePath());
        file.open(QIODevice::ReadOnly);
        QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        lines = lines.mid(qMax(0, lines.size() - 3));
        for (QString &line : lines)
            if (line.size() > 130)
                line = line.left(127) + QStringLiteral("...");
        m_logFile->setText(QDir::toNativeSeparators(files.first().absoluteFilePath()));
        m_logTail->setText(lines.join(QLatin1Char('\n')));
    }

    static QString boolText(bool b) { return b ? QStringLiteral("true") : QStringLiteral("false"); }

    void runWorker()
    {
        QPointer<QLabel> result = m_result;
        QThread *worker = QThread::create([result] {
            qint64 sum = 0;
            for (int i = 1; i <= 1000000; ++i)
                sum += i;
            const bool onWorker = Orvane::isWorkThread();
            Orvane::DispatchToMainThread([result, sum, onWorker] {
                if (result)
                    result->setText(tr("Worker: isWorkThread() = %1, sum = %2.\n"
                                       "Handed back: isMainThread() = %3.")
                                        .arg(boolText(onWorker))
                                        .arg(sum)
                                        .arg(boolText(Orvane::isMainThread())));
            });
        });
        connect(worker, &QThread::finished, worker, &QObject::deleteLater);
        worker->start();
    }

    QString m_logDir;
    QLabel *m_result = nullptr;
    QLabel *m_logFile = nullptr;
    QLabel *m_logTail = nullptr;

public:
    void stageShot() override
    {
        runWorker();
        galleryWait(200);
    }
};

} // namespace

GalleryPage *makeFoundationPage(const QString &logDir)
{
    return new FoundationPage(logDir);
}
