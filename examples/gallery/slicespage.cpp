// The slice catalogue: the gallery's own ":/slices.json" with its sprite
// sheets, and the "images" folder beside the executable.
#include "gallerypage.h"
#include "pages.h"
#include "palette.h"

#include <Orvane/Orvane.h>

#include <QDir>
#include <QFile>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace {

// A picture over its caption; a null pixmap shows as a dashed empty box.
QWidget *picture(const QPixmap &pixmap, const QString &text, const QString &background = QString())
{
    auto *cell = new QWidget;
    auto *layout = new QVBoxLayout(cell);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    auto *image = new QLabel;
    image->setAlignment(Qt::AlignCenter);
    if (pixmap.isNull()) {
        image->setText(QStringLiteral("null"));
        image->setFixedSize(48, 40);
        image->setStyleSheet(QStringLiteral("border:1px dashed #B0B3C2; color:#9A9DAA; border-radius:4px;"));
    } else {
        image->setPixmap(pixmap);
        // A slice cut from a @2x sheet counts twice the pixels for its size.
        image->setMinimumSize((QSizeF(pixmap.size()) / pixmap.devicePixelRatioF()).toSize() + QSize(8, 8));
        if (!background.isEmpty())
            image->setStyleSheet(QStringLiteral("background:%1; border-radius:6px;").arg(background));
    }
    layout->addWidget(image, 0, Qt::AlignHCenter);
    layout->addWidget(GalleryPage::caption(text), 0, Qt::AlignHCenter);
    return cell;
}

QString methodText(const QJsonObject &method)
{
    if (method.isEmpty())
        return GalleryPage::tr("no method: the whole sheet");
    return QStringLiteral("%1, begin %2, spacing %3, size %4")
        .arg(method.value(QStringLiteral("type")).toString(), method.value(QStringLiteral("begin")).toString())
        .arg(method.value(QStringLiteral("spacing")).toInt())
        .arg(method.value(QStringLiteral("size")).toString());
}

class SlicesPage : public GalleryPage
{
public:
    SlicesPage()
        : GalleryPage(QStringLiteral("slices"), tr("Image slices"),
                      tr("SliceManager reads the gallery's own \":/slices.json\", loads the sprite "
                         "sheets it names from the gallery's resources and cuts named slices on "
                         "first use; its static helpers load files from the \"images\" folder "
                         "beside the executable."))
    {
        Orvane::SliceManager &slices = Orvane::SliceManager::sharedInstance();

        auto *sheets = addSection(tr("Slices named in \":/slices.json\""));
        auto *grid = new QGridLayout(sheets);
        grid->setHorizontalSpacing(18);
        grid->setVerticalSpacing(6);
        QFile file(QStringLiteral(":/slices.json"));
        file.open(QIODevice::ReadOnly);
        const QJsonArray entries = QJsonDocument::fromJson(file.readAll()).array();
        for (const QJsonValue &entry : entries) {
            const QJsonObject sheet = entry.toObject();
            for (const QJsonValue &groupValue : sheet.value(QStringLiteral("slices")).toArray()) {
                const QJsonObject group = groupValue.toObject();
                const QString prefix = group.value(QStringLiteral("prefix")).toString();
                const int row = grid->rowCount();
                auto *title = new QLabel(themed(QStringLiteral("<b>%1</b> %2<br><span style='color:@note@'>%3</span>"))
                                             .arg(sheet.value(QStringLiteral("filename")).toString(),
                                                  prefix.isEmpty() ? QString() : QStringLiteral("&ndash; %1*").arg(prefix),
                                                  methodText(group.value(QStringLiteral("method")).toObject())));
                grid->addWidget(title, row, 0, Qt::AlignLeft | Qt::AlignVCenter);
                auto *strip = new QHBoxLayout;
                strip->setSpacing(10);
                const bool dark = prefix == QLatin1String("heart_");
                for (const QJsonValue &item : group.value(QStringLiteral("items")).toArray()) {
                    const QString name = prefix + item.toString();
                    QPixmap cut = slices.slice(name);
                    // The banner is a whole sheet; it is shown smaller to leave room.
                    const qreal ratio = cut.devicePixelRatioF();
                    if (cut.width() / ratio > 200) {
                        cut = cut.scaledToWidth(cut.width() * 3 / 4, Qt::SmoothTransformation);
                        cut.setDevicePixelRatio(ratio);
                    }
                    strip->addWidget(picture(cut, name, dark ? themed(QStringLiteral("@darkPanel@")) : QString()));
                }
                strip->addStretch();
                grid->addLayout(strip, row, 1);
            }
        }
        const int row = grid->rowCount();
        grid->addWidget(new QLabel(themed(tr("<b>an unknown name</b><br><span style='color:@note@'>logs "
                                             "\"slice not found:\"</span>"))),
                        row, 0);
        auto *missing = new QHBoxLayout;
        missing->addWidget(picture(slices.slice(QStringLiteral("icon_missing")), QStringLiteral("icon_missing")));
        missing->addStretch();
        grid->addLayout(missing, row, 1);
        grid->setColumnStretch(1, 1);

        auto *folder = addSection(tr("The \"images\" folder: %1")
                                      .arg(QDir::toNativeSeparators(Orvane::SliceManager::pathNamed(QString()))));
        auto *row2 = new QHBoxLayout(folder);
        row2->setSpacing(22);
        row2->addWidget(picture(Orvane::SliceManager::appIcon().scaled(64, 64, Qt::KeepAspectRatio,
                                                                        Qt::SmoothTransformation),
                                QStringLiteral("appIcon()")));
        row2->addWidget(picture(Orvane::SliceManager::lossFileCover().scaled(120, 80, Qt::KeepAspectRatio,
                                                                             Qt::SmoothTransformation),
                                QStringLiteral("lossFileCover()")));
        const QImage image = Orvane::SliceManager::imageNamed(QStringLiteral("frames.png"));
        m_frames = Orvane::SliceManager::pixmapGroupNamed(QStringLiteral("frames.png"), 8, QRect());
        auto *frames = new QHBoxLayout;
        frames->setSpacing(2);
        for (const QPixmap &frame : qAsConst(m_frames)) {
            auto *label = new QLabel;
            label->setPixmap(frame);
            frames->addWidget(label);
        }
        auto *framesBox = new QVBoxLayout;
        framesBox->addLayout(frames);
        framesBox->addWidget(caption(tr("pixmapGroupNamed(\"frames.png\", 8): %1 frames of a %2 x %3 image")
                                         .arg(m_frames.size())
                                         .arg(image.width())
                                         .arg(image.height())));
        row2->addLayout(framesBox);
        m_player = new QLabel;
        m_player->setFixedSize(56, 56);
        m_player->setAlignment(Qt::AlignCenter);
        m_player->setStyleSheet(themed(QStringLiteral("background:@page@; border-radius:8px;")));
        auto *playerBox = new QVBoxLayout;
        playerBox->addWidget(m_player, 0, Qt::AlignHCenter);
        playerBox->addWidget(caption(tr("played")));
        row2->addLayout(playerBox);
        row2->addStretch();
        auto *timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, [this] { nextFrame(); });
        timer->start(90);
        nextFrame();
        body()->addStretch();
    }

private:
    void nextFrame()
    {
        if (m_frames.isEmpty())
            return;
        m_frame = (m_frame + 1) % m_frames.size();
        m_player->setPixmap(m_frames.at(m_frame));
    }

    QVector<QPixmap> m_frames;
    QLabel *m_player = nullptr;
    int m_frame = 0;
};

} // namespace

GalleryPage *makeSlicesPage()
{
    return new SlicesPage;
}
