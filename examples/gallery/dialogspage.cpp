// The dialogs: the bar dialog in the current skin, the Mac-style dialog and
// the registry that closes popped dialogs all at once.
#include "gallerypage.h"
#include "gallerywindow.h"
#include "pages.h"
#include "palette.h"

#include <Orvane/Orvane.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// The gallery's own widgets inside a dialog follow the skin's two colours,
// as a host application's would.
QString contentStyle(int skin)
{
    return themed(skin == 2 ? QStringLiteral("QLabel{color:#C9C9CC; font-size:13px;}"
                                             "QLineEdit, QComboBox{background:@darkHover@; color:#E3E3E3; "
                                             "border:1px solid #0F0F10; border-radius:3px; padding:4px 6px;}")
                            : QStringLiteral("QLabel{color:#333333; font-size:13px;}"
                                             "QLineEdit, QComboBox{background:white; color:#333333; "
                                             "border:1px solid @field@; border-radius:3px; padding:4px 6px;}"));
}

// A row of buttons at the right, styled like the message box's: the last
// one highlighted.
QHBoxLayout *buttonRow(QDialog *dialog, int skin, const QStringList &texts)
{
    const Orvane::DialogSkinStyle look = Orvane::dialogSkinStyle(skin);
    auto *row = new QHBoxLayout;
    row->setSpacing(10);
    row->addStretch();
    for (int i = 0; i < texts.size(); ++i) {
        auto *button = new QPushButton(texts.at(i));
        button->setFixedSize(100, 30);
        button->setStyleSheet(i + 1 == texts.size() ? look.primaryButtonStyle : look.secondaryButtonStyle);
        QObject::connect(button, &QPushButton::clicked, dialog, [dialog, i] { dialog->done(i + 1); });
        row->addWidget(button);
    }
    return row;
}

// A bar dialog with a small export form in its content area.
Orvane::BarDialog *makeBarDialog(int skin, const QString &title, bool barIcon, bool closeButton)
{
    auto *dialog = new Orvane::BarDialog(nullptr, skin);
    dialog->setWindowTitle(title);
    dialog->showBarIcon(barIcon);
    dialog->setVisibleCloseButton(closeButton);
    dialog->contentWidget()->setStyleSheet(dialog->contentWidget()->styleSheet() + contentStyle(skin));
    QVBoxLayout *layout = dialog->makeVBoxLayout(dialog, 0, 14);
    layout->setContentsMargins(24, 20, 24, 18);
    auto *form = new QFormLayout;
    form->setHorizontalSpacing(14);
    form->setVerticalSpacing(10);
    auto *name = new QLineEdit(QStringLiteral("Holiday album"));
    auto *format = new QComboBox;
    format->addItems({QStringLiteral("PNG"), QStringLiteral("JPEG"), QStringLiteral("WebP")});
    form->addRow(GalleryPage::tr("Name"), name);
    form->addRow(GalleryPage::tr("Format"), format);
    layout->addLayout(form);
    auto *hint = new QLabel(GalleryPage::tr("Drag the bar to move the window."));
    layout->addWidget(hint);
    layout->addStretch();
    layout->addLayout(buttonRow(dialog, skin, {GalleryPage::tr("Cancel"), GalleryPage::tr("Export")}));
    dialog->resize(420, 250);
    return dialog;
}

class DialogsPage : public GalleryPage
{
public:
    explicit DialogsPage(GalleryWindow &window)
        : GalleryPage(QStringLiteral("dialogs"), tr("Dialogs"),
                      tr("BarDialog is a frameless, skinned dialog with a drawn title bar that is "
                         "also its drag handle. MacDialog keeps the platform's frame and takes only "
                         "the skin's background. PoppingDialogMgr keeps popped dialogs alive and "
                         "closes them all at once. Pick the skin in the tool bar.")),
          m_window(window)
    {
        auto pair = addSectionPair(QStringLiteral("BarDialog"), QStringLiteral("MacDialog"));
        auto *bar = new QVBoxLayout(pair.first);
        auto *form = new QFormLayout;
        m_title = new QLineEdit(tr("Export"));
        m_icon = new QCheckBox(tr("showBarIcon(true)"));
        m_icon->setChecked(true);
        m_close = new QCheckBox(tr("setVisibleCloseButton(true)"));
        m_close->setChecked(true);
        form->addRow(tr("Title"), m_title);
        form->addRow(QString(), m_icon);
        form->addRow(QString(), m_close);
        bar->addLayout(form);
        auto *open = new QPushButton(tr("Open a bar dialog"));
        m_result = valueLabel();
        auto *openRow = new QHBoxLayout;
        openRow->addWidget(open);
        openRow->addWidget(m_result, 1);
        bar->addLayout(openRow);
        bar->addWidget(note(tr("exec() returns the 1-based position of the clicked button, or 0 "
                               "when the dialog is closed by its bar.")));
        connect(open, &QPushButton::clicked, this, [this] {
            Orvane::BarDialog *dialog = makeBarDialog(m_window.skin(), m_title->text(), m_icon->isChecked(),
                                                      m_close->isChecked());
            const int result = dialog->exec();
            delete dialog;
            m_result->setText(tr("exec() returned %1").arg(result));
        });

        auto *mac = new QVBoxLayout(pair.second);
        mac->addWidget(note(tr("The caller's window flags plus stays-on-top; in the dark skin the "
                               "background is %1 with a one-pixel top border.")
                                .arg(Orvane::dialogSkinStyle(2).dialogBackground)));
        auto *openMac = new QPushButton(tr("Open a Mac-style dialog"));
        mac->addWidget(openMac, 0, Qt::AlignLeft);
        mac->addStretch();
        connect(openMac, &QPushButton::clicked, this, [this] {
            QDialog *dialog = makeMacDialog(m_window.skin());
            dialog->exec();
            delete dialog;
        });

        auto *popped = addSection(QStringLiteral("PoppingDialogMgr"));
        auto *poppedRow = new QHBoxLayout(popped);
        auto *pop = new QPushButton(tr("Pop three dialogs"));
        auto *clear = new QPushButton(tr("Close them all: clear()"));
        m_popped = valueLabel();
        poppedRow->addWidget(pop);
        poppedRow->addWidget(clear);
        poppedRow->addWidget(m_popped, 1);
        connect(pop, &QPushButton::clicked, this, [this] { popThree(); });
        connect(clear, &QPushButton::clicked, this, [this] {
            Orvane::PoppingDialogMgr::sharedInstance()->clear();
            m_popped->setText(tr("clear(): every held dialog got done(0) and was released"));
        });
        body()->addStretch();
    }

    bool followsSkin() const override { return true; }

    void stageShot() override
    {
        m_shotBar = makeBarDialog(m_window.skin(), m_title->text(), true, true);
        m_shotBar->show();
        m_shotMac = makeMacDialog(m_window.skin());
        m_shotMac->show();
        // The Mac-style dialog does not centre itself: place it in the lower
        // right of the window, clear of the bar dialog.
        const QRect frame = m_window.geometry();
        m_shotMac->move(frame.right() - m_shotMac->width() - 40, frame.bottom() - m_shotMac->height() - 50);
    }

    void endShot() override
    {
        delete m_shotBar;
        delete m_shotMac;
    }

private:
    QDialog *makeMacDialog(int skin)
    {
        auto *dialog = new Orvane::MacDialog(nullptr, skin, Qt::Dialog);
        dialog->setWindowTitle(tr("About"));
        dialog->setStyleSheet(dialog->styleSheet() + contentStyle(skin));
        auto *layout = new QVBoxLayout(dialog);
        layout->setContentsMargins(20, 16, 20, 16);
        layout->addWidget(new QLabel(tr("A Mac-style dialog: the platform's\nframe, the skin's background.")));
        layout->addLayout(buttonRow(dialog, skin, {tr("OK")}));
        dialog->resize(300, 120);
        return dialog;
    }

    void popThree()
    {
        for (int i = 0; i < 3; ++i) {
            QSharedPointer<QDialog> dialog(
                makeBarDialog(m_window.skin(), tr("Popped dialog %1").arg(i + 1), true, true));
            dialog->show();
            // Each show centres the dialog; cascade them from there, to the
            // right, clear of the button that closes them.
            dialog->move(dialog->pos() + QPoint(200 + 36 * i, 30 * (i - 1)));
            Orvane::PoppingDialogMgr::sharedInstance()->push(dialog);
        }
        m_popped->setText(tr("three dialogs held by the registry"));
    }

    GalleryWindow &m_window;
    QLineEdit *m_title = nullptr;
    QCheckBox *m_icon = nullptr;
    QCheckBox *m_close = nullptr;
    QLabel *m_result = nullptr;
    QLabel *m_popped = nullptr;
    QPointer<QDialog> m_shotBar;
    QPointer<QDialog> m_shotMac;
};

} // namespace

GalleryPage *makeDialogsPage(GalleryWindow &window)
{
    return new DialogsPage(window);
}
