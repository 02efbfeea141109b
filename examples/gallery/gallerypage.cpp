#include "gallerypage.h"

#include <QEventLoop>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

GalleryPage::GalleryPage(const QString &id, const QString &title, const QString &blurb,
                         QWidget *parent)
    : QWidget(parent), m_id(id), m_title(title)
{
    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);

    auto *header = new QWidget;
    header->setObjectName(QStringLiteral("pageHeader"));
    auto *headerLayout = new QVBoxLayout(header);
    headerLayout->setContentsMargins(24, 14, 24, 6);
    headerLayout->setSpacing(4);
    auto *heading = new QLabel(title);
    heading->setObjectName(QStringLiteral("pageTitle"));
    auto *line = new QLabel(blurb);
    line->setObjectName(QStringLiteral("pageBlurb"));
    line->setWordWrap(true);
    headerLayout->addWidget(heading);
    headerLayout->addWidget(line);
    outer->addWidget(header);

    auto *scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    auto *content = new QWidget;
    content->setObjectName(QStringLiteral("pageBody"));
    m_body = new QVBoxLayout(content);
    m_body->setContentsMargins(24, 4, 24, 10);
    m_body->setSpacing(10);
    scroll->setWidget(content);
    outer->addWidget(scroll, 1);
}

QGroupBox *GalleryPage::addSection(const QString &title)
{
    auto *box = new QGroupBox(title);
    m_body->addWidget(box);
    return box;
}

QPair<QGroupBox *, QGroupBox *> GalleryPage::addSectionPair(const QString &left, const QString &right)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(14);
    auto *a = new QGroupBox(left);
    auto *b = new QGroupBox(right);
    row->addWidget(a, 1);
    row->addWidget(b, 1);
    m_body->addLayout(row);
    return qMakePair(a, b);
}

QLabel *GalleryPage::note(const QString &text)
{
    auto *label = new QLabel(text);
    label->setObjectName(QStringLiteral("note"));
    label->setWordWrap(true);
    return label;
}

QLabel *GalleryPage::caption(const QString &text)
{
    QLabel *label = note(text);
    label->setWordWrap(false);
    label->setAlignment(Qt::AlignHCenter);
    return label;
}

QLabel *GalleryPage::valueLabel(const QString &text)
{
    auto *label = new QLabel(text);
    label->setObjectName(QStringLiteral("value"));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

void galleryWait(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}
