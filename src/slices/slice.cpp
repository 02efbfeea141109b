#include <Orvane/slice.h>

namespace Orvane {

QPixmap Slice::slice() const
{
    if (!image)
        return QPixmap();
    return image->copy(rect);
}

} // namespace Orvane
