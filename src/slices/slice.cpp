#include <Orvane/slice.h>

namespace Orvane {

QPixmap Slice::slice() const
{
    if (!image)
        return QPixmap();
    // The rectangle is in the 1x sheet's pixels; on a @2x sheet it covers
    // twice as many, and the cut keeps the sheet's ratio.
    const qreal ratio = image->devicePixelRatioF();
    if (ratio == 1.0 || rect.isEmpty())
        return image->copy(rect);
    QPixmap cut = image->copy(QRect(qRound(rect.x() * ratio), qRound(rect.y() * ratio),
                                    qRound(rect.width() * ratio), qRound(rect.height() * ratio)));
    cut.setDevicePixelRatio(ratio);
    return cut;
}

} // namespace Orvane
