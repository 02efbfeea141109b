// The eliding label in splitters and the spinning label with start and stop.
#include "gallerypage.h"
#include "pages.h"
#include "palette.h"

#include <Orvane/Orvane.h>

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>

namespace {

const char *const sampleText =
    "Quarterly report - Northern region - final version (approved) - 2026.pdf";

class LabelsPage : public GalleryPage
{
public:
    LabelsPage()
        : GalleryPage(QStringLiteral("labels"), tr("Labels"),
                      tr("ElidedLabel shortens its text with an ellipsis and keeps the full text for "
                         "the program; RotationLabel spins its picture as a busy indicator."))
    {
        auto *elided = addSection(tr("ElidedLabel: drag a splitter handle"));
        auto *grid = new QGridLayout(elided);
        grid->setVerticalSpacing(10);
        const QList<QPair<Qt::TextElideMode, QString>> modes = {
            {Qt::ElideRight, QStringLiteral("Qt::ElideRight")},
            {Qt::ElideMiddle, QStringLiteral("Qt::ElideMiddle")},
            {Qt::ElideLeft, QStringLiteral("Qt::ElideLeft")},
        };
        for (const auto &mode : modes) {
            const int row = grid->rowCount();
            auto *splitter = new QSplitter(Qt::Horizontal);
            splitter->setChildrenCollapsible(false);
            splitter->setHandleWidth(8);
            splitter->setStyleSheet(QStringLiteral("QSplitter::handle{background:#D6D8E3; margin:2px 2px; border-radius:2px;}"));
            // The label elides to its whole width, so the padding lives in a
            // holder around it rather than in the label's style.
            auto *holder = new QWidget;
            holder->setObjectName(QStringLiteral("elidedHolder"));
            holder->setStyleSheet(themed(QStringLiteral("#elidedHolder{background:@page@;}")));
            auto *holderLayout = new QHBoxLayout(holder);
            holderLayout->setContentsMargins(8, 0, 8, 0);
            auto *label = new Orvane::ElidedLabel(nullptr, mode.first);
            label->setMinimumHeight(30);
            holderLayout->addWidget(label);
            auto *rest = new QLabel;
            rest->setStyleSheet(QStringLiteral("background:#EDEEF6;"));
            splitter->addWidget(holder);
            splitter->addWidget(rest);
            splitter->setStretchFactor(0, 0);
            splitter->setStretchFactor(1, 1);
            splitter->setSizes({260, 400});
            grid->addWidget(new QLabel(mode.second), row, 0);
            grid->addWidget(splitter, row, 1);
            m_labels.append(label);
        }
        grid->setColumnStretch(1, 1);
        auto *again = new QPushButton(tr("Set the text again"));
        auto *full = valueLabel(tr("text(): %1").arg(QLatin1String(sampleText)));
        full->setWordWrap(true);
        grid->addWidget(full, grid->rowCount(), 0, 1, 2);
        grid->addWidget(note(tr("Once the whole text has fitted, the label keeps it whole, even when "
                                "made narrower again, until the text is set anew.")),
                        grid->rowCount(), 0, 1, 2);
        grid->addWidget(again, grid->rowCount(), 0, 1, 2, Qt::AlignLeft);
        connect(again, &QPushButton::clicked, this, [this] { setTexts(); });

        auto *spin = addSection(tr("RotationLabel"));
        auto *row = new QHBoxLayout(spin);
        row->setSpacing(16);
        const QList<QPair<QString, QString>> pictures = {
            {QStringLiteral(":/Orvane/kv_Loading.png"), QStringLiteral("@darkPanel@")},
            {QStringLiteral(":/Orvane/qm_Loading.png"), QStringLiteral("#FFFFFF")},
            {QStringLiteral(":/sheets/icons.png"), QStringLiteral("@page@")},
        };
        for (const auto &picture : pictures) {
            auto *label = new Orvane::RotationLabel;
            label->setFixedSize(72, 72);
            label->setAlignment(Qt::AlignCenter);
            label->setStyleSheet(themed(QStringLiteral("background:%1; border:1px solid @frame@; border-radius:8px;")
                                            .arg(picture.second)));
            QPixmap pixmap(picture.first);
            // The last picture is the gear tile of the gallery's icon sheet.
            if (picture.first.endsWith(QLatin1String("icons.png")))
                pixmap = pixmap.copy(164, 4, 32, 32).scaled(48, 48, Qt::KeepAspectRatio, Qt::SmoothTransformation);
            m_upright.append(pixmap);
            label->setPixmap(pixmap);
            row->addWidget(label);
            m_spinners.append(label);
        }
        auto *controls = new QVBoxLayout;
        auto *duration = new QSpinBox;
        duration->setRange(100, 10000);
        duration->setSingleStep(100);
        duration->setValue(1200);
        duration->setSuffix(tr(" ms per turn"));
        auto *start = new QPushButton(tr("Start"));
        auto *stop = new QPushButton(tr("Stop"));
        auto *buttons = new QHBoxLayout;
        buttons->addWidget(start);
        buttons->addWidget(stop);
        controls->addWidget(duration);
        controls->addLayout(buttons);
        controls->addWidget(note(tr("Stop keeps the frame it reached; Start puts the upright picture "
                                    "back first.")));
        row->addLayout(controls);
        row->addStretch();
        m_duration = duration;
        connect(start, &QPushButton::clicked, this, [this] { startSpinning(); });
        connect(stop, &QPushButton::clicked, this, [this] {
            for (Orvane::RotationLabel *label : qAsConst(m_spinners))
                label->stopRotating();
        });
        body()->addStretch();
    }

    void stageShot() override
    {
        // Start the spin and let it run a little, so the shot catches it turned.
        startSpinning();
    }

    void endShot() override
    {
        for (Orvane::RotationLabel *label : qAsConst(m_spinners))
            label->stopRotating();
    }

protected:
    void showEvent(QShowEvent *event) override
    {
        GalleryPage::showEvent(event);
        // Once a label has shown its whole text it keeps it whole, so the
        // texts are set only when the splitters have their real widths.
        QTimer::singleShot(0, this, [this] { setTexts(); });
    }

private:
    void setTexts()
    {
        for (Orvane::ElidedLabel *label : qAsConst(m_labels))
            label->setText(QString::fromUtf8(sampleText));
    }

    void startSpinning()
    {
        for (int i = 0; i < m_spinners.size(); ++i) {
            m_spinners.at(i)->setPixmap(m_upright.at(i));
            m_spinners.at(i)->startRotating(m_duration->value());
        }
    }

    QList<Orvane::ElidedLabel *> m_labels;
    QList<Orvane::RotationLabel *> m_spinners;
    QList<QPixmap> m_upright;
    QSpinBox *m_duration = nullptr;
};

} // namespace

GalleryPage *makeLabelsPage()
{
    return new LabelsPage;
}
