// The message box: every icon, a heading, a check box, one to three buttons,
// and the position of the clicked button.
#include "gallerypage.h"
#include "gallerywindow.h"
#include "pages.h"

#include <Orvane/Orvane.h>

#include <QApplication>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>

void closeMessageBoxes()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *w : windows)
        if (qobject_cast<Orvane::OMessageBox *>(w) && w->isVisible())
            w->close();
}

namespace {

class MessagesPage : public GalleryPage
{
public:
    MessagesPage()
        : GalleryPage(QStringLiteral("messages"), tr("Message box"),
                      tr("OMessageBox is a bar dialog with an icon, an optional heading, the message, "
                         "an optional check box and up to any number of buttons; the result is the "
                         "1-based position of the clicked button, 0 when closed otherwise. It takes "
                         "the process-wide skin from the tool bar."))
    {
        auto pair = addSectionPair(tr("What the box shows"), tr("Open it"));
        auto *form = new QFormLayout(pair.first);
        form->setVerticalSpacing(8);
        m_icon = new QComboBox;
        m_icon->addItem(QStringLiteral("0  AppIcon"), int(Orvane::AppIcon));
        m_icon->addItem(QStringLiteral("1  Attention"), int(Orvane::Attention));
        m_icon->addItem(QStringLiteral("2  Warning"), int(Orvane::Warning));
        m_icon->addItem(QStringLiteral("3  Success"), int(Orvane::Success));
        m_icon->addItem(tr("9  (not an icon)"), 9);
        m_icon->setCurrentIndex(1);
        m_heading = new QLineEdit(tr("A new version is ready"));
        m_text = new QLineEdit(tr("Version 1.1 brings faster exports and a darker dark skin."));
        m_text->setCursorPosition(0);
        m_check = new QLineEdit(tr("Don't ask again"));
        m_count = new QSpinBox;
        m_count->setRange(0, 3);
        m_count->setValue(3);
        m_buttons = {new QLineEdit(tr("Cancel")), new QLineEdit(tr("Later")), new QLineEdit(tr("Update"))};
        m_default = new QSpinBox;
        m_default->setRange(-1, 4);
        m_default->setValue(-1);
        m_default->setSpecialValueText(tr("-1 (the last one)"));
        form->addRow(tr("Icon"), m_icon);
        form->addRow(tr("Heading"), m_heading);
        form->addRow(tr("Message"), m_text);
        form->addRow(tr("Check box"), m_check);
        form->addRow(tr("Buttons"), m_count);
        auto *texts = new QHBoxLayout;
        for (QLineEdit *edit : qAsConst(m_buttons))
            texts->addWidget(edit);
        form->addRow(QString(), texts);
        form->addRow(tr("Highlighted"), m_default);
        connect(m_count, QOverload<int>::of(&QSpinBox::valueChanged), this, [this](int n) {
            for (int i = 0; i < m_buttons.size(); ++i)
                m_buttons.at(i)->setEnabled(i < n);
        });

        auto *open = new QVBoxLayout(pair.second);
        auto *modal = new QPushButton(tr("popupTips(icon, buttons, text, heading, ...)"));
        auto *simple = new QPushButton(tr("popupTips(icon, text, heading)"));
        auto *modeless = new QPushButton(tr("showTips(icon, text, heading): modeless"));
        for (QPushButton *b : {modal, simple, modeless})
            open->addWidget(b);
        m_result = valueLabel(tr("No box opened yet."));
        m_result->setWordWrap(true);
        m_checked = valueLabel();
        open->addSpacing(8);
        open->addWidget(m_result);
        open->addWidget(m_checked);
        open->addWidget(note(tr("The modal calls block in a nested event loop; the box deletes itself "
                                "when it closes.")));
        open->addStretch();
        connect(modal, &QPushButton::clicked, this, [this] { popup(); });
        connect(simple, &QPushButton::clicked, this, [this] {
            const int result = Orvane::OMessageBox::popupTips(icon(), m_text->text(), m_heading->text());
            m_result->setText(tr("popupTips returned %1").arg(result));
        });
        connect(modeless, &QPushButton::clicked, this,
                [this] { Orvane::OMessageBox::showTips(icon(), m_text->text(), m_heading->text()); });
        body()->addStretch();
    }

    bool followsSkin() const override { return true; }

    void stageShot() override
    {
        // Play the user once: open the modal box and click its second button,
        // so the page shows what popupTips returned.
        QTimer::singleShot(100, this, [] {
            QWidget *box = QApplication::activeModalWidget();
            if (!box)
                return;
            const QList<QPushButton *> buttons = box->findChildren<QPushButton *>();
            for (QPushButton *button : buttons)
                if (button->text() == tr("Later"))
                    button->click();
        });
        popup();
        // Then show the same box modeless for the picture.
        auto *box = new Orvane::OMessageBox(icon(), buttonTexts(), m_text->text(), m_heading->text(),
                                            m_default->value(), m_check->text(), checkedCallback());
        box->show();
        // Qt makes a new window at most two thirds of its screen high, and
        // the offscreen screen is 800 by 600 device pixels, 300 high at
        // 200 %: give the box its natural height, as a real screen does.
        box->resize(box->width(), qMax(box->height(), box->heightForWidth(box->width())));
        // The box centres itself on show; move it down as a user would, so
        // the returned position stays in sight.
        box->move(box->pos() + QPoint(0, 170));
    }

    void endShot() override { closeMessageBoxes(); }

private:
    Orvane::MessageBoxIconType icon() const { return Orvane::MessageBoxIconType(m_icon->currentData().toInt()); }

    QStringList buttonTexts() const
    {
        QStringList texts;
        for (int i = 0; i < m_count->value(); ++i)
            texts << m_buttons.at(i)->text();
        return texts;
    }

    std::function<void(bool)> checkedCallback()
    {
        QPointer<QLabel> label = m_checked;
        return [label](bool on) {
            if (label)
                label->setText(tr("onChecked(%1)").arg(on ? QStringLiteral("true") : QStringLiteral("false")));
        };
    }

    void popup()
    {
        const QStringList texts = buttonTexts();
        const int result = Orvane::OMessageBox::popupTips(icon(), texts, m_text->text(), m_heading->text(),
                                                          m_default->value(), m_check->text(),
                                                          checkedCallback());
        m_result->setText(result > 0 && result <= texts.size()
                              ? tr("popupTips returned %1: \"%2\"").arg(result).arg(texts.at(result - 1))
                              : tr("popupTips returned %1: closed without a button").arg(result));
    }

    QComboBox *m_icon = nullptr;
    QLineEdit *m_heading = nullptr;
    QLineEdit *m_text = nullptr;
    QLineEdit *m_check = nullptr;
    QSpinBox *m_count = nullptr;
    QList<QLineEdit *> m_buttons;
    QSpinBox *m_default = nullptr;
    QLabel *m_result = nullptr;
    QLabel *m_checked = nullptr;
};

} // namespace

GalleryPage *makeMessagesPage()
{
    return new MessagesPage;
}
