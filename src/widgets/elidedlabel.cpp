#include <Orvane/elidedlabel.h>

#include <QDebug>
#include <QFontMetrics>
#include <QResizeEvent>

namespace Orvane {

ElidedLabel::ElidedLabel(QWidget *parent, Qt::TextElideMode elideMode)
    : QLabel(parent)
    , m_elideMode(elideMode)
{
    setTextFormat(Qt::PlainText);
}

void ElidedLabel::setText(const QString &text)
{
    m_cachedText = text;
    update();
}

QString ElidedLabel::text() const
{
    return m_cachedText;
}

void ElidedLabel::setElideMode(Qt::TextElideMode mode)
{
    m_elideMode = mode;
    m_cachedText.clear();
    update();
}

void ElidedLabel::update()
{
    updateCachedTexts();
    qDebug().noquote().nospace() << "ElidedLabel text: " << m_cachedElidedText;
    QLabel::setText(m_cachedElidedText);
    QWidget::update();
}

void ElidedLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    update();
}

void ElidedLabel::updateCachedTexts()
{
    qDebug().noquote().nospace() << "m_cachedText : " << m_cachedText;
    // The shown text is compared with the full text, not the old full text
    // with the new one: a text that once fitted stays whole on narrowing.
    if (m_cachedElidedText == m_cachedText)
        return;

    const QFontMetrics metrics(font());
    m_cachedElidedText = metrics.elidedText(m_cachedText, m_elideMode, width(), Qt::TextShowMnemonic);

    if (!m_cachedText.isEmpty()) {
        const int firstLength =
            m_cachedText.size() > 1 && m_cachedText.at(0).isHighSurrogate() && m_cachedText.at(1).isLowSurrogate()
                ? 2
                : 1;
        setMinimumWidth(metrics.horizontalAdvance(m_cachedText.left(firstLength) + QStringLiteral("...")) + 1);
    }
}

} // namespace Orvane
